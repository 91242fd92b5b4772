#include "creation/officeApplications.h"

#include "creation/creationState.h"
#include "creation/invokedFlag.h"
#include "creation/openDocuments.h"
#include "platform/Office.h"
#include "tests/creation/CreationTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class OfficeApplications : public CreationTest {};

/// An Excel that comes up with a workbook, as many do.
class OfficeWithWorkbook : public RecordingOffice {
public:
    std::shared_ptr<ExcelApplication> createExcel() override
    {
        auto excel = RecordingOffice::createExcel();
        excel->workbooksAdd("");
        return excel;
    }
};

TEST_F(OfficeApplications, GetWordApplicationGivesBackTheCurrentOneUntouched)
{
    const auto current = office->createWord();
    office->clearCalls();
    EXPECT_EQ(GetWordApplication(current), current);
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(OfficeApplications, GetExcelApplicationGivesBackTheCurrentOneUntouched)
{
    const auto current = office->createExcel();
    office->clearCalls();
    EXPECT_EQ(GetExcelApplication(current), current);
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(OfficeApplications, GetWordApplicationIsEmptyOnAMachineWithoutWord)
{
    office->bWordInstalled = false;
    EXPECT_EQ(GetWordApplication(nullptr), nullptr);
    EXPECT_THAT(office->calls(), ElementsAre("Create Word.Application", "Create Word.Application"));
}

TEST_F(OfficeApplications, VersionsAreTheNumberThatTheTextBeginsWith)
{
    office->setVersions("10.5 beta", "12.0");
    EXPECT_EQ(GetWordVersion(), 10.5);
    EXPECT_EQ(GetExcelVersion(), 12);
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(OfficeApplications, VersionsAreZeroWithoutAnAnswer)
{
    office->fail("Word.Version", kPermissionDenied);
    EXPECT_EQ(GetWordVersion(), 0);
    office->bExcelInstalled = false;
    EXPECT_EQ(GetExcelVersion(), 0);
}

TEST_F(OfficeApplications, TheProbeOfWordIsQuitAlsoWhenItsVersionCannotBeRead)
{
    office->fail("Word.Version", kPermissionDenied);
    GetWordVersion();
    EXPECT_THAT(office->calls(), ElementsAre("Create Word.Application", "Word.Version", "Word.Quit"));
}

TEST_F(OfficeApplications, TheProbeOfExcelIsNotQuit)
{
    GetExcelVersion();
    EXPECT_THAT(office->calls(), ElementsAre("Create Excel.Application", "Excel.Version"));
}

TEST_F(OfficeApplications, TheProbeOfExcelLosesItsWorkbookUnsavedWhateverFails)
{
    const auto withWorkbook = std::make_shared<OfficeWithWorkbook>();
    platform().office = withWorkbook;
    GetExcelVersion();
    EXPECT_THAT(withWorkbook->calls(), ElementsAre("Create Excel.Application", "Excel.Workbooks.Add",
                                                   "Excel.Version", "Excel.ActiveWorkbook.Close False"));
    withWorkbook->clearCalls();
    withWorkbook->fail("Excel.Version", kPermissionDenied);
    withWorkbook->fail("Excel.ActiveWorkbook.Close", kPermissionDenied);
    EXPECT_EQ(GetExcelVersion(), 0);
    EXPECT_THAT(withWorkbook->calls(), ElementsAre("Create Excel.Application", "Excel.Workbooks.Add",
                                                   "Excel.Version", "Excel.ActiveWorkbook.Close False"));
    EXPECT_EQ(withWorkbook->applicationsAlive(), 0);
}

TEST_F(OfficeApplications, ShowExcelSkipsWhatFails)
{
    const auto excel = office->createExcel();
    office->clearCalls();
    office->fail("Excel.EnableEvents", kPermissionDenied);
    office->fail("Excel.Visible", kPermissionDenied);
    ShowExcel(*excel); // without a workbook the view and the pane fail too
    EXPECT_THAT(office->calls(),
                ElementsAre("Excel.EnableEvents = True", "Excel.ActiveWindow.View = 1",
                            "Excel.Visible = True", "Excel.ActiveWindow.ActivePane.Activate"));
}

TEST_F(OfficeApplications, ActivateAddInGoesOnBehindAnAddInThatCannotBeRead)
{
    office->wordAddIns() = {{"broken", false}, {"qbk2.xla", false}};
    const auto word = office->createWord();
    office->fail("Word.AddIns(1)", kPermissionDenied);
    ActivateAddIn(*word, "QBK2.xla");
    EXPECT_TRUE(office->wordAddIns()[1].bInstalled);
}

TEST_F(OfficeApplications, OpeningSkipsWhatFailsAndShowsTheApplication)
{
    OpenWordDocument("C:\\Out\\Gone.doc");
    EXPECT_EQ(office->calls().back(), "Word.ActiveWindow.ActivePane.Activate");
    OpenExcelDocument("C:\\Out\\Gone.xls");
    EXPECT_EQ(office->calls().back(), "Excel.Workbooks.Open \"C:\\Out\\Gone.xls\"");
    EXPECT_EQ(creationState().skippedFailures.size(), 2U);
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(OfficeApplications, OnlyTheProbeOfWordServesPendingEvents)
{
    watchPendingEvents();
    GetExcelVersion();
    EXPECT_EQ(nCallsAtPendingEvents, -1);
    GetWordVersion();
    EXPECT_EQ(nCallsAtPendingEvents, 5);
}

TEST_F(OfficeApplications, ActivateAddInSwitchesOnTheFirstOfThatNameWhateverItsCase)
{
    office->wordAddIns() = {{"other", false}, {"QBK2.XLA", false}, {"qbk2.xla", false}};
    const auto word = office->createWord();
    office->clearCalls();
    ActivateAddIn(*word, "qbk2.xla");
    EXPECT_THAT(office->calls(), ElementsAre("Word.AddIns.Count", "Word.AddIns(1)", "Word.AddIns(2)",
                                             "Word.AddIns(2).Installed = True"));
}

TEST_F(OfficeApplications, ActivateAddInLeavesAnInstalledOneUntouched)
{
    office->wordAddIns() = {{"qbk2.xla", true}};
    const auto word = office->createWord();
    office->clearCalls();
    ActivateAddIn(*word, "QBK2.xla");
    EXPECT_THAT(office->calls(), ElementsAre("Word.AddIns.Count", "Word.AddIns(1)"));
}

TEST_F(OfficeApplications, ActivateAddInDoesNothingWithoutAMatch)
{
    office->wordAddIns() = {{"other", false}};
    const auto word = office->createWord();
    ActivateAddIn(*word, "QBK2.xla");
    EXPECT_FALSE(office->wordAddIns()[0].bInstalled);
}

TEST_F(OfficeApplications, ActivateAddInLeavesTheApplicationUsableWhenItFails)
{
    office->fail("Word.AddIns.Count", kPermissionDenied);
    EXPECT_NE(GetWordApplication(nullptr), nullptr);
    EXPECT_THAT(creationState().skippedFailures, IsEmpty());
}

TEST_F(OfficeApplications, ShowWordSkipsWhatFails)
{
    const auto word = office->createWord();
    office->clearCalls();
    office->fail("Word.Visible", kPermissionDenied);
    ShowWord(*word);
    EXPECT_THAT(office->calls(), ElementsAre("Word.Visible = True", "Word.ActiveWindow.ActivePane.Activate"));
}

TEST_F(OfficeApplications, ShowExcelSwitchesEventsOnAndTakesTheNormalView)
{
    const auto excel = office->createExcel();
    office->clearCalls();
    ShowExcel(*excel);
    EXPECT_THAT(office->calls(),
                ElementsAre("Excel.EnableEvents = True", "Excel.ActiveWindow.View = 1",
                            "Excel.Visible = True", "Excel.ActiveWindow.ActivePane.Activate"));
}

TEST_F(OfficeApplications, OpenWordDocumentRefreshesItsFieldsAndShowsIt)
{
    fakes.files->addFile("C:\\Out\\Letter.doc");
    office->provideAddIn("ZorvoTSR.Connect");
    OpenWordDocument("C:\\Out\\Letter.doc");
    EXPECT_THAT(
        office->calls(),
        ElementsAre("Create Word.Application", "Word.Version", "Word.Quit", "Create Word.Application",
                    "Word.AddIns.Count", "Word.Visible = True", "Word.Documents.Open \"C:\\Out\\Letter.doc\"",
                    "Word.COMAddIns(\"ZorvoTSR.Connect\").Object", "ZorvoTSR.Connect.SetCompanyID \"Zorvo\"",
                    "ZorvoTSR.Connect.RefreshFields <document>", "Word.Visible = True",
                    "Word.ActiveWindow.ActivePane.Activate"));
    EXPECT_NE(creationState().objWordApp, nullptr);
}

TEST_F(OfficeApplications, OpenExcelDocumentShowsFirstAndAsksNoAddIn)
{
    fakes.files->addFile("C:\\Out\\Budget.xls");
    office->provideAddIn("ZorvoTSR.ExcelConnect");
    OpenExcelDocument("C:\\Out\\Budget.xls");
    EXPECT_THAT(office->calls(),
                ElementsAre("Create Excel.Application", "Excel.Version", "Create Excel.Application",
                            "Excel.AddIns.Count", "Excel.EnableEvents = True", "Excel.ActiveWindow.View = 1",
                            "Excel.Visible = True", "Excel.ActiveWindow.ActivePane.Activate",
                            "Excel.Workbooks.Open \"C:\\Out\\Budget.xls\""));
}

TEST_F(OfficeApplications, OpeningWithoutAnOfficeDoesNothing)
{
    office->bWordInstalled = false;
    office->bExcelInstalled = false;
    OpenWordDocument("C:\\Out\\Letter.doc");
    OpenExcelDocument("C:\\Out\\Budget.xls");
    EXPECT_EQ(office->calls().size(), 4U);
    EXPECT_FALSE(creationState().sMissingOffice.empty());
}

TEST_F(OfficeApplications, QuitEndsWordAndThenExcelWhateverFails)
{
    creationState().objWordApp = office->createWord();
    creationState().objExcelApp = office->createExcel();
    office->clearCalls();
    office->fail("Word.Quit", kPermissionDenied);
    QuitOfficeApplications();
    EXPECT_THAT(office->calls(), ElementsAre("Word.Quit", "Excel.Quit"));
    ReleaseOfficeObjects();
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(OfficeApplications, QuitWithoutApplicationsDoesNothing)
{
    QuitOfficeApplications();
    ReleaseOfficeObjects();
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(OfficeApplications, TheInvokedFlagsKeyLosesOnlyTheLastExtension)
{
    SetInvokedFlag("C:\\T\\My.own.Budget.xlt", "TRUE");
    ASSERT_EQ(fakes.settings->written.size(), 1U);
    EXPECT_EQ(fakes.settings->written[0].sApplication, "Zorvo");
    EXPECT_EQ(fakes.settings->written[0].sSection, "Quillbook");
    EXPECT_EQ(fakes.settings->written[0].sKey, "ZorvoBrendleInvoked_My.own.Budget");
    EXPECT_EQ(fakes.settings->written[0].sValue, "TRUE");
}

} // namespace
} // namespace zorvo
