#include "creation/CreateWordDocument.h"

#include "branding/companyIdentity.h"
#include "creation/creationState.h"
#include "tests/creation/CreationTest.h"

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

class CreateWordDocumentTest : public CreationTest {
protected:
    void provideAddIns()
    {
        office->provideAddIn("ZorvoTSR.Connect");
        office->wordAddIns() = {{"Other.dot", false}, {"ZORVOQBKWORDADDIN.DOT", false}};
    }

    Lines run(bool bShare, bool bSave)
    {
        CreateWordDocument("C:\\T\\LETTER.DOT", "C:\\Out\\", sFileName, bShare, bSave, "profile");
        return office->calls();
    }

    std::string sFileName;
};

/// The probe for the version, the real instance, its add-in.
const Lines kStart = {
    "Create Word.Application", "Word.Version",   "Word.Quit",      "Create Word.Application",
    "Word.AddIns.Count",       "Word.AddIns(1)", "Word.AddIns(2)", "Word.AddIns(2).Installed = True"};
const Lines kVisible = {"Word.Visible = True"};
const Lines kAddAndConnect = {"Word.Documents.Add \"C:\\T\\LETTER.DOT\"",
                              "Word.COMAddIns(\"ZorvoTSR.Connect\").Object",
                              "ZorvoTSR.Connect.SetCompanyID \"Zorvo\""};
const Lines kRefresh = {"ZorvoTSR.Connect.RefreshFields <document>"};
const Lines kSave = {"Word.ActiveDocument.SaveAs \"C:\\Out\\LETTER.DOC\" 0"};
const Lines kShow = {"Word.Visible = True", "Word.ActiveWindow.ActivePane.Activate"};

TEST_F(CreateWordDocumentTest, SingleDocumentStaysVisibleAndUnsaved)
{
    provideAddIns();
    EXPECT_THAT(run(false, false),
                ElementsAreArray(joined({kStart, kVisible, kAddAndConnect, kRefresh, kShow})));
    EXPECT_EQ(sFileName, "");
    EXPECT_THAT(creationState().skippedFailures, IsEmpty());
}

TEST_F(CreateWordDocumentTest, BatchDocumentIsSavedRefreshedAndClosedHidden)
{
    provideAddIns();
    EXPECT_THAT(run(true, true),
                ElementsAreArray(joined({kStart,
                                         kAddAndConnect,
                                         {"ZorvoTSR.Connect.SuppressSaveAs", "ZorvoTSR.Connect.SetSaveFlag",
                                          "ZorvoTSR.Connect.SetForceShareFlag",
                                          "ZorvoTSR.Connect.StuffProperties <document> \"profile\""},
                                         kSave,
                                         kRefresh,
                                         {"Word.ActiveDocument.Close"}})));
    EXPECT_EQ(sFileName, "LETTER.DOC");
}

TEST_F(CreateWordDocumentTest, SavedButNotSharedIsBroughtUpAndNotForcedToShare)
{
    provideAddIns();
    EXPECT_THAT(run(false, true),
                ElementsAreArray(joined({kStart,
                                         kVisible,
                                         kAddAndConnect,
                                         {"ZorvoTSR.Connect.SuppressSaveAs", "ZorvoTSR.Connect.SetSaveFlag",
                                          "ZorvoTSR.Connect.StuffProperties <document> \"profile\""},
                                         kSave,
                                         kRefresh,
                                         kShow})));
}

TEST_F(CreateWordDocumentTest, SharedButNotSavedIsAsTheSingleDocument)
{
    provideAddIns();
    EXPECT_THAT(run(true, false),
                ElementsAreArray(joined({kStart, kVisible, kAddAndConnect, kRefresh, kShow})));
}

TEST_F(CreateWordDocumentTest, ServesPendingEventsBetweenTheProbeAndTheRealInstance)
{
    provideAddIns();
    watchPendingEvents();
    run(true, true);
    EXPECT_EQ(nCallsAtPendingEvents, 3);
}

TEST_F(CreateWordDocumentTest, KeepsOneWordForTheDocumentsOfABatch)
{
    provideAddIns();
    run(true, true);
    office->clearCalls();
    sFileName.clear();
    EXPECT_THAT(run(true, true).front(), "Word.Documents.Add \"C:\\T\\LETTER.DOT\"");
    EXPECT_EQ(sFileName, "LETTER_000.DOC");
    EXPECT_EQ(office->applicationsAlive(), 1);
}

TEST_F(CreateWordDocumentTest, MakesAGivenNameUniqueAndLeavesItAsItCame)
{
    fakes.files->addFile("C:\\Out\\Mine.DOC");
    sFileName = "Mine";
    EXPECT_THAT(run(true, true), Contains("Word.ActiveDocument.SaveAs \"C:\\Out\\Mine_000.DOC\" 0"));
    EXPECT_EQ(sFileName, "Mine");
}

TEST_F(CreateWordDocumentTest, TakesTheNameBeforeWordIsTouched)
{
    office->bWordInstalled = false;
    run(true, true);
    EXPECT_EQ(sFileName, "LETTER.DOC");
}

