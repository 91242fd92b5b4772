#include "catalogue/forms/frmAllProducts.h"

#include "branding/companyIdentity.h"
#include "tests/catalogue/OfferingsForm.h"
#include "window/MainFormGate.h"
#include "window/PageView.h"

#include <QKeyEvent>
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

TEST_F(OfferingsForm, AnotherCompanyGetsItsIconAndWording)
{
    StoreCompanyID("ABC");
    fakes.files->addFile("C:\\Zorvo\\ABC\\Brendle.ico", pictureBytes(24));
    open();
    EXPECT_EQ(form->caption(), QStringLiteral("ABC's Brendle Offerings"));
    EXPECT_THAT(form->windowIcon().availableSizes(), ElementsAre(QSize(24, 24)));
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
    ASSERT_TRUE(QTest::qWaitFor([this] { return !engine->navigated.empty(); }, 20000));
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
    select("ZER`0");
    finish(offline("ZER"));
    EXPECT_THAT(inBrowser(), ElementsAre(offline("ZER"))) << "whatever page it is that is there";
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

TEST_F(OfferingsForm, AFollowedLinkWithinTheFolderCountsAsOneToTheWebToo)
{
    openToFirstPage();
    finish(offline("REV"));
    EXPECT_TRUE(check("chkConnectToWeb").isChecked());
    EXPECT_EQ(check("chkConnectToWeb").text().toStdString(), kConnected);
    EXPECT_TRUE(check("chkUseBrowser").isEnabled());
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
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.isActiveWindow(); }, 20000));
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !engine->navigated.empty(); }, 20000));
    EXPECT_THAT(engine->navigated, ElementsAre(offline("REV")));
}

TEST_F(OfferingsForm, TheMessageOfAFailureIsNoOtherWindow)
{
    openToFirstPage();
    QWidget box; // stands for the real one
    messages.whileBoxIsUp = [&] {
        box.show();
        box.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return box.isActiveWindow(); }, 20000));
    };
    engine->listener->pageFailed(offline("AUD"));
    box.hide();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return form->isActiveWindow(); }, 20000));
    EXPECT_THAT(engine->navigated, IsEmpty()) << "it would fail again, and again";
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.isActiveWindow(); }, 20000));
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return engine->navigated.size() == 1; }, 20000));
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
    EXPECT_EQ(opened.ownerWindow, static_cast<std::uintptr_t>(form->winId()));
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

} // namespace
} // namespace zorvo
