#include "creation/CreateExcelDocument.h"

#include "creation/creationState.h"
#include "platform/Office.h"
#include "tests/creation/CreationTest.h"

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class CreateExcelDocumentTest : public CreationTest {
protected:
    CreateExcelDocumentTest() { office->excelAddIns() = {{"qbk2.XLA", false}}; }

    /// A Word that an earlier document of the creation left, with the workbooks' add-in in it.
    void provideWord()
    {
        office->provideAddIn("ZorvoTSR.ExcelConnect");
        creationState().objWordApp = office->createWord();
        office->clearCalls();
    }

    Lines run(bool bShare, bool bSave)
    {
        CreateExcelDocument("C:\\T\\BUDGET.XLT", "C:\\Out\\", sFileName, bShare, bSave, "profile");
        return office->calls();
    }

    std::string sFileName;
};

/// The probe for the version, which is not quit, the real instance, its add-in.
const Lines kStart = {"Create Excel.Application", "Excel.Version",   "Create Excel.Application",
                      "Excel.AddIns.Count",       "Excel.AddIns(1)", "Excel.AddIns(1).Installed = True"};
const Lines kVisible = {"Excel.Visible = True"};
const Lines kAdd = {"Excel.Workbooks.Add \"C:\\T\\BUDGET.XLT\""};
const Lines kEventsOff = {"Excel.EnableEvents = False"};
const Lines kEventsOn = {"Excel.EnableEvents = True"};
const Lines kConnect = {"Word.COMAddIns(\"ZorvoTSR.ExcelConnect\").Object",
                        "ZorvoTSR.ExcelConnect.SetCompanyID \"Zorvo\""};
const Lines kStuff = {"ZorvoTSR.ExcelConnect.StuffProperties <document> \"profile\""};
const Lines kUnprotect = {"ZorvoTSR.ExcelConnect.ProtectExcelDoc <document> False"};
const Lines kProtect = {"ZorvoTSR.ExcelConnect.ProtectExcelDoc <document> True"};
const Lines kSave = {"Excel.EnableEvents = False", "Excel.Version",
                     "Excel.ActiveWorkbook.SaveAs \"C:\\Out\\BUDGET.XLS\" 56 1", "Excel.EnableEvents = True"};
const Lines kShow = {"Excel.EnableEvents = True", "Excel.ActiveWindow.View = 1", "Excel.Visible = True",
                     "Excel.ActiveWindow.ActivePane.Activate"};
const Lines kClose = {"Excel.ActiveWorkbook.Close"};

TEST_F(CreateExcelDocumentTest, SingleWorkbookStaysVisibleAndUnsavedAndIsStuffedAllTheSame)
{
    provideWord();
    EXPECT_THAT(run(false, false),
                ElementsAreArray(joined({kStart, kVisible, kAdd, kConnect, kStuff, kShow})));
    EXPECT_EQ(sFileName, "");
    EXPECT_THAT(creationState().skippedFailures, IsEmpty());
}

TEST_F(CreateExcelDocumentTest, BatchWorkbookIsUnprotectedSavedAndClosedHidden)
{
    provideWord();
    EXPECT_THAT(run(true, true), ElementsAreArray(joined({kStart, kEventsOff, kAdd, kEventsOn, kConnect,
                                                          kStuff, kUnprotect, kSave, kClose})));
    EXPECT_EQ(sFileName, "BUDGET.XLS");
}

TEST_F(CreateExcelDocumentTest, SavedButNotSharedIsProtectedAgainAndBroughtUp)
{
    provideWord();
    EXPECT_THAT(run(false, true), ElementsAreArray(joined({kStart, kVisible, kAdd, kConnect, kStuff,
                                                           kUnprotect, kSave, kConnect, kProtect, kShow})));
}

TEST_F(CreateExcelDocumentTest, DropsItsConnectionsBeforeTheSaveAndBeforeItIsShown)
{
    provideWord();
    office->noteDrops();
    const Lines kDrop = {"ZorvoTSR.ExcelConnect dropped"};
    EXPECT_THAT(run(false, true),
                ElementsAreArray(joined({kStart, kVisible, kAdd, kConnect, kStuff, kUnprotect, kDrop, kSave,
                                         kConnect, kProtect, kDrop, kShow})));
}

