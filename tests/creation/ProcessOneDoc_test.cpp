#include "creation/ProcessOneDoc.h"

#include "creation/creationState.h"
#include "creation/officeApplications.h"
#include "tests/creation/CreationTest.h"
#include "window/clsMousePointer.h"

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ProcessOneDocTest : public CreationTest {
protected:
    void run(const std::string& sTemplatePath, const std::string& sTypeYear = "TSRAU~2007")
    {
        ProcessOneDoc(sTemplatePath, sTypeYear, "C:\\Out\\", sFileName, true, true, "profile");
    }

    std::optional<std::string> flag(const std::string& sTemplate) const
    {
        return fakes.settings->get("Zorvo", "Quillbook", "ZorvoBrendleInvoked_" + sTemplate);
    }

    std::string sFileName;
};

TEST_F(ProcessOneDocTest, TellsAMissingTemplateAndDoesNothingElse)
{
    run("C:\\T\\Gone.dot");
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].sPrompt,
              "The selected template below does not exist:\r\n\r\nC:\\T\\Gone.dot");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_THAT(office->calls(), IsEmpty());
    EXPECT_THAT(fakes.settings->written, IsEmpty());
    EXPECT_EQ(sFileName, "");
}

TEST_F(ProcessOneDocTest, SendsDotTemplatesOfAnyCaseToWordInUpperCase)
{
    fakes.files->addFile("C:\\T\\Mixed.dOt");
    run("C:\\T\\Mixed.dOt");
    EXPECT_THAT(office->calls(), Contains("Word.Documents.Add \"C:\\T\\MIXED.DOT\""));
    EXPECT_EQ(sFileName, "MIXED.DOC");
}

TEST_F(ProcessOneDocTest, SendsEverythingElseToExcel)
{
    fakes.files->addFile("C:\\T\\Plain.doc");
    run("C:\\T\\Plain.doc");
    EXPECT_THAT(office->calls(), Contains("Excel.Workbooks.Add \"C:\\T\\PLAIN.DOC\""));
    EXPECT_THAT(office->calls(), Not(Contains("Create Word.Application")));
}

TEST_F(ProcessOneDocTest, SetsTheInvokedFlagForQuillbookWorkbooksFrom2004On)
{
    run("C:\\T\\Budget.xlt", "qbkAU~2004");
    EXPECT_EQ(flag("Budget"), "TRUE");
}

TEST_F(ProcessOneDocTest, SetsNoFlagBefore2004)
{
    run("C:\\T\\Budget.xlt", "QBKAU~2003");
    EXPECT_THAT(fakes.settings->written, IsEmpty());
    EXPECT_THAT(office->calls(), Contains("Excel.Workbooks.Add \"C:\\T\\BUDGET.XLT\""));
}

