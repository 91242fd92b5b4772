#include "creation/ProcessSelectedDocs.h"

#include "base/sessionState.h"
#include "branding/companyIdentity.h"
#include "creation/CreationForms.h"
#include "creation/creationState.h"
#include "tests/creation/CreationTest.h"
#include "tests/fakes/RecordingLog.h"
#include "tree/SelectionConsumer.h"
#include "window/clsMousePointer.h"

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// The forms' part, answered as a test wants it; what was asked of them is kept.
class RecordingCreationForms : public CreationForms, public SaveFolderDialog {
public:
    void showSingleInstance(const std::string& sInstanceName) override
    {
        calls.push_back("show single " + sInstanceName);
    }
    void unloadSingleInstance() override { calls.emplace_back("unload single"); }
    SaveFolderDialog& saveFolderDialog() override { return *this; }
    void runBatch(const DocumentBatch& batch) override
    {
        calls.emplace_back("batch");
        batches.push_back(batch);
    }

    void setNumberofFiles(std::int32_t n) override { calls.push_back("files " + std::to_string(n)); }
    void showForm() override
    {
        calls.push_back("show folder dialog, pointer " + std::to_string(goMousePointer().MousePointer()));
    }
    bool isOK() const override { return bOK; }
    std::string getFilePath() const override { return sFolder; }
    std::int32_t left() const override { return 300; }
    std::int32_t top() const override { return 150; }
    void unloadForm() override { calls.emplace_back("unload folder dialog"); }

    std::vector<std::string> calls;
    std::vector<DocumentBatch> batches;
    bool bOK = true;
    std::string sFolder = "C:\\Out";
};

class ProcessSelectedDocsTest : public CreationTest {
protected:
    ProcessSelectedDocsTest() { creationForms() = &forms; }

    static std::string element(const std::string& sFileName, const std::string& sType = "TSRAU")
    {
        return "<Document><Title><![CDATA[Title]]></Title><FileName><![CDATA[" + sFileName +
               "]]></FileName><Type><![CDATA[" + sType + "]]></Type><Year><![CDATA[2007]]></Year></Document>";
    }

    static void process(const std::string& sDocuments)
    {
        sessionState().sSelectedDocuments = "<Documents>" + sDocuments + "</Documents>";
        goMousePointer().setMousePointer(11);
        ProcessSelectedDocs();
    }

    void processTwo() { process(element("C:\\T\\Letter.dot") + element("C:\\T\\Budget.xlt")); }

    /// An add-in that answers with a profile and makes the folder usable.
    FakeLateBoundObject& provideProfile(const std::string& sProfile)
    {
        const auto addIn = objects->provideObject("ZorvoTSR.Connect");
        addIn->answer("SetCompanyID", [](std::vector<Value>&) { return Value(); });
        addIn->answer("TreeSelectProfileDataForm", [sProfile](std::vector<Value>& arguments) {
            arguments[0] = std::get<std::string>(arguments[0]) + "\\Client\\";
            return Value(sProfile);
        });
        return *addIn;
    }

    RecordingCreationForms forms;
};

