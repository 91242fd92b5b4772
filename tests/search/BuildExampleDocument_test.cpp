#include "search/BuildExampleDocument.h"

#include "base/RunTimeError.h"
#include "platform/Office.h"
#include "search/DisclosureProgress.h"
#include "search/searchState.h"
#include "tests/search/SearchTest.h"
#include "window/messageBox.h"

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;
using testing::SizeIs;

/// The progress form, as lines among the calls to the office.
class RecordingProgress : public DisclosureProgress {
public:
    explicit RecordingProgress(RecordingOffice& office)
        : office_(office)
    {
    }

    void showForm() override
    {
        office_.note("show progress");
        bUp = true;
    }
    void setProgressValue(const std::string& sText) override
    {
        office_.note("progress " + sText);
        values.push_back(sText);
    }
    void hideAndUnload() override
    {
        office_.note("unload progress");
        bUp = false;
    }

    std::vector<std::string> values;
    bool bUp = false;

private:
    RecordingOffice& office_;
};

/// Two editions, the second one chosen. What the files hold is what RecordedBody makes of it.
class ResultDocumentTest : public SearchTest {
protected:
    ResultDocumentTest()
    {
        disclosureProgress() = &progress;
        SearchState& state = searchState();
        state.nSWDCount = 2;
        state.nSWDSelected = 1;
        state.sSWDPath = {"C:\\Lib\\2007", "C:\\Gov\\2006", ""};
        state.sSWDRdfExt = {"doc", "rtf", ""};
        state.sSWDTemplate = {"dotx", "dot", ""};
        fakes.files->addFolder("C:\\Windows\\System32");
        fakes.files->addFile("C:\\Gov\\2006\\SWD.dot", "About these examples");
    }
    ~ResultDocumentTest() override { disclosureProgress() = nullptr; }

    void find(const std::vector<std::string>& names)
    {
        searchState().sSWDFoundFiles.clear();
        for (const std::string& sName : names) {
            fakes.files->addFile("C:\\Gov\\2006\\" + sName + ".rtf", "The text of " + sName);
            searchState().sSWDFoundFiles.push_back("C:\\Gov\\2006\\" + sName + ".rtf");
        }
        searchState().nSWDFoundCount = static_cast<std::int16_t>(names.size());
    }

    void putMaster(const std::string& sContents)
    {
        fakes.files->addFile("C:\\Gov\\2006Allrtf.dot", sContents);
    }
    static void filter(const std::string& sKeyword) { FilterMasterDocument("C:\\Gov\\2006", sKeyword, 1); }

    RecordingProgress progress{*office};
};

using BuildExampleDocumentTest = ResultDocumentTest;
using FilterMasterDocumentTest = ResultDocumentTest;

// --- BuildExampleDocument

TEST_F(BuildExampleDocumentTest, TakesItsStepsInOrder)
{
    find({"Cash", "Debt", "Leases"});
    BuildExampleDocument();
    EXPECT_THAT(office->calls(),
                ElementsAre("Create Word.Application", "Word.Visible = False", "show progress",
                            "Word.Documents.Add \"C:\\Gov\\2006\\SWD.dot\"",
                            "Word.ChangeFileOpenDirectory \"C:\\Gov\\2006\"",
                            "Word.Selection.InsertFile \"C:\\Gov\\2006\\Cash.rtf\"", "progress 33% Completed",
                            "Word.Selection.InsertFile \"C:\\Gov\\2006\\Debt.rtf\"", "progress 67% Completed",
                            "Word.Selection.InsertFile \"C:\\Gov\\2006\\Leases.rtf\"",
                            "progress 100% Completed",
                            "Word.ChangeFileOpenDirectory \"C:\\Windows\\System32\"", "unload progress",
                            "Word.Visible = True", "Create Excel.Application", "Excel.Version",
                            "Word.Activate", "Word.ActiveWindow.Activate", "Word.Selection.HomeKey 6"));
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(BuildExampleDocumentTest, LeavesOneUnsavedDocumentWithTheExamplesInTheOrderFound)
{
    find({"Leases", "Cash", "Debt"});
    BuildExampleDocument();
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("The text of Leases", "The text of Cash",
                                                             "The text of Debt", "About these examples")));
    EXPECT_THAT(office->calls(), Not(Contains(HasSubstr("SaveAs"))));
    EXPECT_THAT(office->calls(), Not(Contains(HasSubstr("Quit"))));
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(BuildExampleDocumentTest, ASingleFileIsAllOfItAtOnce)
{
    find({"Cash"});
    BuildExampleDocument();
    EXPECT_THAT(progress.values, ElementsAre("100% Completed"));
}

