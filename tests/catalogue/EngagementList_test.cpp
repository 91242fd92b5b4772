#include "catalogue/EngagementList.h"

#include "base/RunTimeError.h"
#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "catalogue/EngagementHost.h"
#include "catalogue/basHTMLHelp.h"
#include "catalogue/forms/frmEngagementList.h"
#include "tests/catalogue/CatalogueTest.h"
#include "tests/fakes/RecordingHelpViewer.h"
#include "tests/fakes/RecordingMessages.h"
#include "window/MnemonicLabel.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

#include <algorithm>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kGeneral = "C:\\Zorvo\\TreeData\\Zorvo_Engagement.xml";

std::string engagement(const std::string& sText, const std::string& sPath, const std::string& sYear,
                       const std::string& sMore = {})
{
    return "<engagement path=\"" + sPath + "\" year=\"" + sYear + "\"" + sMore + "><name>" + sText +
           "</name><doc id=\"1\"/></engagement>";
}

std::string selection(const std::string& sPath, const std::string& sEngagement)
{
    return R"(<?xml version="1.0" encoding="utf-8" ?><selection path=")" + sPath + "\">" + sEngagement +
           "</selection>";
}

class EngagementListTest : public CatalogueTest {
protected:
    EngagementListTest()
    {
        platform().help = help;
        setTreeOrder(treeGroup("Audits", "<Acronymn>AUD</Acronymn><Acronymn>REV</Acronymn>"));
    }
    ~EngagementListTest() override
    {
        engagementHost() = EngagementHost();
        ReleaseHTMLHelp();
    }

    void install(const std::string& sProduct, const std::string& sYear)
    {
        addYear(HKEY_LOCAL_MACHINE, "Tessora", sProduct, sYear, "C:\\T\\" + sProduct + sYear + "\\");
        setTitle(HKEY_LOCAL_MACHINE, "Tessora", sProduct, sProduct);
    }
    void write(const std::string& sPath, const std::string& sEngagements)
    {
        fakes.files->addFile(sPath, "<root>" + sEngagements + "</root>");
    }
    const std::vector<std::string>& load()
    {
        list.LoadEngagementList();
        return list.texts();
    }

    EngagementList list;
    RecordingMessages messages;
    std::shared_ptr<RecordingHelpViewer> help = std::make_shared<RecordingHelpViewer>();
};

TEST_F(EngagementListTest, ListsTheGeneralDocumentsEngagementsByProductInDocumentOrder)
{
    install("AUD", "2006");
    install("REV", "2006");
    write(kGeneral, engagement("Review", "REV", "2006") + engagement("Two", "AUD", "2006") +
                        engagement("One", "AUD", "2006", " package=\"P\"") +
                        engagement("Old", "AUD", "2004"));
    EXPECT_THAT(load(), ElementsAre("Two", "One", "Review"));
    EXPECT_THAT(list.keys(), ElementsAre("AUD;2006", "AUD;2006;P", "REV;2006"));
}

TEST_F(EngagementListTest, AYearsOwnDocumentCountsAlone)
{
    install("AUD", "2006");
    write(kGeneral, engagement("General", "AUD", "2006"));
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", engagement("Own", "AUD", "2006"));
    EXPECT_THAT(load(), ElementsAre("Own"));
}

TEST_F(EngagementListTest, AYearsOwnDocumentWithoutAnEntryForItListsNothing)
{
    install("AUD", "2006");
    write(kGeneral, engagement("General", "AUD", "2006"));
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", engagement("Own", "AUD", "2005"));
    EXPECT_THAT(load(), IsEmpty());
}

TEST_F(EngagementListTest, AMalformedDocumentOfAYearsOwnListsNothing)
{
    install("AUD", "2006");
    write(kGeneral, engagement("General", "AUD", "2006"));
    fakes.files->addFile("C:\\T\\AUD2006\\Zorvo_Engagement.xml",
                         "<root>" + engagement("Own", "AUD", "2006") + "</roo>");
    EXPECT_THAT(load(), IsEmpty());
}

TEST_F(EngagementListTest, AMalformedGeneralDocumentLeavesTheYearsOwn)
{
    install("AUD", "2006");
    install("REV", "2006");
    fakes.files->addFile(kGeneral, "<root>" + engagement("General", "REV", "2006"));
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", engagement("Own", "AUD", "2006"));
    EXPECT_THAT(load(), ElementsAre("Own"));
}

TEST_F(EngagementListTest, AnEmptyPackageIsAPartOfTheKeyToo)
{
    install("AUD", "2006");
    const std::string sEmpty = engagement("Empty", "AUD", "2006", " package=\"\"");
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", engagement("None", "AUD", "2006") + sEmpty);
    load();
    EXPECT_THAT(list.keys(), ElementsAre("AUD;2006", "AUD;2006;"));
    EXPECT_EQ(list.selectionDocument(1), selection("C:\\T\\AUD2006\\", sEmpty));
}

