#include "catalogue/forms/frmAllProducts.h"

#include "branding/xmlCaptionLoaderManager.h"
#include "catalogue/OfferingsHost.h"
#include "catalogue/basHTMLHelp.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/fakes/RecordingMessages.h"
#include "tests/fakes/RecordingPageEngine.h"
#include "window/MainFormGate.h"
#include "window/PageView.h"
#include "window/TreeView.h"
#include "window/clsMousePointer.h"

#include <QCheckBox>
#include <QFrame>
#include <QKeyEvent>
#include <QPushButton>
#include <QTest>
#include <gmock/gmock.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kOffline = "file://C:\\Zorvo\\TreeData\\HTML\\";
constexpr const char* kNotConnected = "View latest information on the web (not connected)";
constexpr const char* kConnected = "View latest information on the web (connected)";

std::string offline(const std::string& sCode)
{
    return kOffline + sCode + ".htm";
}

std::string online(const std::string& sClassID)
{
    return "https://www.zorvo.example/sitecomposer/Index.cfm?numProdClassID=" + sClassID +
           "&txtFuse=dspShellProductDetail&numSiteID=2&numTaxonomyTypeID=29&numTaxonomyID=232";
}

class OfferingsForm : public CatalogueTest {
protected:
    OfferingsForm()
    {
        platform().pages = engine;
        platform().help = help;
        XmlDocument captions;
        captions.loadXML("<Captions><Web><OnTheWeb2>https://www.zorvo.example/</OnTheWeb2></Web></Captions>");
        captionState().setDocument(std::move(captions));
        offeringsHost().loadTree = [this](TreeNodes& nodes) {
            nodes.add("", "Tessora", "Tessora", -1, 1);
            for (const std::string& sKey : keys)
                nodes.add("Tessora", sKey, sKey, -1, 1);
        };
    }
    ~OfferingsForm() override
    {
        goMousePointer().ClearMousePointer();
        offeringsHost() = OfferingsHost();
        captionState() = CaptionState();
        ReleaseHTMLHelp();
    }

    /// Loads and shows; the first page is asked for.
    frmAllProducts& open()
    {
        form = std::make_unique<frmAllProducts>();
        form->showModeless();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !engine->navigated.empty(); }, 2000));
        return *form;
    }
    /// The same, with the first page there.
    void openToFirstPage()
    {
        open();
        finish(engine->navigated.back());
        forget();
    }
    void forget()
    {
        engine->navigated.clear();
        engine->told.clear();
        fakes.launcher->opened.clear();
    }
    void finish(const std::string& sAddress) const { engine->listener->pageFinished(sAddress); }
    void select(const std::string& sKey)
    {
        TreeNodes& nodes = tree().nodes();
        nodes.setSelected(*nodes.find(sKey), true);
    }
    TreeView& tree() const { return *form->findChild<TreeView*>(QStringLiteral("ssTreeZorvoBrendle")); }
    QWidget& page() const { return *form->findChild<QWidget*>(QStringLiteral("webZorvoBrendle")); }
    QCheckBox& check(const char* sName) const
    {
        return *form->findChild<QCheckBox*>(QString::fromLatin1(sName));
    }
    QPushButton& button(const char* sName) const
    {
        return *form->findChild<QPushButton*>(QString::fromLatin1(sName));
    }
    std::vector<std::string> inBrowser() const
    {
        std::vector<std::string> targets;
        for (const auto& opened : fakes.launcher->opened)
            targets.push_back(opened.sTarget);
        return targets;
    }

    std::vector<std::string> keys = {"AUD`301", "REV`302", "CON`123",  "ZER`0",
                                     "NEG`-5",  "TXT`abc", "BIG`40000"};
    std::shared_ptr<RecordingPageEngine> engine = std::make_shared<RecordingPageEngine>();
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
    RecordingMessages messages;
    std::unique_ptr<frmAllProducts> form;
};