TEST_F(BuildExampleDocumentTest, HalfAPerCentGoesToTheEvenNumber)
{
    find({"a", "b", "c", "d", "e", "f", "g", "h"});
    BuildExampleDocument();
    EXPECT_THAT(progress.values,
                ElementsAre("12% Completed", "25% Completed", "38% Completed", "50% Completed",
                            "62% Completed", "75% Completed", "88% Completed", "100% Completed"));
}

TEST_F(BuildExampleDocumentTest, TakesTheFilesFromTheFirstOnAndNoMoreThanWereFound)
{
    find({"Cash", "Debt", "Leases"});
    searchState().nSWDFileIndex = 2;
    searchState().nSWDFoundCount = 2;
    BuildExampleDocument();
    EXPECT_THAT(office->wordDocument(),
                Optional(ElementsAre("The text of Cash", "The text of Debt", "About these examples")));
    EXPECT_EQ(searchState().nSWDFileIndex, 2);
}

TEST_F(BuildExampleDocumentTest, UsesFolderAndTemplateOfTheChosenEdition)
{
    fakes.files->addFile("C:\\Lib\\2007\\SWD.dotx", "The other frame");
    find({"Cash"});
    searchState().nSWDSelected = 0;
    BuildExampleDocument();
    EXPECT_THAT(office->calls(), Contains("Word.Documents.Add \"C:\\Lib\\2007\\SWD.dotx\""));
    EXPECT_THAT(office->calls(), Contains("Word.ChangeFileOpenDirectory \"C:\\Lib\\2007\""));
}

TEST_F(BuildExampleDocumentTest, FindsANameWithoutFolderInTheEditionsFolder)
{
    find({"Cash"});
    searchState().sSWDFoundFiles = {"Cash.rtf"};
    BuildExampleDocument();
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("The text of Cash", "About these examples")));
}

TEST_F(BuildExampleDocumentTest, AnExcelBelow10BringsWordToTheFront)
{
    find({"Cash"});
    office->setVersions("9.0", "9.0");
    BuildExampleDocument();
    const std::vector<std::string> calls = office->calls();
    const std::vector<std::string> last(calls.end() - 6, calls.end());
    EXPECT_THAT(last, ElementsAre("Create Excel.Application", "Excel.Version", "Excel.ActivateMicrosoftApp 1",
                                  "Word.Activate", "Word.ActiveWindow.Activate", "Word.Selection.HomeKey 6"));
}

TEST_F(BuildExampleDocumentTest, Excel10LeavesWordWhereItIs)
{
    find({"Cash"});
    office->setVersions("10.0", "10.0");
    BuildExampleDocument();
    EXPECT_THAT(office->calls(), Not(Contains("Excel.ActivateMicrosoftApp 1")));
}

TEST_F(BuildExampleDocumentTest, AMissingExampleTakesThePartlyBuiltDocumentAwayAndSaysSo)
{
    find({"Cash", "Debt", "Leases"});
    fakes.files->remove("C:\\Gov\\2006\\Debt.rtf");
    messages.whileBoxIsUp = [&] { EXPECT_THAT(office->calls().back(), "Excel.DisplayAlerts = True"); };
    BuildExampleDocument();
    EXPECT_THAT(office->calls(),
                ElementsAre("Create Word.Application", "Word.Visible = False", "show progress",
                            "Word.Documents.Add \"C:\\Gov\\2006\\SWD.dot\"",
                            "Word.ChangeFileOpenDirectory \"C:\\Gov\\2006\"",
                            "Word.Selection.InsertFile \"C:\\Gov\\2006\\Cash.rtf\"", "progress 33% Completed",
                            "Word.Selection.InsertFile \"C:\\Gov\\2006\\Debt.rtf\"",
                            "Create Excel.Application", "Excel.DisplayAlerts = False",
                            "Word.ActiveWindow.Close 0", "Word.Quit", "Excel.DisplayAlerts = True"));
    EXPECT_EQ(office->wordDocument(), std::nullopt);
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt,
              "Unable to show examples. One or more of the example disclosure files are missing.  ");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle:  Zorvo's Sablewood Library");
}