TEST_F(EngagementListTest, WithoutAPackageTheFirstOfTheYearIsTakenAlsoWhenItHasOne)
{
    install("AUD", "2006");
    const std::string sFirst = engagement("One", "AUD", "2006", " package=\"P\"");
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", sFirst + engagement("Two", "AUD", "2006"));
    load();
    EXPECT_EQ(list.selectionDocument(1), selection("C:\\T\\AUD2006\\", sFirst));
}

TEST_F(EngagementListTest, OnlyTheFirstThreePartsOfAKeyCount)
{
    install("AUD", "2006");
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", engagement("Semi", "AUD", "2006", " package=\"P;Q\""));
    load();
    EXPECT_THAT(list.keys(), ElementsAre("AUD;2006;P;Q"));
    EXPECT_EQ(numberOfFailure([this] { list.selectionDocument(0); }), kObjectNotSet)
        << "no package is named P";
}

TEST_F(EngagementListTest, AFileThatHasGoneSinceLeadsToTheGeneralDocument)
{
    install("AUD", "2006");
    const std::string sGeneral = engagement("General", "AUD", "2006");
    write(kGeneral, sGeneral);
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", engagement("Own", "AUD", "2006"));
    load();
    fakes.files->remove("C:\\T\\AUD2006\\Zorvo_Engagement.xml");
    EXPECT_EQ(list.selectionDocument(0), selection("C:\\T\\AUD2006\\", sGeneral));
}

TEST_F(EngagementListTest, OnlyTheLatestYearsUnlessPriorOnesAreAskedFor)
{
    install("AUD", "2005");
    install("AUD", "2006");
    write(kGeneral, engagement("New", "AUD", "2006") + engagement("Old", "AUD", "2005"));
    EXPECT_THAT(load(), ElementsAre("New"));
    sessionState().bShowCurrentOnly = false;
    EXPECT_THAT(load(), testing::UnorderedElementsAre("New", "Old"));
}

TEST_F(EngagementListTest, OnlyTessoraProductsAreConsidered)
{
    addYear(HKEY_LOCAL_MACHINE, "Quillbook", "AUD", "2006", "C:\\T\\");
    setTitle(HKEY_LOCAL_MACHINE, "Quillbook", "AUD", "AUD");
    write(kGeneral, engagement("Book", "AUD", "2006"));
    EXPECT_THAT(load(), IsEmpty());
}

TEST_F(EngagementListTest, AnUninstalledYearUsesTheGeneralDocument)
{
    install("AUD", "2006");
    fakes.registry->addKey(HKEY_LOCAL_MACHINE, "Software\\Zorvo\\Tessora\\AUD\\2005");
    sessionState().bShowCurrentOnly = false;
    write(kGeneral, engagement("New", "AUD", "2006") + engagement("Gone", "AUD", "2005"));
    ASSERT_THAT(load(), testing::Contains("Gone"));
    const auto nRow = std::find(list.texts().begin(), list.texts().end(), "Gone") - list.texts().begin();
    EXPECT_EQ(list.selectionDocument(static_cast<std::size_t>(nRow)),
              selection("", engagement("Gone", "AUD", "2005")));
}

TEST_F(EngagementListTest, WithNoDocumentAtAllTheListIsEmpty)
{
    install("AUD", "2006");
    EXPECT_THAT(load(), IsEmpty());
}

TEST_F(EngagementListTest, TwoHivesWithTheSameYearGiveTwoEqualRows)
{
    install("AUD", "2006");
    addYear(HKEY_CURRENT_USER, "Tessora", "AUD", "2006", "C:\\T\\AUD2006\\");
    write(kGeneral, engagement("Same", "AUD", "2006"));
    EXPECT_THAT(load(), ElementsAre("Same", "Same"));
    EXPECT_THAT(list.keys(), ElementsAre("AUD;2006", "AUD;2006"));
}

TEST_F(EngagementListTest, ManyRowsOfOneProductAreAllThereWithTheirKeys)
{
    install("AUD", "2006");
    std::string sAll;
    for (int i = 0; i < 47; ++i)
        sAll +=
            engagement("Row " + std::to_string(i), "AUD", "2006", " package=\"" + std::to_string(i) + "\"");
    write(kGeneral, sAll);
    load();
    ASSERT_EQ(list.texts().size(), 47U);
    ASSERT_EQ(list.keys().size(), 47U);
    EXPECT_EQ(list.texts()[46], "Row 46");
    EXPECT_EQ(list.keys()[46], "AUD;2006;46");
}