TEST_F(OfferingsForm, OpensAtItsSizeWithBothBoxesUnchecked)
{
    open();
    EXPECT_EQ(form->size(), QSize(970, 590).boundedTo(form->screen()->availableSize()));
    EXPECT_EQ(form->caption(), QStringLiteral("Zorvo's Brendle Offerings"));
    EXPECT_FALSE(check("chkConnectToWeb").isChecked());
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kNotConnected);
    EXPECT_FALSE(check("chkUseBrowser").isChecked());
    EXPECT_FALSE(check("chkUseBrowser").isEnabled());
    EXPECT_EQ(check("chkUseBrowser").text(), QStringLiteral("Connect to the web using my browser"));
    EXPECT_EQ(button("cmdSearch").text(), QStringLiteral("&Search"));
    EXPECT_EQ(button("cmdSearch").toolTip(),
              QStringLiteral("Click here to view and/or search for documents in a library"));
    EXPECT_EQ(button("cmdOK").text(), QStringLiteral("OK"));
    EXPECT_EQ(button("cmdHelp").text(), QStringLiteral("&Help"));
}

TEST_F(OfferingsForm, TheEngineStartsAheadOfTheTree)
{
    int nOpenedByThen = -1;
    offeringsHost().loadTree = [&](TreeNodes& nodes) {
        nOpenedByThen = engine->nOpened;
        nodes.add("", "A`1", "A", -1, 1);
    };
    open();
    EXPECT_EQ(nOpenedByThen, 1);
}

TEST_F(OfferingsForm, TheFirstOfferingsPageShowsAtActivationAndOnlyThen)
{
    form = std::make_unique<frmAllProducts>();
    form->load();
    EXPECT_THAT(engine->navigated, IsEmpty());
    form->showModeless();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !engine->navigated.empty(); }, 2000));
    EXPECT_THAT(engine->navigated, ElementsAre(offline("AUD")));
    EXPECT_EQ(goMousePointer().MousePointer(), 13);
}

TEST_F(OfferingsForm, ATreeOfGroupsAloneShowsTheFirstOnesPage)
{
    keys.clear();
    open();
    EXPECT_THAT(engine->navigated, ElementsAre(offline("Tessora")));
}

TEST_F(OfferingsForm, AnEmptyTreeShowsNoPage)
{
    offeringsHost().loadTree = [](TreeNodes&) {};
    form = std::make_unique<frmAllProducts>();
    form->showModeless();
    QTest::qWait(500);
    EXPECT_THAT(engine->navigated, IsEmpty());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(OfferingsForm, AFinishedPageClearsThePointer)
{
    open();
    finish(offline("AUD"));
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_FALSE(check("chkConnectToWeb").isChecked());
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kNotConnected);
}

TEST_F(OfferingsForm, ASelectedNodeShowsItsPage)
{
    openToFirstPage();
    select("REV`302");
    EXPECT_THAT(engine->navigated, ElementsAre(offline("REV")));
    EXPECT_EQ(form->currentURL(), offline("REV"));
    EXPECT_EQ(goMousePointer().MousePointer(), 13);
}

TEST_F(OfferingsForm, OneNodeAtMostIsSelected)
{
    openToFirstPage();
    select("REV`302");
    EXPECT_EQ(tree().nodes().selectedNodes().size(), 1U);
}

TEST_F(OfferingsForm, CheckedTheWebPageShowsAndTheSecondBoxIsEnabled)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    EXPECT_TRUE(check("chkUseBrowser").isEnabled());
    EXPECT_THAT(engine->navigated, ElementsAre(online("301")));
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kNotConnected) << "until the page is there";
    finish(online("301"));
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kConnected);
    EXPECT_THAT(inBrowser(), IsEmpty());
}

TEST_F(OfferingsForm, UncheckedTheOfflinePageShowsAgain)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    finish(online("301"));
    forget();
    check("chkConnectToWeb").click();
    EXPECT_FALSE(check("chkUseBrowser").isEnabled());
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kNotConnected);
    EXPECT_THAT(engine->navigated, ElementsAre(offline("AUD")));
    finish(offline("AUD"));
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kNotConnected);
}

TEST_F(OfferingsForm, AnOfferingWithoutAUsableClassNumberShowsItsOfflinePageWhateverIsChecked)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    check("chkUseBrowser").click();
    finish(online("301"));
    forget();
    for (const char* sKey : {"ZER`0", "NEG`-5", "TXT`abc", "Tessora"})
        select(sKey);
    EXPECT_THAT(engine->navigated,
                ElementsAre(offline("ZER"), offline("NEG"), offline("TXT"), offline("Tessora")));
    EXPECT_THAT(inBrowser(), IsEmpty()) << "the browser isn't involved until the page is there";
}

