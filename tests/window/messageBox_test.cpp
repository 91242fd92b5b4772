#include "base/text.h"
#include "tests/window/WindowTest.h"
#include "window/Form.h"
#include "window/messageBox.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

QMessageBox& boxInFront()
{
    return *qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

/// Shows the real box and answers it from within its own loop.
int answered(const std::string& sPrompt, int nStyle, const std::function<void(QMessageBox&)>& answer)
{
    QTimer::singleShot(0, qApp, [&] {
        EXPECT_TRUE(waitUntil([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }));
        answer(boxInFront());
    });
    return showMessageBox(sPrompt, nStyle, "A title & more");
}

void press(QMessageBox& box, QMessageBox::StandardButton button)
{
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

TEST(MessageBox, GivesTheButtonPressed)
{
    const auto press = [](QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { zorvo::press(box, button); };
    };
    EXPECT_EQ(answered("?", kMsgOk, press(QMessageBox::Ok)), kMsgResultOk);
    EXPECT_EQ(answered("?", kMsgOkCancel, press(QMessageBox::Cancel)), kMsgResultCancel);
    EXPECT_EQ(answered("?", kMsgYesNo, press(QMessageBox::Yes)), kMsgResultYes);
    EXPECT_EQ(answered("?", kMsgYesNo, press(QMessageBox::No)), kMsgResultNo);
}

TEST(MessageBox, HasTheButtonsAndTheIconOfItsStyle)
{
    answered("?", kMsgYesNo | kMsgQuestion, [](QMessageBox& box) {
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        press(box, QMessageBox::No);
    });
    const std::vector<std::pair<int, QMessageBox::Icon>> icons = {
        {0, QMessageBox::NoIcon},
        {kMsgCritical, QMessageBox::Critical},
        {kMsgExclamation, QMessageBox::Warning},
        {kMsgInformation, QMessageBox::Information}};
    for (const auto& [nStyle, icon] : icons)
        answered("?", nStyle, [icon = icon](QMessageBox& box) {
            EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
            EXPECT_EQ(box.icon(), icon);
            press(box, QMessageBox::Ok);
        });
}

TEST(MessageBox, IsWideEnoughForItsTitle)
{
    const std::string sTitle = "Zorvo's Brendle:  TemplateTree.RefreshAddInCopy";
    QTimer::singleShot(0, qApp, [&] {
        EXPECT_TRUE(waitUntil([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }));
        QFont bold = boxInFront().font();
        bold.setBold(true);
        EXPECT_GT(boxInFront().width(),
                  QFontMetrics(bold).horizontalAdvance(QString::fromStdString(sTitle)) + 100);
        press(boxInFront(), QMessageBox::Ok);
    });
    showMessageBox("Error 76", kMsgInformation, sTitle);
}

TEST(MessageBox, IsWideEnoughForItsText)
{
    for (const char* text :
         {"Short", "A text that is much longer than the title of the box, and stands on one line",
          "first line\nand a second one that is a good deal longer than the first"})
        answered(text, kMsgYesNo | kMsgQuestion, [](QMessageBox& box) {
            const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            EXPECT_GE(label->width(), label->sizeHint().width()) << box.text().toStdString();
            EXPECT_GE(label->height(), label->heightForWidth(label->width()));
            press(box, QMessageBox::No);
        });
}

TEST(MessageBox, ShowsItsTextsAsTheyAre)
{
    answered("Tom & Jerry <b>\r\nsecond line\rthird && fourth", 0, [](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("Tom & Jerry <b>\nsecond line\nthird && fourth"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("A title & more"));
        const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        EXPECT_EQ(label->buddy(), nullptr);
        EXPECT_EQ(accessibleText(*box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))),
                  "Tom & Jerry <b>\nsecond line\nthird && fourth");
        press(box, QMessageBox::Ok);
    });
}

TEST(MessageBox, EscapeIsCancelOrNo)
{
    const auto escape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    EXPECT_EQ(answered("?", kMsgOk, escape), kMsgResultOk);
    EXPECT_EQ(answered("?", kMsgOkCancel, escape), kMsgResultCancel);
    EXPECT_EQ(answered("?", kMsgYesNo, escape), kMsgResultNo);
}

TEST(MessageBox, IsModalToTheWholeProgramAndBelongsToTheWindowInFront)
{
    Form form("frmBehind");
    form.showModeless();
    ASSERT_TRUE(waitUntil([&] { return form.isActiveWindow(); }));
    answered("?", 0, [&](QMessageBox& box) {
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(box.windowHandle()->transientParent(), form.windowHandle());
        press(box, QMessageBox::Ok);
    });
    form.unload();
}

TEST(MessageBox, OutlivesTheWindowItStoodBefore)
{
    auto form = std::make_unique<Form>("frmGone");
    form->showModeless();
    ASSERT_TRUE(waitUntil([&] { return form->isActiveWindow(); }));
    EXPECT_EQ(answered("?", kMsgYesNo,
                       [&](QMessageBox& box) {
                           form.reset();
                           press(box, QMessageBox::Yes);
                       }),
              kMsgResultYes);
}

TEST(MessageBox, ALongTextKeepsItsButtonsOnTheScreen)
{
    for (const std::string& sText :
         {std::string(10'000, 'W'), replaceAll(std::string(300, 'n'), "n", "line\n")})
        answered(sText, kMsgYesNo, [&](QMessageBox& box) {
            const QRect room = box.screen()->availableGeometry();
            EXPECT_LE(box.width(), room.width());
            EXPECT_LE(box.height(), room.height());
            const QPushButton& no = *qobject_cast<QPushButton*>(box.button(QMessageBox::No));
            EXPECT_TRUE(box.rect().contains(no.geometry()));
            EXPECT_EQ(box.text().toStdString(), sText);
            press(box, QMessageBox::No);
        });
}

TEST(MessageBox, GivesWayToAHandler)
{
    std::string sSeen;
    const MessageBoxHandler before =
        setMessageBoxHandler([&](const std::string& sPrompt, int nStyle, const std::string& sTitle) {
            sSeen = sPrompt + "|" + std::to_string(nStyle) + "|" + sTitle;
            return 7;
        });
    EXPECT_FALSE(before);
    EXPECT_EQ(showMessageBox("p", 36, "t"), 7);
    EXPECT_EQ(sSeen, "p|36|t");
    EXPECT_TRUE(setMessageBoxHandler(before));
}

} // namespace
} // namespace zorvo