TEST_F(BuildExampleDocumentTest, AMissingTemplateIsToldInTheSameWay)
{
    find({"Cash"});
    fakes.files->remove("C:\\Gov\\2006\\SWD.dot");
    BuildExampleDocument();
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("Unable to show examples."));
    EXPECT_THAT(office->calls(), Contains("Word.Quit"));
    EXPECT_THAT(office->calls(), Contains("Excel.DisplayAlerts = True"));
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(BuildExampleDocumentTest, WhatFailsWhileTheDocumentIsTakenAwayIsPassedOver)
{
    find({"Cash"});
    fakes.files->remove("C:\\Gov\\2006\\Cash.rtf");
    for (const char* step : {"Create Excel", "Excel.DisplayAlerts = False", "Word.ActiveWindow.Close",
                             "Word.Quit", "Excel.DisplayAlerts = True"}) {
        messages.boxes.clear();
        office->fail(step, kOfficeDoesNotAnswer, 1);
        BuildExampleDocument();
        ASSERT_THAT(messages.boxes, SizeIs(1)) << step;
        EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("Unable to show examples.")) << step;
        EXPECT_EQ(office->calls().back(), "Excel.DisplayAlerts = True") << step;
    }
}

TEST_F(BuildExampleDocumentTest, AnyOtherFailureIsToldAndLeavesWordAsItStands)
{
    find({"Cash", "Debt"});
    office->fail("Word.Selection.InsertFile \"C:\\Gov\\2006\\Debt.rtf\"", kPathOrFileAccess);
    BuildExampleDocument();
    EXPECT_EQ(office->calls().back(), "Word.Selection.InsertFile \"C:\\Gov\\2006\\Debt.rtf\"");
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "Unable to create the example disclosure file.    ");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle:  Zorvo's Sablewood Library");
}

TEST_F(BuildExampleDocumentTest, NoOtherNumberThanWordsOwnMeansAMissingExample)
{
    find({"Cash"});
    for (const int nNumber : std::initializer_list<int>{kFileNotFound, kPathNotFound, kWordFileNotFound - 1,
                                                        kWordFileNotFound + 1}) {
        messages.boxes.clear();
        office->fail("Word.Selection.InsertFile", nNumber, 1);
        BuildExampleDocument();
        ASSERT_THAT(messages.boxes, SizeIs(1)) << nNumber;
        EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("Unable to create")) << nNumber;
    }
}

TEST_F(BuildExampleDocumentTest, AFailureAtAnyStepIsTold)
{
    find({"Cash"});
    for (const char* step :
         {"Create Word", "Word.Visible = False", "Word.Documents.Add", "Word.ChangeFileOpenDirectory",
          "Word.Visible = True", "Create Excel", "Excel.Version", "Word.Activate",
          "Word.ActiveWindow.Activate", "Word.Selection.HomeKey"}) {
        messages.boxes.clear();
        office->fail(step, kOfficeDoesNotAnswer, 1);
        BuildExampleDocument();
        ASSERT_THAT(messages.boxes, SizeIs(1)) << step;
        EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("Unable to create")) << step;
    }
}

TEST_F(BuildExampleDocumentTest, AFailureLeavesTheProgressFormUp)
{
    find({"Cash"});
    office->fail("Word.Selection.InsertFile", kWordFileNotFound, 1);
    BuildExampleDocument();
    EXPECT_TRUE(progress.bUp);
    office->fail("Word.Selection.InsertFile", kPathOrFileAccess, 1);
    BuildExampleDocument();
    EXPECT_TRUE(progress.bUp);
    BuildExampleDocument();
    EXPECT_FALSE(progress.bUp);
}

TEST_F(BuildExampleDocumentTest, WithoutWordTheUserIsTold)
{
    find({"Cash"});
    office->bWordInstalled = false;
    BuildExampleDocument();
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("Unable to create"));
}

