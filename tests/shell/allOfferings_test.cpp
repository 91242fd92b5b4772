#include "catalogue/forms/frmAllProducts.h"
#include "creation/creationState.h"
#include "tests/fakes/RecordingPageEngine.h"
#include "tests/shell/MainFormTest.h"
#include "window/TreeView.h"

#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace zorvo {
namespace {

using testing::ElementsAre;

class AllOfferings : public MainFormTest {
protected:
    AllOfferings()
    {
        platform().pages = engine;
        for (const char* sCode : {"AUD", "SablewoodLibrary"})
            fakes.files->addFile(std::string("C:\\Zorvo\\TreeData\\HTML\\") + sCode + ".htm", "page");
        fakes.files->addFile(
            "C:\\Zorvo\\TreeData\\TreeOrder.xml",
            R"(<ZorvoTree Version="3"><ProductTreeGroup TreeTitle="Tessora" TreeTitleShort="T"
 IconLarge="T.ico" IconSmall="T.ico"><Acronymn numProdClassID="301" Name="Audits">AUD</Acronymn>
    <Acronymn numProdClassID="302" Name="Not here">SablewoodLibrary</Acronymn>
    <Acronymn numProdClassID="303" Name="No page">NIX</Acronymn></ProductTreeGroup></ZorvoTree>)");
    }

    /// Presses the tool, and while the form is up runs `look` and then presses OK.
    template <typename Look>
    void open(Look look)
    {
        QTimer::singleShot(0, &form(), [this, look] {
            QWidget* offerings = nullptr;
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (window->objectName() == QStringLiteral("frmAllProducts") && window->isVisible())
                    offerings = window;
            }
            ASSERT_NE(offerings, nullptr);
            EXPECT_TRUE(QTest::qWaitFor([this] { return !engine->navigated.empty(); }, 20000));
            if (!engine->navigated.empty())
                look(*offerings);
            offerings->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        });
        form().findChild<QAction*>(QStringLiteral("ID_ALLBRENDLEOFFERINGS"))->trigger();
    }

    std::shared_ptr<RecordingPageEngine> engine = std::make_shared<RecordingPageEngine>();
};

TEST_F(AllOfferings, TheToolShowsWhatHasAPageWhetherItIsInstalledOrNot)
{
    shownForm();
    std::vector<std::string> keys;
    bool bModal = false;
    open([&](QWidget& offerings) {
        bModal = offerings.isModal();
        TreeNodes& nodes = offerings.findChild<TreeView*>(QStringLiteral("ssTreeZorvoBrendle"))->nodes();
        for (int n = 1; n <= nodes.count(); ++n)
            keys.push_back(nodes.item(n).key());
    });
    EXPECT_THAT(keys, ElementsAre("Tessora", "AUD`301", "SablewoodLibrary`302"));
    EXPECT_TRUE(bModal);
    EXPECT_THAT(engine->navigated, ElementsAre("file://C:\\Zorvo\\TreeData\\HTML\\AUD.htm"));
    EXPECT_EQ(engine->nOpen, 0) << "released with the form";
    EXPECT_TRUE(form().isEnabled());
}

TEST_F(AllOfferings, TheMainFormIsLockedUntilThePageIsThere)
{
    shownForm();
    bool bLocked = false;
    bool bFree = false;
    open([&](QWidget&) {
        bLocked = !form().isEnabled();
        engine->listener->pageFinished(engine->navigated.back());
        bFree = form().isEnabled();
    });
    EXPECT_TRUE(bLocked);
    EXPECT_TRUE(bFree);
}

TEST_F(AllOfferings, SearchDropsTheOfficeOfTheLastCreation)
{
    creationState().objWordApp = office->createWord();
    creationState().objExcelApp = office->createExcel();
    shownForm();
    open([](QWidget& offerings) { offerings.findChild<QPushButton*>(QStringLiteral("cmdSearch"))->click(); });
    EXPECT_EQ(creationState().objWordApp, nullptr);
    EXPECT_EQ(creationState().objExcelApp, nullptr);
}

} // namespace
} // namespace zorvo