TEST_F(CreateWordDocumentTest, WithoutAnAddInSavesAllTheSame)
{
    EXPECT_THAT(run(true, true),
                ElementsAreArray(joined({{"Create Word.Application", "Word.Version", "Word.Quit",
                                          "Create Word.Application", "Word.AddIns.Count"},
                                         {"Word.Documents.Add \"C:\\T\\LETTER.DOT\"",
                                          "Word.COMAddIns(\"ZorvoTSR.Connect\").Object"},
                                         kSave,
                                         {"Word.ActiveDocument.Close"}})));
    EXPECT_THAT(creationState().skippedFailures, IsEmpty());
}

TEST_F(CreateWordDocumentTest, WithoutWordReturnsWithoutAWord)
{
    office->bWordInstalled = false;
    EXPECT_THAT(run(true, true), ElementsAreArray({"Create Word.Application", "Create Word.Application"}));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(messages.tags(), IsEmpty());
    EXPECT_EQ(creationState().objWordApp, nullptr);
    EXPECT_EQ(creationState().sMissingOffice, standardErrorDescription(kCannotCreateObject));
}

TEST_F(CreateWordDocumentTest, SkipsAFailingCallAndRunsTheNext)
{
    provideAddIns();
    const Lines all = joined(
        {kAddAndConnect,
         {"ZorvoTSR.Connect.SuppressSaveAs", "ZorvoTSR.Connect.SetSaveFlag",
          "ZorvoTSR.Connect.SetForceShareFlag", "ZorvoTSR.Connect.StuffProperties <document> \"profile\""},
         kSave,
         kRefresh,
         {"Word.ActiveDocument.Close"}});
    run(true, true);
    for (const std::string& sFailing : all) {
        SCOPED_TRACE(sFailing);
        const bool bAdd = sFailing.starts_with("Word.Documents.Add");
        const bool bConnect = sFailing.find("SetCompanyID") != std::string::npos ||
                              sFailing.find("COMAddIns") != std::string::npos;
        if (bAdd || bConnect)
            continue; // what these two leave out is looked at below
        creationState().skippedFailures.clear();
        creationState().failuresAfterSave.clear();
        office->fail(sFailing.substr(0, sFailing.find(" \"")), kPermissionDenied, 1);
        office->clearCalls();
        sFileName.clear();
        const Lines made = run(true, true);
        EXPECT_EQ(made.size(), all.size());
        // A whole file isn't blamed for what comes behind its save.
        const bool bBehindSave = sFailing == kRefresh.front() || sFailing == "Word.ActiveDocument.Close";
        const auto& failures =
            bBehindSave ? creationState().failuresAfterSave : creationState().skippedFailures;
        ASSERT_EQ(failures.size(), 1U);
        EXPECT_EQ(failures[0].number(), kPermissionDenied);
        EXPECT_EQ(creationState().skippedFailures.size() + creationState().failuresAfterSave.size(), 1U);
    }
}

TEST_F(CreateWordDocumentTest, GoesOnWhenWordRefusesTheTemplate)
{
    office->fail("Word.Documents.Add", 5152, 1);
    const Lines made = run(true, true);
    EXPECT_THAT(made, Not(Contains(kSave.front()))); // there is no active document to take
    ASSERT_FALSE(creationState().skippedFailures.empty());
    EXPECT_EQ(creationState().skippedFailures.front().number(), 5152);
    EXPECT_EQ(sFileName, "LETTER.DOC");
}

TEST_F(CreateWordDocumentTest, DropsTheConnectionBeforeTheDocumentIsClosedOrShown)
{
    provideAddIns();
    office->noteDrops();
    const Lines kDrop = {"ZorvoTSR.Connect dropped"};
    const auto end = [&](bool bBatch, const Lines& last) {
        Lines lines = run(bBatch, bBatch);
        const Lines expected = joined({kRefresh, kDrop, last});
        lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(expected.size()));
        EXPECT_THAT(lines, ElementsAreArray(expected));
    };
    end(true, {"Word.ActiveDocument.Close"});
    end(false, kShow);
}

TEST_F(CreateWordDocumentTest, TakesAFailingAddInForNone)
{
    provideAddIns();
    office->fail("ZorvoTSR.Connect.SetCompanyID", kMemberNotFound);
    EXPECT_THAT(run(true, true), Not(Contains(testing::HasSubstr("StuffProperties"))));
    EXPECT_THAT(creationState().skippedFailures, IsEmpty());
}

TEST_F(CreateWordDocumentTest, TellsTheAddInTheCompany)
{
    StoreCompanyID("OTR");
    provideAddIns();
    EXPECT_THAT(run(false, false), Contains("ZorvoTSR.Connect.SetCompanyID \"OTR\""));
}

TEST_F(CreateWordDocumentTest, StuffsAnEmptyProfileToo)
{
    provideAddIns();
    CreateWordDocument("C:\\T\\LETTER.DOT", "C:\\Out\\", sFileName, true, true, "");
    EXPECT_THAT(office->calls(), Contains("ZorvoTSR.Connect.StuffProperties <document> \"\""));
}

} // namespace
} // namespace zorvo