TEST_F(BuildExampleDocumentTest, TablesThatAreTooShortAreAFailureLikeAnother)
{
    find({"Cash"});
    searchState().nSWDFoundCount = 2;
    BuildExampleDocument();
    searchState().nSWDSelected = 7;
    BuildExampleDocument();
    ASSERT_THAT(messages.boxes, SizeIs(2));
    EXPECT_THAT(messages.boxes[0].sPrompt, HasSubstr("Unable to create"));
    EXPECT_THAT(messages.boxes[1].sPrompt, HasSubstr("Unable to create"));
}

// --- FilterMasterDocument

TEST_F(FilterMasterDocumentTest, TakesItsStepsInOrder)
{
    putMaster("All examples\n|cash|\nbetween\n\n|lease|\nend\n|debt|\n");
    filter("lease");
    EXPECT_THAT(office->calls(),
                ElementsAre("Create Word.Application", "Word.Documents.Add \"C:\\Gov\\2006Allrtf.dot\"",
                            "Word.ActiveWindow.View.SplitSpecial",
                            "Word.ActiveWindow.ActivePane.View.Type = 3", "show progress",
                            "Word.ActiveDocument.Tables.Count", "Word.ActiveDocument.Tables(1).Range.Text",
                            "Word.ActiveDocument.Tables(1).Select", "Word.ActiveDocument.Tables(1).Delete",
                            "Word.Selection.Information(12)", "Word.Selection.Delete",
                            "Word.Selection.Information(12)", "Word.Selection.Delete",
                            "Word.Selection.Information(12)", "Word.ActiveDocument.Tables.Count",
                            "progress 50% completed", "Word.ActiveDocument.Tables.Count",
                            "Word.ActiveDocument.Tables(1).Range.Text", "Word.ActiveDocument.Tables.Count",
                            "progress 100% completed", "Word.ActiveDocument.Tables.Count", "unload progress",
                            "Word.Visible = True", "Word.WindowState = 1"));
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("All examples", "|lease|", "end", "|debt|")));
}

TEST_F(FilterMasterDocumentTest, AMissingMasterShowsAndReportsNothing)
{
    fakes.files->addFile("C:\\Gov\\2006\\Allrtf.dot", "|cash|");
    filter("cash");
    EXPECT_THAT(office->calls(), IsEmpty());
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(FilterMasterDocumentTest, TheMasterLiesBesideTheFolderUnderItsNameAndTheExtensionOfTheEdition)
{
    fakes.files->addFile("D:\\Somewhere\\ElseAlldoc.dot", "|cash|");
    FilterMasterDocument("D:\\Somewhere\\Else", "cash", 0);
    EXPECT_THAT(office->calls(), Contains("Word.Documents.Add \"D:\\Somewhere\\ElseAlldoc.dot\""));
}

TEST_F(FilterMasterDocumentTest, ASplitWindowShowsPagesAsAWhole)
{
    putMaster("|cash|");
    office->setSplitSpecial(2);
    filter("cash");
    EXPECT_THAT(office->calls(), Contains("Word.ActiveWindow.View.Type = 3"));
    EXPECT_THAT(office->calls(), Not(Contains("Word.ActiveWindow.ActivePane.View.Type = 3")));
}

TEST_F(FilterMasterDocumentTest, KeepsEveryTableThatHoldsTheKeywordWithWhatFollowsIt)
{
    putMaster("|Cash|one|\nafter one\n|debt|\nafter two\n|petty CASH|\nafter three\n|leases|\nafter four\n");
    filter("cAsH");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("|Cash|one|", "after one", "|petty CASH|",
                                                             "after three", "|leases|", "after four")));
}

TEST_F(FilterMasterDocumentTest, TheKeywordIsOnePlainTextAndNoListOfWords)
{
    putMaster("|cash flow|\n|flow of cash|\n|cashless flow|\n|end|\n");
    filter("cash fl");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("|cash flow|", "|end|")));
    office->clearCalls();
    putMaster("|cash|\n|c*h|\n|end|\n");
    filter("c*h");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("|c*h|", "|end|")));
}

TEST_F(FilterMasterDocumentTest, AKeywordIsNotFoundAcrossTwoCells)
{
    putMaster("|ca|sh|\n|end|\n");
    filter("cash");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("|end|")));
}