TEST_F(OfferingsForm, ConShowsCncOfflineAndItsClassOnline)
{
    openToFirstPage();
    select("CON`123");
    EXPECT_THAT(engine->navigated, ElementsAre(offline("CNC")));
    finish(offline("CNC"));
    check("chkConnectToWeb").click();
    EXPECT_EQ(engine->navigated.back(), online("123"));
}

TEST_F(OfferingsForm, AClassNumberPastSixteenBitsFailsTheEvent)
{
    openToFirstPage();
    select("BIG`40000");
    EXPECT_THAT(engine->navigated, IsEmpty());
    ASSERT_EQ(messages.reports.size(), 1U);
    EXPECT_EQ(messages.reports[0].nNumber, 6);
}

TEST_F(OfferingsForm, AFailureThatEndsTheShowLeavesNoBusyPointer)
{
    keys = {"BIG`40000"};
    const int nNumber = numberOfFailure([] { ShowAllOfferings(); });
    EXPECT_EQ(nNumber, 6);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(OfferingsForm, WithTheBrowserCheckedEachPageOpensThereToo)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    finish(online("301"));
    forget();
    check("chkUseBrowser").click();
    EXPECT_THAT(inBrowser(), ElementsAre(online("301")));
    ASSERT_EQ(fakes.launcher->opened.size(), 1U);
    EXPECT_EQ(fakes.launcher->opened[0].sDirectory, "C:\\");
    forget();
    select("REV`302");
    EXPECT_THAT(engine->navigated, ElementsAre(online("302")));
    EXPECT_THAT(inBrowser(), ElementsAre(online("302")));
    finish(online("302"));
    EXPECT_THAT(inBrowser(), ElementsAre(online("302"), online("302"))) << "and once more when it is there";
}

TEST_F(OfferingsForm, UncheckingTheBrowserOpensNothing)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    check("chkUseBrowser").click();
    forget();
    check("chkUseBrowser").click();
    EXPECT_THAT(inBrowser(), IsEmpty());
}

TEST_F(OfferingsForm, ADisabledBrowserBoxOpensNothingThoughItStaysChecked)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    check("chkUseBrowser").click();
    finish(online("301"));
    check("chkConnectToWeb").click();
    finish(offline("AUD"));
    forget();
    EXPECT_TRUE(check("chkUseBrowser").isChecked());
    EXPECT_FALSE(check("chkUseBrowser").isEnabled());
    select("REV`302");
    finish(offline("REV"));
    EXPECT_THAT(inBrowser(), IsEmpty());
}

TEST_F(OfferingsForm, AFollowedLinkChecksTheBoxAndFromThenOnWebPagesShow)
{
    openToFirstPage();
    finish("https://www.zorvo.example/news");
    EXPECT_TRUE(check("chkConnectToWeb").isChecked());
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kConnected);
    EXPECT_TRUE(check("chkUseBrowser").isEnabled());
    EXPECT_THAT(engine->navigated, IsEmpty()) << "the page that the link led to stays";
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    select("REV`302");
    EXPECT_THAT(engine->navigated, ElementsAre(online("302")));
}

TEST_F(OfferingsForm, AFollowedLinkOpensTheAddressOfTheNodeInTheBrowserIfThatIsChecked)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    finish(online("301"));
    check("chkUseBrowser").click();
    forget();
    finish("https://www.zorvo.example/news");
    EXPECT_THAT(inBrowser(), ElementsAre(online("301")));
}

TEST_F(OfferingsForm, AFailedNavigationIsToldInItsOddQuotes)
{
    openToFirstPage();
    check("chkConnectToWeb").click();
    engine->listener->pageFailed(online("301"));
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].sPrompt,
              "Can't connect to '\r\n\r\n" + online("301") +
                  "\"\r\n\r\nEnsure you have a connection to the internet and try again later.");
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle");
    EXPECT_EQ(messages.boxes[0].nStyle, 0);
    EXPECT_TRUE(check("chkConnectToWeb").isChecked());
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kNotConnected);
    EXPECT_TRUE(check("chkUseBrowser").isEnabled());
    EXPECT_EQ(goMousePointer().MousePointer(), 0) << "no page will come";
}

TEST_F(OfferingsForm, AFailedLinkLeavesTheBoxesAsTheyAre)
{
    openToFirstPage();
    engine->listener->pageFailed("https://nowhere.example/");
    EXPECT_EQ(messages.boxes.size(), 1U);
    EXPECT_FALSE(check("chkConnectToWeb").isChecked());
    EXPECT_FALSE(check("chkUseBrowser").isEnabled());
}

