#include "creation/ProcessMultiDocs.h"

#include "creation/creationState.h"
#include "tests/creation/CreationTest.h"
#include "tests/fakes/RecordingLog.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

#include <algorithm>
#include <functional>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

/// Writes down what is asked of the form.
class RecordingBatchWindow : public BatchWindow {
public:
    int entryCount() const override { return nEntries; }
    void enableList() override { calls.emplace_back("enable list"); }
    void beginProgress(int nMaximum) override
    {
        calls.push_back("begin " + std::to_string(nMaximum) + ", pointer " +
                        std::to_string(goMousePointer().MousePointer()));
    }
    void advanceBar() override { calls.emplace_back("advance"); }
    void setStatus(const std::string& sText) override { calls.push_back("status:" + sText); }
    void addEntry(const std::string& sName, int nImage) override
    {
        ++nEntries;
        calls.push_back("entry " + sName + " " + std::to_string(nImage));
    }
    void endProgress() override
    {
        calls.emplace_back("end");
        if (atEnd)
            atEnd();
    }
    void focusFinished() override
    {
        calls.push_back("focus, pointer " + std::to_string(goMousePointer().MousePointer()));
    }
    void showNotice(const std::string& sText) override { sNotice = sText; }

    std::vector<std::string> calls;
    std::string sNotice;
    int nEntries = 0;
    std::function<void()> atEnd;
};

class ProcessMultiDocsTest : public CreationTest {
protected:
    static std::string element(const std::string& sTitle, const std::string& sFileName)
    {
        return "<Document><Title>" + sTitle + "</Title><FileName>" + sFileName +
               "</FileName><Type>QBKAU</Type><Year>2007</Year></Document>";
    }
    static std::string letter() { return element("Letter", "C:\\T\\Letter.dot"); }
    static std::string budget() { return element("Budget", "C:\\T\\Budget.xlt"); }

    static DocumentBatch batchOf(const std::string& sDocuments)
    {
        DocumentBatch batch;
        batch.objSelectionDoc.loadXML("<Documents>" + sDocuments + "</Documents>");
        batch.objDocumentNodes = batch.objSelectionDoc.selectNodes("Documents/Document");
        batch.nDocumentCount = static_cast<std::int32_t>(batch.objDocumentNodes.size());
        batch.sFolder = "C:\\Out\\";
        return batch;
    }
    void process(const std::string& sDocuments) { Process_Multi_Docs(batchOf(sDocuments), window); }
    void open(const std::vector<std::string>& names, int nEntries = 5)
    {
        OpenCreatedDocuments("C:\\Out\\", names, nEntries, window);
    }

    RecordingLog log;
    RecordingBatchWindow window;
};

TEST_F(ProcessMultiDocsTest, GoesThroughItsStepsInOrder)
{
    process(letter() + budget());
    EXPECT_THAT(window.calls,
                ElementsAre("begin 3, pointer 11", "status: Now saving Letter...", "entry LETTER.DOC 8",
                            "advance", "status: Now saving Budget...", "entry BUDGET.XLS 7", "advance", "end",
                            "status: Multiple documents were successfully created.", "focus, pointer 11"));
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_EQ(window.sNotice, "");
}

TEST_F(ProcessMultiDocsTest, SavesEachDocumentInTheFolderAndClosesIt)
{
    process(letter() + budget());
    EXPECT_TRUE(fakes.files->fileExists("C:\\Out\\Letter.doc"));
    EXPECT_TRUE(fakes.files->fileExists("C:\\Out\\Budget.xls"));
    EXPECT_THAT(office->calls(), Contains("Word.ActiveDocument.Close"));
    EXPECT_THAT(office->calls(), Contains("Excel.ActiveWorkbook.Close"));
}

TEST_F(ProcessMultiDocsTest, GivesEachDocumentANameOfItsOwn)
{
    process(letter() + letter());
    EXPECT_THAT(window.calls, Contains("entry LETTER.DOC 8"));
    EXPECT_THAT(window.calls, Contains("entry LETTER_000.DOC 8"));
}

TEST_F(ProcessMultiDocsTest, HandsTheProfileDataAndTheEditionOn)
{
    office->provideAddIn("ZorvoTSR.Connect");
    DocumentBatch batch = batchOf(letter() + budget());
    batch.sProfileData = "profile";
    Process_Multi_Docs(batch, window);
    EXPECT_THAT(office->calls(), Contains(HasSubstr("\"profile\"")));
    EXPECT_EQ(fakes.settings->get("Zorvo", "Quillbook", "ZorvoBrendleInvoked_Budget"), "TRUE");
}