TEST_F(FilterMasterDocumentTest, FindsLettersBeyondAsciiWithoutRegardToCase)
{
    putMaster("|R\xC3\x89SERVES|\n|end|\n");
    filter("r\xC3\xA9serves");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("|R\xC3\x89SERVES|", "|end|")));
}

TEST_F(FilterMasterDocumentTest, TheOnlyTableStaysWithoutALook)
{
    putMaster("Title\n|debt|\nend\n");
    filter("cash");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("Title", "|debt|", "end")));
    EXPECT_THAT(progress.values, IsEmpty());
    EXPECT_THAT(office->calls(), Not(Contains(HasSubstr("Range.Text"))));
}

TEST_F(FilterMasterDocumentTest, OfTwoTablesWithoutTheKeywordTheSecondStays)
{
    putMaster("|debt|\nbetween\n|leases|\n");
    filter("cash");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("|leases|")));
    EXPECT_THAT(progress.values, ElementsAre("100% completed"));
}

TEST_F(FilterMasterDocumentTest, AMasterWithoutTablesIsShownAsItIs)
{
    putMaster("Words\n");
    filter("cash");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("Words")));
    EXPECT_THAT(office->calls(), Contains("Word.Visible = True"));
}

TEST_F(FilterMasterDocumentTest, TheProgressIsThePlaceAmongTheTablesThatAreLeft)
{
    putMaster("|cash|\n|debt|\n|cash|\n|tax|\n");
    filter("cash");
    EXPECT_THAT(progress.values, ElementsAre("50% completed", "67% completed", "100% completed"));
}

TEST_F(FilterMasterDocumentTest, NeitherSavesNorEndsNorAsks)
{
    putMaster("|cash|\n|debt|\n");
    filter("cash");
    EXPECT_THAT(office->calls(), Not(Contains(HasSubstr("SaveAs"))));
    EXPECT_THAT(office->calls(), Not(Contains(HasSubstr("Quit"))));
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_EQ(office->applicationsAlive(), 0);
    EXPECT_FALSE(progress.bUp);
}

TEST_F(FilterMasterDocumentTest, WhatCannotBeRemovedBehindATableStaysAndTheNextPassRuns)
{
    putMaster("|debt|\nstubborn\n|cash|\n|tax|\n");
    office->fail("Word.Selection.Delete", kInvalidCall, 1);
    filter("cash");
    EXPECT_THAT(office->wordDocument(), Optional(ElementsAre("stubborn", "|cash|", "|tax|")));
    EXPECT_THAT(progress.values, ElementsAre("50% completed", "100% completed"));
}

TEST_F(FilterMasterDocumentTest, ALaterFailureInThePassEndsItAtTheCaller)
{
    putMaster("|debt|\nstubborn\n|cash|\n|tax|\n");
    office->fail("Word.Selection.Delete", kInvalidCall, 1);
    office->fail("Word.ActiveDocument.Tables.Count", kOverflow, 1, 1);
    EXPECT_EQ(numberOfFailure([] { filter("cash"); }), kOverflow);
    EXPECT_EQ(office->calls().back(), "Word.ActiveDocument.Tables.Count");
    EXPECT_TRUE(progress.bUp);
}

TEST_F(FilterMasterDocumentTest, AFailureOutsideTheRemovalReachesTheCallerAndLeavesTheProgressFormUp)
{
    putMaster("|debt|\n|cash|\n|tax|\n");
    for (const char* step :
         {"Word.ActiveDocument.Tables(1).Range.Text", "Word.ActiveDocument.Tables(1).Select",
          "Word.ActiveDocument.Tables(1).Delete", "Word.ActiveDocument.Tables.Count"}) {
        office->fail(step, kOfficeDoesNotAnswer, 1);
        EXPECT_EQ(numberOfFailure([] { filter("cash"); }), kOfficeDoesNotAnswer) << step;
        EXPECT_TRUE(progress.bUp);
    }
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(FilterMasterDocumentTest, AnEditionBeyondTheTablesIsAFailure)
{
    EXPECT_EQ(numberOfFailure([] { FilterMasterDocument("C:\\Gov\\2006", "x", 9); }), kIndexOutOfRange);
    EXPECT_EQ(numberOfFailure([] { FilterMasterDocument("C:\\Gov\\2006", "x", -1); }), kIndexOutOfRange);
}

} // namespace
} // namespace zorvo