TEST_F(EngagementListTest, TheTextIsTheFirstChildsPastTheLayoutOfTheFile)
{
    install("AUD", "2006");
    write(kGeneral,
          "<engagement path=\"AUD\" year=\"2006\">\r\n  <name>First</name><x>Second</x></engagement>"
          "<engagement path=\"AUD\" year=\"2006\">Plain<x>Second</x></engagement>");
    EXPECT_THAT(load(), ElementsAre("First", "Plain"));
}

TEST_F(EngagementListTest, ALoadingThatFailsKeepsTheRowsBeforeIt)
{
    install("AUD", "2006");
    write(kGeneral, engagement("First", "AUD", "2006") + "<engagement path=\"AUD\" year=\"2006\"/>" +
                        engagement("Third", "AUD", "2006"));
    EXPECT_EQ(numberOfFailure([this] { list.LoadEngagementList(); }), kObjectNotSet);
    EXPECT_THAT(list.texts(), ElementsAre("First"));
}

TEST_F(EngagementListTest, APackageThatBreaksTheExpressionFailsTheChoice)
{
    install("AUD", "2006");
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", engagement("One", "AUD", "2006", " package='5\"'"));
    load();
    EXPECT_NE(numberOfFailure([this] { list.selectionDocument(0); }), 0);
}

TEST_F(EngagementListTest, TheSelectionHoldsThePathUnescapedAndTheEngagementWhole)
{
    addYear(HKEY_LOCAL_MACHINE, "Tessora", "AUD", "2006", "C:\\A & B\\");
    setTitle(HKEY_LOCAL_MACHINE, "Tessora", "AUD", "AUD");
    write(kGeneral, engagement("One", "AUD", "2006"));
    load();
    EXPECT_EQ(list.selectionDocument(0), selection("C:\\A & B\\", engagement("One", "AUD", "2006")));
}

TEST_F(EngagementListTest, APackageOfAnOwnDocumentIsFoundByItsPackage)
{
    install("AUD", "2006");
    const std::string sSecond = engagement("Two", "AUD", "2006", " package=\"Q\"");
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml",
          engagement("One", "AUD", "2006", " package=\"P\"") + sSecond);
    load();
    EXPECT_EQ(list.selectionDocument(1), selection("C:\\T\\AUD2006\\", sSecond));
}

TEST_F(EngagementListTest, APackageOfTheGeneralDocumentGivesItsFirstMatch)
{
    install("AUD", "2006");
    const std::string sFirst = engagement("One", "AUD", "2006", " package=\"P\"");
    write(kGeneral, sFirst + engagement("Two", "AUD", "2006", " package=\"Q\""));
    load();
    EXPECT_EQ(list.selectionDocument(1), selection("C:\\T\\AUD2006\\", sFirst));
}

class EngagementForm : public EngagementListTest {
protected:
    EngagementForm()
    {
        install("AUD", "2005");
        install("AUD", "2006");
        write(kGeneral, engagement("New", "AUD", "2006") + engagement("Old", "AUD", "2005"));
    }

    QListWidget& rows() { return *form.findChild<QListWidget*>(QStringLiteral("List1")); }
    QPushButton& button(const char* name) { return *form.findChild<QPushButton*>(QString::fromLatin1(name)); }
    std::string result() const
    {
        std::string sSelection = "(left alone)";
        form.GetData(sSelection);
        return sSelection;
    }

    frmEngagementList form;
};

TEST_F(EngagementForm, OpensWithTheFirstRowSelectedSoThatOkWorksAtOnce)
{
    form.load();
    EXPECT_EQ(form.caption(), QStringLiteral("Zorvo Engagements"));
    EXPECT_EQ(rows().count(), 1);
    button("cmdOK").click();
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_EQ(result(), selection("C:\\T\\AUD2006\\", engagement("New", "AUD", "2006")));
}

TEST_F(EngagementForm, ItsControlsSayWhatTheyAreFor)
{
    form.load();
    EXPECT_EQ(form.findChild<MnemonicLabel*>(QStringLiteral("Label1"))->caption(),
              QStringLiteral("Please select the Zorvo's Tessora Engagement you wish to add:"));
    EXPECT_EQ(button("cmdOK").text(), QStringLiteral("OK"));
    EXPECT_EQ(button("cmdCancel").text(), QStringLiteral("Cancel"));
    EXPECT_EQ(button("cmdHelp").text(), QStringLiteral("&Help"));
}

TEST_F(EngagementForm, AnotherCompanyGetsItsIconAndWording)
{
    StoreCompanyID("ABC");
    fakes.files->addFile("C:\\Zorvo\\ABC\\Brendle.ico", pictureBytes(24));
    form.load();
    EXPECT_EQ(form.caption(), QStringLiteral("ABC Engagements"));
    EXPECT_THAT(form.windowIcon().availableSizes(), ElementsAre(QSize(24, 24)));
}