TEST_F(CreateExcelDocumentTest, SharedButNotSavedKeepsEventsOffWhileItIsMade)
{
    provideWord();
    EXPECT_THAT(run(true, false), ElementsAreArray(joined({kStart, kVisible, kEventsOff, kAdd, kEventsOn,
                                                           kConnect, kStuff, kShow})));
}

TEST_F(CreateExcelDocumentTest, AsksNobodyForAConnectionWithoutAWord)
{
    office->provideAddIn("ZorvoTSR.ExcelConnect");
    EXPECT_THAT(run(false, false), ElementsAreArray(joined({kStart, kVisible, kAdd, kShow})));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(creationState().skippedFailures, IsEmpty());
}

TEST_F(CreateExcelDocumentTest, BatchOfWorkbooksAloneStuffsNothing)
{
    office->provideAddIn("ZorvoTSR.ExcelConnect");
    EXPECT_THAT(run(true, true), Not(Contains(HasSubstr("StuffProperties"))));
}

TEST_F(CreateExcelDocumentTest, SavesByNumberAboveVersionElevenOnly)
{
    office->setVersions("11.0", "11.0");
    EXPECT_THAT(run(true, true), Contains("Excel.ActiveWorkbook.SaveAs \"C:\\Out\\BUDGET.XLS\" 1"));
    office->setVersions("11.0", "11.5");
    sFileName.clear();
    EXPECT_THAT(run(true, true), Contains("Excel.ActiveWorkbook.SaveAs \"C:\\Out\\BUDGET_000.XLS\" 56 1"));
    office->setVersions("11.0", "12.0");
    sFileName.clear();
    EXPECT_THAT(run(true, true), Contains("Excel.ActiveWorkbook.SaveAs \"C:\\Out\\BUDGET_001.XLS\" 56 1"));
}

TEST_F(CreateExcelDocumentTest, SavesWithoutANumberWhenTheVersionCannotBeRead)
{
    run(true, true);
    office->fail("Excel.Version", kPermissionDenied);
    sFileName.clear();
    EXPECT_THAT(run(true, true), Contains("Excel.ActiveWorkbook.SaveAs \"C:\\Out\\BUDGET_000.XLS\" 1"));
}

TEST_F(CreateExcelDocumentTest, MakesAGivenNameUniqueAndLeavesItAsItCame)
{
    fakes.files->addFile("C:\\Out\\Mine.XLS");
    sFileName = "Mine";
    EXPECT_THAT(run(true, true), Contains("Excel.ActiveWorkbook.SaveAs \"C:\\Out\\Mine_000.XLS\" 56 1"));
    EXPECT_EQ(sFileName, "Mine");
}

TEST_F(CreateExcelDocumentTest, WithoutExcelReturnsWithoutAWord)
{
    office->bExcelInstalled = false;
    EXPECT_THAT(run(true, true), ElementsAreArray({"Create Excel.Application", "Create Excel.Application"}));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_EQ(creationState().sMissingOffice, standardErrorDescription(kCannotCreateObject));
}

TEST_F(CreateExcelDocumentTest, SkipsAFailingCallAndRunsTheNext)
{
    provideWord();
    run(true, true);
    const Lines all = joined({kEventsOff, kAdd, kEventsOn, kConnect, kStuff, kUnprotect, kSave, kClose});
    for (const char* failing :
         {"Excel.EnableEvents = False", "Excel.EnableEvents = True", "ZorvoTSR.ExcelConnect.StuffProperties",
          "ZorvoTSR.ExcelConnect.ProtectExcelDoc", "Excel.Version", "Excel.ActiveWorkbook.SaveAs",
          "Excel.ActiveWorkbook.Close"}) {
        SCOPED_TRACE(failing);
        creationState().skippedFailures.clear();
        creationState().failuresAfterSave.clear();
        office->fail(failing, kPermissionDenied, 1);
        office->clearCalls();
        sFileName.clear();
        EXPECT_EQ(run(true, true).size(), all.size());
        // A whole file isn't blamed for what comes behind its save.
        const bool bBehindSave = std::string(failing) == kClose.front();
        const auto& failures =
            bBehindSave ? creationState().failuresAfterSave : creationState().skippedFailures;
        ASSERT_EQ(failures.size(), 1U);
        EXPECT_EQ(failures[0].number(), kPermissionDenied);
        EXPECT_EQ(creationState().skippedFailures.size() + creationState().failuresAfterSave.size(), 1U);
    }
}

} // namespace
} // namespace zorvo