TEST_F(OfferingsForm, BeforeItIsActiveAFinishedPageOnlyClearsThePointerAndAFailureIsSilent)
{
    form = std::make_unique<frmAllProducts>();
    form->load();
    goMousePointer().setMousePointer(13);
    finish("https://www.zorvo.example/");
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    finish("https://www.zorvo.example/");
    EXPECT_FALSE(check("chkConnectToWeb").isChecked());
    engine->listener->pageFailed("https://www.zorvo.example/");
    EXPECT_THAT(messages.boxes, IsEmpty());
    check("chkConnectToWeb").click();
    EXPECT_THAT(engine->navigated, IsEmpty());
}

TEST_F(OfferingsForm, ALoadingThatEndsWithNoPageClearsThePointer)
{
    open();
    engine->listener->pageStopped();
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(OfferingsForm, AnotherActivationShowsTheSelectedNodesPageAgain)
{
    openToFirstPage();
    select("REV`302");
    finish(offline("REV"));
    forget();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.isActiveWindow(); }, 2000));
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !engine->navigated.empty(); }, 2000));
    EXPECT_THAT(engine->navigated, ElementsAre(offline("REV")));
}

TEST_F(OfferingsForm, TheMessageOfAFailureIsNoOtherWindow)
{
    openToFirstPage();
    QWidget box; // stands for the real one
    messages.whileBoxIsUp = [&] {
        box.show();
        box.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return box.isActiveWindow(); }, 2000));
    };
    engine->listener->pageFailed(offline("AUD"));
    box.hide();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->isActiveWindow(); }, 2000));
    EXPECT_THAT(engine->navigated, IsEmpty()) << "it would fail again, and again";
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.isActiveWindow(); }, 2000));
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return engine->navigated.size() == 1; }, 2000));
}

TEST_F(OfferingsForm, SearchOpensTheReportMaximisedAndLetsGoOfTheOffice)
{
    int nReleased = 0;
    offeringsHost().releaseOffice = [&] { ++nReleased; };
    openToFirstPage();
    button("cmdSearch").click();
    ASSERT_EQ(fakes.launcher->opened.size(), 1U);
    const auto& opened = fakes.launcher->opened[0];
    EXPECT_EQ(opened.sTarget, "C:\\Zorvo\\TreeData\\Zorvo LIBRARY TEMPLATE REPORT.HTM");
    EXPECT_EQ(opened.sParameters, "0");
    EXPECT_EQ(opened.sDirectory, "C:\\Zorvo\\TreeData\\");
    EXPECT_EQ(opened.show, Launcher::Show::maximised);
    EXPECT_EQ(nReleased, 1);
}

TEST_F(OfferingsForm, SearchDoesntLookAtWhatTheDesktopAnswers)
{
    fakes.launcher->nOpenResult = 2;
    openToFirstPage();
    button("cmdSearch").click();
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(OfferingsForm, OkUnloadsAndClearsThePointer)
{
    open();
    EXPECT_EQ(goMousePointer().MousePointer(), 13);
    button("cmdOK").click();
    EXPECT_FALSE(form->isFormLoaded());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(OfferingsForm, EscapeAndEnterDoAsOkDoes)
{
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        engine->navigated.clear();
        open();
        tree().setFocus();
        QTest::keyClick(&tree(), key);
        EXPECT_FALSE(form->isFormLoaded()) << key;
    }
}

TEST_F(OfferingsForm, TheEngineEndsWithTheForm)
{
    open();
    EXPECT_EQ(engine->nOpen, 1);
    form.reset();
    EXPECT_EQ(engine->nOpen, 0);
}

TEST_F(OfferingsForm, HelpShowsTheContents)
{
    openToFirstPage();
    button("cmdHelp").click();
    ASSERT_EQ(help->shown.size(), 1U);
    EXPECT_EQ(help->shown[0].command, HelpViewer::kDisplayContents);
}

/// Counts the keys that reach a control, but for Ctrl and Shift themselves.
class KeyCounter : public QObject {
public:
    int nKeys = 0;

private:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() < Qt::Key_Escape)
            ++nKeys;
        return false;
    }
};