TEST_F(ProcessMultiDocsTest, StartsWordAndExcelOncePerBatchAndQuitsThemAtItsEnd)
{
    process(letter() + letter() + budget() + budget());
    const auto calls = office->calls();
    // The first of each is the question for the version.
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Create Word.Application"), 2);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Create Excel.Application"), 2);
    ASSERT_THAT(calls, SizeIs(testing::Gt(2U)));
    EXPECT_EQ(calls[calls.size() - 2], "Word.Quit");
    EXPECT_EQ(calls[calls.size() - 1], "Excel.Quit");
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(ProcessMultiDocsTest, HasReleasedTheApplicationsWhenTheButtonsCome)
{
    bool bReleased = false;
    window.atEnd = [&] { bReleased = !creationState().objWordApp && !creationState().objExcelApp; };
    process(letter() + budget());
    EXPECT_TRUE(bReleased);
}

TEST_F(ProcessMultiDocsTest, QuitsNoApplicationThatWasNotStarted)
{
    process(letter() + letter());
    EXPECT_THAT(office->calls(), Not(Contains("Excel.Quit")));
}

TEST_F(ProcessMultiDocsTest, WithEntriesAlreadyItEnablesTheListAndEnds)
{
    window.nEntries = 1;
    process(letter() + budget());
    EXPECT_THAT(window.calls, ElementsAre("enable list"));
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(ProcessMultiDocsTest, AMissingTemplateIsToldAndTheBatchGoesOnWithAnEmptyEntry)
{
    process(element("Gone", "C:\\T\\Gone.dot") + letter());
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("C:\\T\\Gone.dot"));
    EXPECT_THAT(window.calls, Contains("entry  8"));
    EXPECT_THAT(window.calls, Contains("entry LETTER.DOC 8"));
    EXPECT_THAT(window.calls, Contains("status: Multiple documents were successfully created."));
}

