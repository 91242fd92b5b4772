#include "branding/BrandedMsgBox.h"

#include "platform/HelpViewer.h"
#include "tests/branding/BrandingTest.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

namespace zorvo {

namespace {

class RecordingHelpViewer : public HelpViewer {
public:
    struct Shown {
        std::string sFile;
        Command command;
        std::uint32_t nData;
    };

    std::uintptr_t show(std::uintptr_t /*owner*/, const std::string& helpFile, Command command,
                        std::uint32_t data) override
    {
        shown.push_back({helpFile, command, data});
        return 1;
    }
    void setTopMost(std::uintptr_t /*window*/, bool /*bTop*/) override {}

    std::vector<Shown> shown;
};

void pressF1()
{
    QWidget widget;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QApplication::sendEvent(&widget, &press);
}

} // namespace

class BrandedMessage : public BrandingTest {
protected:
    struct Box {
        std::string sPrompt;
        int nStyle;
        std::string sTitle;
        std::int16_t nPointer;
    };

    BrandedMessage()
        : handlerBefore_(
              setMessageBoxHandler([this](const std::string& sPrompt, int nStyle, const std::string& sTitle) {
                  boxes.push_back({sPrompt, nStyle, sTitle, screenPointer()});
                  if (whileShown)
                      whileShown();
                  return nAnswer;
              }))
    {
        platform().help = help;
    }
    ~BrandedMessage() override
    {
        setMessageBoxHandler(handlerBefore_);
        setScreenPointer(0);
    }

    std::vector<Box> boxes;
    std::function<void()> whileShown;
    int nAnswer = kMsgResultOk;
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();

private:
    MessageBoxHandler handlerBefore_;
};

TEST_F(BrandedMessage, HasTheProgramsTitleAndAPlainButtonByDefault)
{
    BrandedMsgBox("Text");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].sPrompt, "Text");
    EXPECT_EQ(boxes[0].nStyle, 0);
    EXPECT_EQ(boxes[0].sTitle, "Zorvo's Brendle");
}

TEST_F(BrandedMessage, TakesTheGivenButtonsAndTitle)
{
    BrandedMsgBox("Text", kMsgYesNo | kMsgQuestion, "Title");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].nStyle, 36);
    EXPECT_EQ(boxes[0].sTitle, "Title");
}

TEST_F(BrandedMessage, PutsTheSuffixBehindAColonAndTwoBlanks)
{
    BrandedMsgBox("Text", {}, {}, {}, {}, "Suffix");
    BrandedMsgBox("Text", {}, "Title", {}, {}, "");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].sTitle, "Zorvo's Brendle:  Suffix");
    EXPECT_EQ(boxes[1].sTitle, "Title:  ");
}

TEST_F(BrandedMessage, ShowsPromptAndTitleInTheCompanysWording)
{
    StoreCompanyID("OTR");
    BrandedMsgBox("Call Zorvo", {}, "About Zorvo", {}, {}, "Zorvo");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].sPrompt, "Call OT&R");
    EXPECT_EQ(boxes[0].sTitle, "About OT&R:  OT&R");
}

TEST_F(BrandedMessage, ChangesTheCallersPrompt)
{
    StoreCompanyID("ABC");
    std::string sPrompt = "Call Zorvo option 6";
    BrandedMsgBox(sPrompt);
    EXPECT_EQ(sPrompt, "Call ABC");
}

TEST_F(BrandedMessage, LeavesAConstantPromptAlone)
{
    StoreCompanyID("ABC");
    const std::string sPrompt = "Call Zorvo";
    BrandedMsgBox(sPrompt);
    EXPECT_EQ(sPrompt, "Call Zorvo");
    EXPECT_EQ(boxes.at(0).sPrompt, "Call ABC");
}

TEST_F(BrandedMessage, GivesTheButtonPressed)
{
    nAnswer = kMsgResultNo;
    EXPECT_EQ(BrandedMsgBox("Text", kMsgYesNo), kMsgResultNo);
}

TEST_F(BrandedMessage, ShowsUnderTheDefaultPointerAndPutsTheOldOneBack)
{
    setScreenPointer(11);
    BrandedMsgBox("Text");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].nPointer, 0);
    EXPECT_EQ(screenPointer(), 11);
}

TEST_F(BrandedMessage, ServesPendingEventsFirst)
{
    bool bServed = false;
    bool bServedBefore = false;
    QTimer::singleShot(0, [&bServed] { bServed = true; });
    whileShown = [&] { bServedBefore = bServed; };
    BrandedMsgBox("Text");
    EXPECT_TRUE(bServedBefore);
}

TEST_F(BrandedMessage, HelpTopicsOpenWithF1WhileTheBoxIsUp)
{
    whileShown = pressF1;
    BrandedMsgBox("Text", {}, {}, "C:\\Help.chm", 17);
    ASSERT_EQ(help->shown.size(), 1U);
    EXPECT_EQ(help->shown[0].sFile, "C:\\Help.chm");
    EXPECT_EQ(help->shown[0].command, HelpViewer::kContext);
    EXPECT_EQ(help->shown[0].nData, 17U);
    pressF1();
    EXPECT_EQ(help->shown.size(), 1U) << "the box is gone";
}

TEST_F(BrandedMessage, AContextWithoutAFileNamesTheFileZero)
{
    whileShown = pressF1;
    BrandedMsgBox("Text", {}, {}, {}, 17);
    ASSERT_EQ(help->shown.size(), 1U);
    EXPECT_EQ(help->shown[0].sFile, "0");
}

TEST_F(BrandedMessage, AHelpFileWithoutAContextGivesNoHelp)
{
    whileShown = pressF1;
    BrandedMsgBox("Text", {}, {}, "C:\\Help.chm");
    BrandedMsgBox("Text", {}, {}, "C:\\Help.chm", 0);
    EXPECT_EQ(boxes.size(), 2U);
    EXPECT_TRUE(help->shown.empty());
}

} // namespace zorvo