TEST_F(OfferingsForm, CtrlVIsSwallowedWhileTheTreeHasTheFocusAndOnlyThen)
{
    openToFirstPage();
    KeyCounter seen;
    tree().installEventFilter(&seen);
    button("cmdOK").installEventFilter(&seen);
    tree().setFocus();
    ASSERT_TRUE(tree().hasFocus());
    QTest::keyClick(&tree(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(seen.nKeys, 0);
    QTest::keyClick(&tree(), Qt::Key_V);
    QTest::keyClick(&tree(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&tree(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(seen.nKeys, 3);
    button("cmdOK").setFocus();
    QTest::keyClick(&button("cmdOK"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(seen.nKeys, 4);
}

TEST_F(OfferingsForm, NoNodeCanBeChangedOrMoved)
{
    openToFirstPage();
    EXPECT_EQ(tree().editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_EQ(tree().dragDropMode(), QAbstractItemView::NoDragDrop);
    const QModelIndex first = tree().model()->index(0, 0);
    EXPECT_FALSE(first.flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(first.flags().testFlag(Qt::ItemIsDragEnabled));
}

struct Places {
    QSize tree;
    QSize page;
    int nSearchFromBottom = 0;
    int nHelpFromBottom = 0;
    int nOkFromRight = 0;
    QPoint checkFromBottomLeft;
};

class OfferingsResize : public OfferingsForm {
protected:
    Places places() const
    {
        const auto at = [this](const QWidget& control) { return control.mapTo(form.get(), QPoint()); };
        return {tree().size(),
                page().size(),
                form->height() - at(button("cmdSearch")).y(),
                form->height() - at(button("cmdHelp")).y(),
                form->width() - at(button("cmdOK")).x(),
                {at(check("chkConnectToWeb")).x(), form->height() - at(check("chkConnectToWeb")).y()}};
    }
    void resize(int nWidth, int nHeight)
    {
        form->resize(nWidth, nHeight);
        QCoreApplication::processEvents();
    }
};

TEST_F(OfferingsResize, TreeAndPageTakeUpAllChangeOfSize)
{
    openToFirstPage();
    resize(780, 500);
    const Places before = places();
    resize(880, 560);
    const Places after = places();
    EXPECT_EQ(after.tree.height() - before.tree.height(), 60);
    EXPECT_EQ(after.page.height() - before.page.height(), 60);
    EXPECT_EQ(after.tree.width() + after.page.width() - before.tree.width() - before.page.width(), 100);
    EXPECT_GT(after.tree.width(), before.tree.width());
    EXPECT_GT(after.page.width(), before.page.width());
}

TEST_F(OfferingsResize, ButtonsKeepTheirDistanceFromTheBottomAndTheChecksStayBesideThem)
{
    openToFirstPage();
    resize(780, 500);
    const Places before = places();
    for (const QSize size : {QSize(900, 640), QSize(700, 400), QSize(616, 334)}) {
        resize(size.width(), size.height());
        const Places after = places();
        EXPECT_EQ(after.nSearchFromBottom, before.nSearchFromBottom);
        EXPECT_EQ(after.nHelpFromBottom, before.nHelpFromBottom);
        EXPECT_EQ(after.nOkFromRight, before.nOkFromRight);
        EXPECT_EQ(after.checkFromBottomLeft, before.checkFromBottomLeft);
    }
}

TEST_F(OfferingsResize, BelowTheLimitsNothingMoves)
{
    openToFirstPage();
    resize(780, 500);
    const Places before = places();
    const QPoint search = button("cmdSearch").mapTo(form.get(), QPoint());
    // 9235 and 5000 twips are 615 and 333 pixels.
    for (const QSize size : {QSize(614, 500), QSize(780, 332), QSize(400, 300)}) {
        resize(size.width(), size.height());
        EXPECT_EQ(places().tree, before.tree);
        EXPECT_EQ(places().page, before.page);
        EXPECT_EQ(button("cmdSearch").mapTo(form.get(), QPoint()), search);
    }
    resize(615, 333);
    EXPECT_NE(places().tree, before.tree);
}

TEST_F(OfferingsResize, ThePageIsToldItsSize)
{
    openToFirstPage();
    resize(880, 560);
    const QSize size = static_cast<QFrame&>(page()).contentsRect().size();
    EXPECT_THAT(engine->told, testing::Contains("resize " + std::to_string(size.width()) + " " +
                                                std::to_string(size.height())));
}

} // namespace
} // namespace zorvo