TEST_F(ProcessMultiDocsTest, AFailingOfficeCallIsSkippedAndTheDocumentKeepsItsEntry)
{
    office->fail("Word.ActiveDocument.SaveAs", kDiskFull, 1);
    process(letter() + letter());
    EXPECT_THAT(window.calls, Contains("entry LETTER.DOC 8"));
    EXPECT_THAT(window.calls, Contains("status: Multiple documents were successfully created."));
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(ProcessMultiDocsTest, ANoticeSaysHowManyDocumentsAreNotComplete)
{
    office->fail("Word.ActiveDocument.SaveAs", kDiskFull, 1);
    process(letter() + budget());
    EXPECT_EQ(window.sNotice, "1 of 2 documents could not be created completely. Disk full");
}

TEST_F(ProcessMultiDocsTest, ANoticeSaysThatAnApplicationIsMissing)
{
    office->bWordInstalled = false;
    process(letter() + budget());
    EXPECT_FALSE(creationState().sMissingOffice.empty());
    EXPECT_EQ(window.sNotice, creationState().sMissingOffice);
}

TEST_F(ProcessMultiDocsTest, ANoticeSaysHowManyDocumentsAreWithoutTheProfileData)
{
    office->provideAddIn("ZorvoTSR.Connect");
    DocumentBatch batch = batchOf(letter() + budget());
    batch.sProfileData = "ClientName=A";
    Process_Multi_Docs(batch, window);
    EXPECT_EQ(window.sNotice, "1 of 2 documents was created without the profile data.");
}

TEST_F(ProcessMultiDocsTest, TheLogHasALineForEachFailure)
{
    office->provideAddIn("ZorvoTSR.Connect").answer("StuffProperties", [](std::vector<Value>&) -> Value {
        throw RunTimeError(440, "No profile is open.");
    });
    office->fail("Word.ActiveDocument.SaveAs", kDiskFull, 1);
    process(letter() + budget() + element("Gone", "C:\\T\\Gone.dot"));
    EXPECT_THAT(
        log.lines,
        ElementsAre("TreeSupport.ProcessOneDoc Error 440 - No profile is open. (LETTER.DOC from "
                    "C:\\T\\Letter.dot)",
                    "TreeSupport.ProcessOneDoc Error 61 - Disk full (LETTER.DOC from C:\\T\\Letter.dot)",
                    "TreeSupport.ProcessOneDoc Error 53 - File not found (C:\\T\\Gone.dot)"));
}

TEST_F(ProcessMultiDocsTest, TheLogHasOneLineForATemplateThatGaveNoDocument)
{
    office->fail("Word.Documents.Add", kPathOrFileAccess);
    process(letter() + budget());
    ASSERT_THAT(log.lines, SizeIs(1));
    EXPECT_THAT(log.lines[0], testing::StartsWith("TreeSupport.ProcessOneDoc Error 75 - "));
}

TEST_F(ProcessMultiDocsTest, TheLogHasALineForEachDocumentWithoutItsApplication)
{
    office->bWordInstalled = false;
    process(letter() + budget() + letter());
    EXPECT_THAT(log.lines, testing::Each(HasSubstr("Error 429 - ")));
    EXPECT_THAT(log.lines, SizeIs(2));
}

TEST_F(ProcessMultiDocsTest, ALogStaysEmptyOfDocumentsThatAreWhole)
{
    process(letter() + budget());
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(ProcessMultiDocsTest, ADocumentWhoseNameAppearsMeanwhileTakesTheNextOneAndItsEntry)
{
    office->provideAddIn("ZorvoTSR.Connect").answer("StuffProperties", [&](std::vector<Value>&) {
        fakes.files->addFile("C:\\Out\\LETTER.DOC", "another program's");
        return Value();
    });
    process(letter());
    EXPECT_EQ(fakes.files->content("C:\\Out\\LETTER.DOC"), "another program's");
    EXPECT_TRUE(fakes.files->fileExists("C:\\Out\\LETTER_000.DOC"));
    EXPECT_THAT(window.calls, Contains("entry LETTER_000.DOC 8"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(ProcessMultiDocsTest, AWorkbookWhoseNameAppearsMeanwhileTakesTheNextOneToo)
{
    office->provideAddIn("ZorvoTSR.ExcelConnect").answer("StuffProperties", [&](std::vector<Value>&) {
        fakes.files->addFile("C:\\Out\\BUDGET.XLS", "another program's");
        return Value();
    });
    process(letter() + budget());
    EXPECT_EQ(fakes.files->content("C:\\Out\\BUDGET.XLS"), "another program's");
    EXPECT_THAT(window.calls, Contains("entry BUDGET_000.XLS 7"));
}

TEST_F(ProcessMultiDocsTest, ANameThatIsAlwaysTakenFailsTheDocument)
{
    office->fail("Word.ActiveDocument.SaveAs", kFileAlreadyExists);
    process(letter() + budget());
    EXPECT_THAT(window.sNotice, HasSubstr("1 of 2 documents could not be created completely."));
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(ProcessMultiDocsTest, WhenTheNumbersHaveRunOutTheLastNameIsSavedOver)
{
    fakes.files->addFile("C:\\Out\\LETTER.DOC", "mine");
    for (int n = 0; n <= 999; ++n) {
        const std::string sNumber = std::to_string(n);
        fakes.files->addFile("C:\\Out\\LETTER_" + std::string(3 - sNumber.size(), '0') + sNumber + ".DOC",
                             "mine");
    }
    process(letter() + budget());
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.CreateNewFileName"));
    EXPECT_NE(fakes.files->content("C:\\Out\\LETTER_999.DOC"), "mine");
    EXPECT_EQ(fakes.files->content("C:\\Out\\LETTER_998.DOC"), "mine");
    EXPECT_FALSE(office->neverReplacesFiles());
}

TEST_F(ProcessMultiDocsTest, AnErrorInOneDocumentIsReportedAndTheBatchGoesOn)
{
    // A year that is no number fails the making of a workbook.
    process(
        "<Document><Title>x</Title><FileName>C:\\T\\Budget.xlt</FileName><Type>QBK</Type><Year>none</Year>"
        "</Document>" +
        letter());
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessOneDoc"));
    EXPECT_THAT(window.calls, Contains("entry LETTER.DOC 8"));
}

TEST_F(ProcessMultiDocsTest, AnErrorOutsideADocumentEndsTheBatchWithTheFormAsItIs)
{
    process(letter() + "<Document/>" + letter());
    EXPECT_THAT(messages.tags(), ElementsAre("frmProgressForm.Process_Multi_Docs"));
    EXPECT_EQ(messages.reports[0].nNumber, kObjectNotSet);
    EXPECT_THAT(window.calls, ElementsAre("begin 4, pointer 11", "status: Now saving Letter...",
                                          "entry LETTER.DOC 8", "advance"));
    const auto calls = office->calls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Word.Quit"), 1); // of the version's question
    EXPECT_EQ(office->applicationsAlive(), 0);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessMultiDocsTest, EntriesShowThePictureOfTheirTemplatesKind)
{
    const DocumentBatch batch =
        batchOf(element("a", "C:\\T\\a.XLT") + element("b", "C:\\T\\b.dot") + element("c", "C:\\T\\c.rtf"));
    for (const XmlNode& node : batch.objDocumentNodes)
        AddCreatedDocument("x", node, window);
    EXPECT_THAT(window.calls, ElementsAre("entry x 7", "entry x 8", "entry x 6"));
}

TEST_F(ProcessMultiDocsTest, TheSmallerCountOpensTheFirstDocumentUnderTheBatchsName)
{
    DocumentBatch batch = batchOf(letter());
    batch.sFileName = "My letter";
    ProcessFirstDoc(batch, window);
    EXPECT_THAT(window.calls, ElementsAre("status: My letter ", "status: My letter successfully created..."));
    EXPECT_THAT(office->calls(), Contains("Word.Visible = True"));
    EXPECT_THAT(office->calls(), Not(Contains(HasSubstr("SaveAs"))));
    EXPECT_EQ(creationState().objWordApp, nullptr);
}

TEST_F(ProcessMultiDocsTest, TheSmallerCountHandsTheProfileDataOn)
{
    office->provideAddIn("ZorvoTSR.ExcelConnect");
    creationState().objWordApp = office->createWord(); // a workbook's connection is Word's
    DocumentBatch batch = batchOf(budget());
    batch.sProfileData = "profile";
    ProcessFirstDoc(batch, window);
    EXPECT_THAT(office->calls(), Contains(HasSubstr("StuffProperties <document> \"profile\"")));
}

TEST_F(ProcessMultiDocsTest, TheSmallerCountNeedsADocument)
{
    EXPECT_THROW(ProcessFirstDoc(DocumentBatch(), window), RunTimeError);
}

TEST_F(ProcessMultiDocsTest, OpensDocumentsByKindWhateverTheCase)
{
    for (const char* name : {"a.DOC", "b.xls", "c.txt"})
        fakes.files->addFile(std::string("C:\\Out\\") + name);
    open({"a.DOC", "b.xls", "c.txt"});
    EXPECT_THAT(office->calls(), Contains("Word.Documents.Open \"C:\\Out\\a.DOC\""));
    EXPECT_THAT(office->calls(), Contains("Excel.Workbooks.Open \"C:\\Out\\b.xls\""));
    EXPECT_THAT(office->calls(), Not(Contains(HasSubstr("c.txt"))));
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(ProcessMultiDocsTest, OpensInANewApplicationAndLeavesItToTheUser)
{
    process(letter() + letter());
    office->clearCalls();
    open({"LETTER.DOC"});
    EXPECT_THAT(office->calls(), Contains("Create Word.Application"));
    EXPECT_NE(office->calls().back(), "Word.Quit");
    EXPECT_EQ(creationState().objWordApp, nullptr);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessMultiDocsTest, TellsOfADeletedDocumentAndGoesOnToTheNext)
{
    fakes.files->addFile("C:\\Out\\b.doc");
    std::int16_t nPointer = 0;
    messages.whileBoxIsUp = [&] { nPointer = goMousePointer().MousePointer(); };
    open({"a.doc", "b.doc"});
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "The document a.doc does not exist at C:\\Out\\");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_EQ(nPointer, 11);
    EXPECT_THAT(office->calls(), Contains("Word.Documents.Open \"C:\\Out\\b.doc\""));
}

TEST_F(ProcessMultiDocsTest, WithOneEntryInTheListItEndsAtTheDeletedDocument)
{
    fakes.files->addFile("C:\\Out\\b.doc");
    open({"a.doc", "b.doc"}, 1);
    EXPECT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(office->calls(), IsEmpty());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessMultiDocsTest, OpeningSaysNothingOfAnApplicationThatWasMissingBefore)
{
    fakes.files->addFile("C:\\Out\\b.doc");
    creationState().sMissingOffice = "There was no Excel.";
    open({"b.doc"});
    EXPECT_EQ(window.sNotice, "");
}

TEST_F(ProcessMultiDocsTest, OpeningWithoutTheApplicationSaysSo)
{
    fakes.files->addFile("C:\\Out\\b.doc");
    office->bWordInstalled = false;
    open({"b.doc"});
    EXPECT_FALSE(window.sNotice.empty());
}

} // namespace
} // namespace zorvo