TEST_F(ProcessSelectedDocsTest, MakesNothingOfATextThatIsNotWellFormed)
{
    process("<Document><Title><![CDATA[a]]>b]]></Title></Document>");
    process("<Document>");
    EXPECT_THAT(forms.calls, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, MakesNothingOfASelectionWithoutDocuments)
{
    process("");
    EXPECT_THAT(forms.calls, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, OpensOneDocumentUnsavedUnderTheWaitBox)
{
    process(element("C:\\T\\Letter.dot"));
    EXPECT_THAT(forms.calls, ElementsAre("files 1", "show single Letter", "unload single"));
    EXPECT_THAT(office->calls(), Contains("Word.Documents.Add \"C:\\T\\LETTER.DOT\""));
    EXPECT_THAT(office->calls(), Contains("Word.Visible = True"));
    EXPECT_THAT(office->calls(), Not(Contains(testing::HasSubstr("SaveAs"))));
    EXPECT_THAT(office->calls(), Not(Contains("Word.ActiveDocument.Close")));
    EXPECT_EQ(creationState().objWordApp, nullptr);
    EXPECT_EQ(office->applicationsAlive(), 0);
    EXPECT_EQ(goMousePointer().MousePointer(), 11);
}

TEST_F(ProcessSelectedDocsTest, OpensOneWorkbookUnsavedAndUnshared)
{
    process(element("C:\\T\\Budget.xlt"));
    EXPECT_THAT(office->calls(), Contains("Excel.Workbooks.Add \"C:\\T\\BUDGET.XLT\""));
    EXPECT_THAT(office->calls(), Contains("Excel.Visible = True"));
    EXPECT_THAT(office->calls(), Not(Contains("Excel.EnableEvents = False")));
    EXPECT_THAT(office->calls(), Not(Contains(testing::HasSubstr("SaveAs"))));
}

TEST_F(ProcessSelectedDocsTest, TheLogHasALineForTheOneDocumentsFailure)
{
    const RecordingLog log;
    office->fail("Word.Documents.Add", kPathOrFileAccess);
    process(element("C:\\T\\Letter.dot"));
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_THAT(log.lines[0], testing::StartsWith("TreeSupport.ProcessOneDoc Error 75 - "));
}

TEST_F(ProcessSelectedDocsTest, PassesTypeAndYearOfTheOneDocument)
{
    process(element("C:\\T\\Budget.xlt", "QBKAU"));
    EXPECT_EQ(fakes.settings->get("Zorvo", "Quillbook", "ZorvoBrendleInvoked_Budget"), "TRUE");
}

TEST_F(ProcessSelectedDocsTest, ShowsTheNameWithoutItsLastExtensionOnly)
{
    fakes.files->addFile("C:\\T\\My.own.Letter.dot");
    process(element("C:\\T\\My.own.Letter.dot"));
    EXPECT_THAT(forms.calls, Contains("show single My.own.Letter"));
}

TEST_F(ProcessSelectedDocsTest, TellsThatTheOneTemplateIsMissing)
{
    process(element("C:\\T\\Gone.dot"));
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].sPrompt,
              "The selected template below does not exist:\r\n\r\nC:\\T\\Gone.dot");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_THAT(forms.calls, ElementsAre("files 1"));
    EXPECT_THAT(office->calls(), IsEmpty());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(ProcessSelectedDocsTest, TellsWhyNoApplicationCameAndForgetsItAtTheNextCreation)
{
    office->bWordInstalled = false;
    process(element("C:\\T\\Letter.dot"));
    EXPECT_EQ(creationState().sMissingOffice, standardErrorDescription(kCannotCreateObject));
    office->bWordInstalled = true;
    process(element("C:\\T\\Letter.dot"));
    EXPECT_EQ(creationState().sMissingOffice, "");
}

TEST_F(ProcessSelectedDocsTest, ReportsADocumentThatLacksAnElement)
{
    process("<Document><FileName>C:\\T\\Letter.dot</FileName><Type>T</Type></Document>");
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessSelectedDocs"));
    EXPECT_THAT(office->calls(), IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, RunsABatchOfSeveralWithTheProfileOfTheAddIn)
{
    const FakeLateBoundObject& addIn = provideProfile("profile");
    processTwo();
    EXPECT_THAT(forms.calls,
                ElementsAre("files 2", "show folder dialog, pointer 0", "unload folder dialog", "batch"));
    ASSERT_EQ(forms.batches.size(), 1U);
    const DocumentBatch& batch = forms.batches[0];
    EXPECT_EQ(batch.sProfileData, "profile");
    EXPECT_EQ(batch.sFileName, "");
    EXPECT_EQ(batch.sFolder, "C:\\Out\\Client\\");
    EXPECT_EQ(batch.nDocumentCount, 2);
    ASSERT_EQ(batch.objDocumentNodes.size(), 2U);
    EXPECT_EQ(batch.objDocumentNodes[1].childText("FileName"), "C:\\T\\Budget.xlt");
    EXPECT_FALSE(batch.objSelectionDoc.isEmpty());

    ASSERT_EQ(addIn.calls.size(), 2U);
    EXPECT_EQ(addIn.calls[0].sMember, "SetCompanyID");
    EXPECT_EQ(addIn.calls[1].sMember, "TreeSelectProfileDataForm");
    EXPECT_EQ(addIn.calls[1].arguments,
              (std::vector<Value>{std::string("C:\\Out"), std::int32_t{150}, std::int32_t{300}}));
}

TEST_F(ProcessSelectedDocsTest, RemembersTheFolderPerCompany)
{
    provideProfile("profile");
    processTwo();
    EXPECT_EQ(fakes.settings->value("DocumentFolder"), "C:\\Out");
    StoreCompanyID("OTR");
    forms.sFolder = "C:\\Other";
    processTwo();
    EXPECT_EQ(fakes.settings->value("OTRDocumentFolder"), "C:\\Other");
    EXPECT_EQ(fakes.settings->value("DocumentFolder"), "C:\\Out");
}

TEST_F(ProcessSelectedDocsTest, AddsNoBackslashForTheDefaultCompany)
{
    const auto addIn = objects->provideObject("ZorvoTSR.Connect");
    addIn->answer("SetCompanyID", [](std::vector<Value>&) { return Value(); });
    addIn->answer("TreeSelectProfileDataForm",
                  [](std::vector<Value>&) { return Value(std::string("profile")); });
    processTwo();
    ASSERT_EQ(forms.batches.size(), 1U);
    EXPECT_EQ(forms.batches[0].sFolder, "C:\\Out");
}

TEST_F(ProcessSelectedDocsTest, AnotherCompanyGetsABackslashAndNoProfile)
{
    StoreCompanyID("OTR");
    processTwo();
    ASSERT_EQ(forms.batches.size(), 1U);
    EXPECT_EQ(forms.batches[0].sFolder, "C:\\Out\\");
    EXPECT_EQ(forms.batches[0].sProfileData, "");
    EXPECT_THAT(objects->journal, IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, EndsWhenTheFolderDialogIsLeftWithoutOK)
{
    provideProfile("profile");
    forms.bOK = false;
    processTwo();
    EXPECT_THAT(forms.calls, ElementsAre("files 2", "show folder dialog, pointer 0"));
    EXPECT_THAT(fakes.settings->written, IsEmpty());
    EXPECT_THAT(objects->journal, IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, AnEmptyProfileEndsTheCreationWithoutAWord)
{
    provideProfile("");
    processTwo();
    EXPECT_THAT(forms.batches, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, AnAddInWhoseFormFailsIsReportedAndEndsTheCreation)
{
    provideProfile("profile").answer("TreeSelectProfileDataForm", [](std::vector<Value>&) -> Value {
        throw RunTimeError(kPathOrFileAccess);
    });
    processTwo();
    EXPECT_THAT(forms.batches, IsEmpty());
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessSelectedDocs"));
    EXPECT_EQ(fakes.settings->value("DocumentFolder"), "C:\\Out");
}

TEST_F(ProcessSelectedDocsTest, AProfileThatIsNoTextEndsTheCreationWithoutAWord)
{
    provideProfile("").answer("TreeSelectProfileDataForm",
                              [](std::vector<Value>&) { return Value(std::int32_t{1}); });
    processTwo();
    EXPECT_THAT(forms.batches, IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, AnAddInThatGivesNoObjectEndsTheCreationWithoutAWord)
{
    objects->provide("ZorvoTSR.Connect", [] { return nullptr; });
    processTwo();
    EXPECT_THAT(forms.batches, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
}

TEST_F(ProcessSelectedDocsTest, AnAddInThatCannotBeCreatedIsReportedAndEndsTheCreation)
{
    processTwo();
    EXPECT_THAT(forms.batches, IsEmpty());
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessSelectedDocs"));
    EXPECT_EQ(messages.reports[0].nNumber, kCannotCreateObject);
    EXPECT_THAT(forms.calls, Contains("unload folder dialog"));
}

TEST_F(ProcessSelectedDocsTest, ReportsFormsThatAreNotInstalled)
{
    creationForms() = nullptr;
    processTwo();
    EXPECT_THAT(messages.tags(), ElementsAre("TreeSupport.ProcessSelectedDocs"));
    EXPECT_EQ(messages.reports[0].nNumber, kObjectNotSet);
}

TEST_F(ProcessSelectedDocsTest, IsWhatAConfirmedSelectionGoesTo)
{
    installSelectionConsumer();
    sessionState().sSelectedDocuments = "<Documents>" + element("C:\\T\\Letter.dot") + "</Documents>";
    consumeSelection();
    EXPECT_THAT(forms.calls, Contains("show single Letter"));
}

} // namespace
} // namespace zorvo