TEST_F(EngagementForm, ComesUpOnTopOfAllWindows)
{
    form.showModeless();
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return form.windowFlags().testFlag(Qt::WindowStaysOnTopHint); }, 20000));
}

TEST_F(EngagementForm, AFailureOfTheChoiceReachesTheCallerOfTheShow)
{
    form.load();
    fakes.files->remove(kGeneral);
    write("C:\\T\\AUD2006\\Zorvo_Engagement.xml", "");
    QTimer::singleShot(0, &form, [this] { button("cmdOK").click(); });
    EXPECT_EQ(numberOfFailure([this] { form.showModal(); }), kObjectNotSet);
    EXPECT_EQ(result(), "");
}

TEST_F(EngagementForm, ADoubleClickChooses)
{
    sessionState().bShowCurrentOnly = false;
    form.load();
    const int nOld = rows().item(0)->text() == QStringLiteral("Old") ? 0 : 1;
    rows().setCurrentRow(nOld);
    Q_EMIT rows().itemDoubleClicked(rows().item(nOld));
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_EQ(result(), selection("C:\\T\\AUD2005\\", engagement("Old", "AUD", "2005")));
}

TEST_F(EngagementForm, CancelLeavesTheResultEmpty)
{
    form.load();
    button("cmdCancel").click();
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_EQ(result(), "");
}

TEST_F(EngagementForm, AnEmptyListOkOnlyCloses)
{
    write(kGeneral, "");
    form.load();
    EXPECT_EQ(rows().count(), 0);
    button("cmdOK").click();
    EXPECT_FALSE(form.isFormLoaded());
    EXPECT_EQ(result(), "");
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(EngagementForm, ARowThatOnlyTheFocusMadeCurrentIsntChosen)
{
    form.load();
    button("btnView").click();
    rows().selectionModel()->setCurrentIndex(rows().model()->index(0, 0), QItemSelectionModel::NoUpdate);
    button("cmdOK").click();
    EXPECT_EQ(result(), "");
}

TEST_F(EngagementForm, AFailureOfTheLoadingLeavesAShortList)
{
    write(kGeneral, engagement("First", "AUD", "2006") + "<engagement path=\"AUD\" year=\"2006\"/>");
    form.load();
    EXPECT_EQ(rows().count(), 1);
    EXPECT_EQ(rows().currentRow(), 0);
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(EngagementForm, TheViewButtonTellsWhatAClickWouldShow)
{
    form.load();
    EXPECT_EQ(button("btnView").text(), QStringLiteral("View My Current and Prior Releases"));
    form.unload();
    sessionState().bShowCurrentOnly = false;
    form.load();
    EXPECT_EQ(button("btnView").text(), QStringLiteral("View My Current Releases Only"));
}

TEST_F(EngagementForm, TheToggleSavesMovesTheTreeAndFillsTheListAnew)
{
    std::vector<std::string> calls;
    const auto state = [] { return std::string(sessionState().bShowCurrentOnly ? " current" : " all"); };
    engagementHost().saveSettings = [&] { calls.push_back("save" + state()); };
    engagementHost().reloadTree = [&] { calls.push_back("tree" + state()); };
    form.load();
    button("btnView").click();
    EXPECT_EQ(button("btnView").text(), QStringLiteral("View My Current Releases"));
    EXPECT_EQ(rows().count(), 2);
    EXPECT_TRUE(rows().selectedItems().isEmpty());
    button("btnView").click();
    EXPECT_EQ(button("btnView").text(), QStringLiteral("View My Current and Prior Releases"));
    EXPECT_EQ(rows().count(), 1);
    EXPECT_THAT(calls, ElementsAre("save all", "tree all", "save current", "tree current"));
}

TEST_F(EngagementForm, AFailureOfTheToggleIsToldWithTheRowsAndTheCaptionThatThereAreByThen)
{
    form.load();
    write(kGeneral, engagement("First", "AUD", "2005") + "<engagement path=\"AUD\" year=\"2005\"/>");
    button("btnView").click();
    ASSERT_EQ(messages.reports.size(), 1U);
    EXPECT_EQ(messages.reports[0].nNumber, kObjectNotSet);
    EXPECT_EQ(rows().count(), 1);
    EXPECT_EQ(button("btnView").text(), QStringLiteral("View My Current Releases"));
    EXPECT_FALSE(sessionState().bShowCurrentOnly);
}

TEST_F(EngagementForm, ANewLoadingForgetsTheResult)
{
    form.load();
    button("cmdOK").click();
    form.load();
    EXPECT_EQ(result(), "");
}

TEST_F(EngagementForm, HelpShowsTheContents)
{
    form.load();
    button("cmdHelp").click();
    ASSERT_EQ(help->shown.size(), 1U);
    EXPECT_EQ(help->shown[0].command, HelpViewer::kDisplayContents);
}

} // namespace
} // namespace zorvo