TEST_F(ProcessOneDocTest, SetsNoFlagForOtherTypesOrForWord)
{
    run("C:\\T\\Budget.xlt", "TSRAU~2007");
    run("C:\\T\\Budget.xlt", "TSRAU~none");
    run("C:\\T\\Letter.dot", "QBKAU~2007");
    EXPECT_THAT(fakes.settings->written, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(ProcessOneDocTest, TakesTheLastFourCharactersOfALongYear)
{
    run("C:\\T\\Budget.xlt", "QBKAU~20071101");
    EXPECT_THAT(fakes.settings->written, IsEmpty());
    run("C:\\T\\Budget.xlt", "QBKAU~11012007");
    EXPECT_EQ(flag("Budget"), "TRUE");
}

TEST_F(ProcessOneDocTest, ReportsAYearThatIsNoNumberBeforeExcelIsTouched)
{
    run("C:\\T\\Budget.xlt", "QBKAU~beta");
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOneDoc"));
    EXPECT_EQ(messages.reports[0].nNumber, kTypeMismatch);
    EXPECT_EQ(flag("Budget"), "FALSE");
    EXPECT_THAT(office->calls(), IsEmpty());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessOneDocTest, WithdrawsTheFlagAndThenReportsWhileItIsStillBusy)
{
    std::optional<std::string> sFlagAtReport;
    int nPointerAtReport = -1;
    FailureReporter before = setFailureReporter([&](const auto&, const auto&, const auto&) {
        sFlagAtReport = flag("Budget");
        nPointerAtReport = goMousePointer().MousePointer();
    });
    run("C:\\T\\Budget.xlt", "QBKAU~beta");
    setFailureReporter(std::move(before));
    EXPECT_EQ(sFlagAtReport, "FALSE");
    EXPECT_EQ(nPointerAtReport, 11);
}

TEST_F(ProcessOneDocTest, IsBusyWhileTheOfficeWorks)
{
    int nPointerAtWork = -1;
    office->provideAddIn("ZorvoTSR.Connect").answer("StuffProperties", [&](std::vector<Value>&) {
        nPointerAtWork = goMousePointer().MousePointer();
        return Value();
    });
    run("C:\\T\\Letter.dot");
    EXPECT_EQ(nPointerAtWork, 11);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessOneDocTest, SetsTheFlagBeforeExcelIsTouched)
{
    fakes.settings->nFailWrites = kPathOrFileAccess;
    run("C:\\T\\Budget.xlt", "QBKAU~2007");
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(ProcessOneDocTest, ReturnsNormallyWhenTheFlagCannotBeWritten)
{
    fakes.settings->nFailWrites = kPathOrFileAccess;
    run("C:\\T\\Budget.xlt", "QBKAU~2007");
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOneDoc"));
    EXPECT_EQ(messages.reports[0].nNumber, kPathOrFileAccess);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessOneDocTest, GivesTwoDocumentsOfOneTemplateDifferentNames)
{
    run("C:\\T\\Letter.dot");
    EXPECT_EQ(sFileName, "LETTER.DOC");
    sFileName.clear();
    run("C:\\T\\Letter.dot");
    EXPECT_EQ(sFileName, "LETTER_000.DOC");
    EXPECT_TRUE(fakes.files->content("C:\\Out\\LETTER.DOC"));
    EXPECT_TRUE(fakes.files->content("C:\\Out\\LETTER_000.DOC"));
}

TEST_F(ProcessOneDocTest, GivesAWorkbookBehindAWordDocumentItsConnection)
{
    office->provideAddIn("ZorvoTSR.ExcelConnect");
    run("C:\\T\\Letter.dot");
    sFileName.clear();
    run("C:\\T\\Budget.xlt");
    EXPECT_THAT(office->calls(), Contains("ZorvoTSR.ExcelConnect.StuffProperties <document> \"profile\""));
}

TEST_F(ProcessOneDocTest, SaysNothingWithoutAnOfficeAndLeavesTheNameToBeListed)
{
    office->bWordInstalled = false;
    run("C:\\T\\Letter.dot");
    EXPECT_EQ(sFileName, "LETTER.DOC");
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(ProcessOneDocTest, SurvivesAMachineWithoutAnOfficePort)
{
    platform().office.reset();
    run("C:\\T\\Letter.dot");
    run("C:\\T\\Budget.xlt");
    EXPECT_FALSE(creationState().sMissingOffice.empty());
}

TEST_F(ProcessOneDocTest, KeepsTheSkippedFailuresOfTheLastDocumentOnly)
{
    office->fail("Word.ActiveDocument.SaveAs", kDiskFull, 1);
    run("C:\\T\\Letter.dot");
    ASSERT_EQ(creationState().skippedFailures.size(), 1U);
    EXPECT_EQ(creationState().skippedFailures[0].number(), kDiskFull);
    run("C:\\T\\Letter.dot");
    EXPECT_THAT(creationState().skippedFailures, IsEmpty());
}

} // namespace
} // namespace zorvo
