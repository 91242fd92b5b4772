#include "search/FindSWDFiles.h"

#include "base/failure.h"
#include "search/SearchForms.h"
#include "search/searchState.h"
#include "tests/fakes/FakeFileSearch.h"
#include "tests/search/SearchTest.h"
#include "window/clsMousePointer.h"
#include "window/messageBox.h"

#include <functional>

namespace zorvo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

/// The two forms as a record of what was done to them, in one list with everything else.
class RecordingSearchForms : public SearchForms {
public:
    explicit RecordingSearchForms(std::vector<std::string>& steps)
        : steps_(steps)
    {
    }

    std::string libraryText() override
    {
        failIfAsked("library");
        return sLibrary;
    }
    std::string keywordText() override
    {
        ++nKeywordReads;
        failIfAsked("keyword");
        return sKeyword;
    }
    void refreshMessage() override
    {
        failIfAsked("refresh");
        steps_.emplace_back("refresh");
    }
    void showProgress(std::size_t /*nDone*/, std::size_t /*nFiles*/) override { ++nProgress; }
    void hideForms() override
    {
        if (onHide)
            onHide();
        failIfAsked("hide");
        steps_.emplace_back("hide");
    }
    void unloadForms() override
    {
        failIfAsked("unload");
        steps_.emplace_back("unload");
    }

    std::function<void()> onHide;
    /// What throws.
    std::string sFailing;
    std::string sLibrary;
    std::string sKeyword;
    int nKeywordReads = 0;
    int nProgress = 0;

private:
    void failIfAsked(const std::string& sStep) const
    {
        if (sFailing == sStep)
            throw RunTimeError(kInvalidCall);
    }

    std::vector<std::string>& steps_;
};

class FindSWDFilesTest : public SearchTest {
protected:
    FindSWDFilesTest()
        : forms_(steps)
    {
        platform().fileSearch = fileSearch;
        searchForms() = &forms_;
        resultDocuments().BuildExampleDocument = [this] {
            steps.emplace_back("build");
            nWordsAtBuild = office->applicationsAlive();
        };
        resultDocuments().FilterMasterDocument = [this](const std::string& sFolder,
                                                        const std::string& sKeyword, std::int16_t nSelected) {
            steps.push_back("filter " + sFolder + " '" + sKeyword + "' " + std::to_string(nSelected));
            if (nFilterFailure != 0)
                throw RunTimeError(nFilterFailure);
        };
        fillTables();
        forms_.sLibrary = "Governments 2006";
        forms_.sKeyword = "current asset*";
    }
    ~FindSWDFilesTest() override
    {
        searchForms() = nullptr;
        resultDocuments() = documentsBefore_;
    }

    static void fillTables()
    {
        SearchState& state = searchState();
        state.nSWDCount = 3;
        state.sSWDName = {"Library", "Governments", "Nonprofits", ""};
        state.sSWDVersion = {"2007", "2006", "", ""};
        state.sSWDPath = {"C:\\Lib", "C:\\Gov", "", ""};
        state.sSWDRdfExt = {"rtf", "ggg", "nnn", ""};
    }

    void find(std::vector<std::string> paths)
    {
        fileSearch->answer = [paths] { return paths; };
        FindSWDFiles();
    }

    void answerYes() { messages.nAnswer = kMsgResultYes; }

    RecordingSearchForms& forms() { return forms_; }
    std::vector<std::string> steps;
    std::shared_ptr<FakeFileSearch> fileSearch = std::make_shared<FakeFileSearch>();
    int nFilterFailure = 0;
    int nWordsAtBuild = -1;

private:
    ResultDocuments documentsBefore_ = resultDocuments();
    RecordingSearchForms forms_;
};

std::vector<std::string> paths(int n)
{
    std::vector<std::string> result;
    for (int i = 0; i < n; ++i)
        result.push_back("C:\\Gov\\" + std::to_string(1000 + i) + ".ggg");
    return result;
}

TEST_F(FindSWDFilesTest, SearchesTheFolderAndExtensionOfTheChosenEditionForTheKeywordAsTyped)
{
    forms().sKeyword = " gr?y *  \"x\" ";
    find({});
    ASSERT_THAT(fileSearch->asked, SizeIs(1));
    EXPECT_EQ(fileSearch->asked[0].sLookIn, "C:\\Gov");
    EXPECT_EQ(fileSearch->asked[0].sTextOrProperty, " gr?y *  \"x\" ");
    EXPECT_EQ(fileSearch->asked[0].sFileName, "*.ggg");
    EXPECT_EQ(searchState().nSWDSelected, 1);
    EXPECT_EQ(searchState().sSWDKeyword, " gr?y *  \"x\" ");
}

TEST_F(FindSWDFilesTest, OfEditionsThatReadTheSameTheLastCounts)
{
    searchState().sSWDName[2] = "Governments";
    searchState().sSWDVersion[2] = "2006";
    searchState().sSWDPath[2] = "C:\\Other";
    find({});
    EXPECT_EQ(searchState().nSWDSelected, 2);
    EXPECT_EQ(fileSearch->asked[0].sLookIn, "C:\\Other");
    EXPECT_EQ(fileSearch->asked[0].sFileName, "*.nnn");
}

TEST_F(FindSWDFilesTest, TheUnusedEntryIsComparedToo)
{
    forms().sLibrary = " ";
    find({});
    EXPECT_EQ(searchState().nSWDSelected, 3);
    EXPECT_EQ(fileSearch->asked[0].sFileName, "*.");
}

TEST_F(FindSWDFilesTest, AnEmptySelectionTakesTheFirstEditionAndNoFolder)
{
    forms().sLibrary = "";
    searchState().nSWDSelected = 2;
    find({});
    EXPECT_EQ(searchState().nSWDSelected, 0);
    EXPECT_EQ(fileSearch->asked[0].sLookIn, "");
    EXPECT_EQ(fileSearch->asked[0].sFileName, "*.rtf");
}

TEST_F(FindSWDFilesTest, WithoutTablesItStillSearchesAndFindsNothing)
{
    searchState() = SearchState();
    forms().sLibrary = "";
    find({});
    EXPECT_EQ(fileSearch->asked[0].sLookIn, "");
    EXPECT_THAT(messages.boxes, SizeIs(1));
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(FindSWDFilesTest, NothingFoundIsToldAfterWordAndTheFormsHaveGone)
{
    std::vector<std::string> stepsAtBox;
    int nWordsAtHide = -1;
    int nWordsAtBox = -1;
    forms().onHide = [&] { nWordsAtHide = office->applicationsAlive(); };
    messages.whileBoxIsUp = [&] {
        stepsAtBox = steps;
        nWordsAtBox = office->applicationsAlive();
    };
    find({});
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt, "No examples containing the text 'current asset*' were found.");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgInformation);
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle");
    EXPECT_THAT(stepsAtBox, ElementsAre("refresh", "hide", "unload"));
    EXPECT_EQ(nWordsAtHide, 0);
    EXPECT_EQ(nWordsAtBox, 0);
    EXPECT_THAT(office->calls(), ElementsAre("Create Word.Application", "Word.Version", "Word.Quit"));
    EXPECT_EQ(searchState().nSWDFoundCount, 0);
}

TEST_F(FindSWDFilesTest, OneExampleIsOfferedInTheSingular)
{
    std::vector<std::string> stepsAtBox;
    messages.whileBoxIsUp = [&] { stepsAtBox = steps; };
    find(paths(1));
    ASSERT_THAT(messages.boxes, SizeIs(1));
    EXPECT_EQ(messages.boxes[0].sPrompt,
              "The search found one example disclosure containing the text 'current "
              "asset*'.\r\n\r\nDo you want to view it?\r\n");
    EXPECT_EQ(messages.boxes[0].nStyle, kMsgYesNo);
    EXPECT_EQ(messages.boxes[0].sTitle, "Zorvo's Brendle:  Zorvo's Sablewood Library");
    EXPECT_THAT(stepsAtBox, ElementsAre("refresh", "hide"));
}

TEST_F(FindSWDFilesTest, SeveralExamplesAreOfferedWithTheirNumber)
{
    find(paths(2));
    EXPECT_EQ(messages.boxes.at(0).sPrompt,
              "The search found 2 example disclosures containing the text 'current asset*'.\r\n\r\n"
              "Do you want to view them?\r\n");
}

TEST_F(FindSWDFilesTest, The250thAndTheHundredAndFirstAreLeftOut)
{
    answerYes();
    find(paths(250));
    EXPECT_EQ(messages.boxes.at(0).sPrompt,
              "The search found 100 example disclosures containing the text 'current asset*'.\r\n\r\n"
              "Do you want to view them?\r\n");
    EXPECT_EQ(searchState().nSWDFoundCount, 100);
    EXPECT_EQ(searchState().sSWDFoundFiles, paths(100));
    EXPECT_EQ(searchState().nSWDFileIndex, 100);
}

TEST_F(FindSWDFilesTest, The99AreUsedAsTheyAre)
{
    answerYes();
    find(paths(99));
    EXPECT_EQ(searchState().nSWDFoundCount, 99);
    EXPECT_EQ(searchState().sSWDFoundFiles, paths(99));
}

TEST_F(FindSWDFilesTest, YesEndsWordAndTheFormsAndThenBuildsTheDocument)
{
    answerYes();
    find(paths(3));
    EXPECT_THAT(steps, ElementsAre("refresh", "hide", "hide", "unload", "build"));
    EXPECT_THAT(office->calls(), ElementsAre("Create Word.Application", "Word.Version", "Word.Quit"));
    EXPECT_EQ(nWordsAtBuild, 0);
    EXPECT_EQ(searchState().sSWDFoundFiles, paths(3));
}

TEST_F(FindSWDFilesTest, AnEarlierSearchsPlaceAmongItsFilesIsForgotten)
{
    searchState().nSWDFileIndex = 7;
    answerYes();
    find(paths(3));
    EXPECT_EQ(searchState().sSWDFoundFiles, paths(3));
    EXPECT_EQ(searchState().nSWDFileIndex, 3);
}

TEST_F(FindSWDFilesTest, NoEndsWordAndNothingElseHappens)
{
    searchState().sSWDFoundFiles = {"earlier"};
    find(paths(3));
    EXPECT_THAT(steps, ElementsAre("refresh", "hide"));
    EXPECT_THAT(office->calls(), ElementsAre("Create Word.Application", "Word.Version", "Word.Quit"));
    EXPECT_EQ(office->applicationsAlive(), 0);
    EXPECT_THAT(searchState().sSWDFoundFiles, ElementsAre("earlier"));
}

TEST_F(FindSWDFilesTest, TheKeywordOfTheQuestionIsReadAgainFromTheForm)
{
    fileSearch->answer = [this] {
        forms().sKeyword = "another";
        return paths(1);
    };
    FindSWDFiles();
    EXPECT_EQ(searchState().sSWDKeyword, "current asset*");
    EXPECT_THAT(messages.boxes.at(0).sPrompt, testing::HasSubstr("the text 'another'"));
}

TEST_F(FindSWDFilesTest, ABusyPointerStandsFromWordToTheEnd)
{
    std::int16_t nPointerAtBox = 0;
    messages.whileBoxIsUp = [&] { nPointerAtBox = goMousePointer().MousePointer(); };
    find(paths(1));
    EXPECT_EQ(nPointerAtBox, 11);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(FindSWDFilesTest, TheWaitNoticeGetsTheProgress)
{
    find({});
    EXPECT_GT(forms().nProgress, 0);
}

struct Route {
    const char* sWord;
    double nSystem;
    bool bSecond;
};

TEST_F(FindSWDFilesTest, TheRouteGoesByWordAndSystem)
{
    for (const Route& route : {Route{"11.0", 5.1, false}, Route{"11.0", 6.0, true}, Route{"11.0", 6.1, false},
                               Route{"12.0", 5.1, true}, Route{"12.0", 6.0, true}, Route{"16.0", 10.0, true},
                               Route{"11.9", 0, false}, Route{"9.0", 6.0, true}}) {
        office->setVersions(route.sWord, "12.0");
        fakes.machine->nSystemVersion = route.nSystem;
        fileSearch->asked.clear();
        steps.clear();
        FindSWDFiles();
        EXPECT_EQ(fileSearch->asked.empty(), route.bSecond) << route.sWord << " on " << route.nSystem;
        EXPECT_EQ(steps.back().starts_with("filter"), route.bSecond)
            << route.sWord << " on " << route.nSystem;
    }
}

TEST_F(FindSWDFilesTest, TheSecondRouteUnloadsTheFormsAndLeavesWordRunning)
{
    office->setVersions("12.0", "12.0");
    FindSWDFiles();
    EXPECT_THAT(steps, ElementsAre("refresh", "hide", "unload", "filter C:\\Gov 'current asset*' 1"));
    EXPECT_THAT(office->calls(), ElementsAre("Create Word.Application", "Word.Version"));
    EXPECT_EQ(office->applicationsAlive(), 0);
    EXPECT_THAT(messages.boxes, IsEmpty());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(FindSWDFilesTest, AFailureOnTheSecondRouteIsPassedOver)
{
    office->setVersions("12.0", "12.0");
    nFilterFailure = 5174;
    FindSWDFiles();
    EXPECT_THAT(messages.reports, IsEmpty());
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(FindSWDFilesTest, FailuresAheadOfTheSearchArePassedOver)
{
    for (const char* step : {"refresh", "library", "keyword"}) {
        forms().sFailing = step;
        fileSearch->asked.clear();
        fileSearch->answer = [this] {
            forms().sFailing.clear();
            return paths(0);
        };
        FindSWDFiles();
        EXPECT_THAT(fileSearch->asked, SizeIs(1)) << step;
        EXPECT_THAT(messages.reports, IsEmpty()) << step;
    }
}

TEST_F(FindSWDFilesTest, FailuresOfTheFormsOnTheSecondRouteArePassedOver)
{
    office->setVersions("12.0", "12.0");
    for (const char* step : {"keyword", "hide", "unload"}) {
        forms().sFailing = step;
        steps.clear();
        FindSWDFiles();
        ASSERT_THAT(steps, Not(IsEmpty())) << step;
        EXPECT_TRUE(steps.back().starts_with("filter C:\\Gov")) << step;
        EXPECT_THAT(messages.reports, IsEmpty()) << step;
        EXPECT_EQ(goMousePointer().MousePointer(), 0) << step;
    }
}

TEST_F(FindSWDFilesTest, AFailureOfTheFormsBehindTheSearchIsReported)
{
    for (const char* step : {"keyword", "hide", "unload"}) {
        messages.reports.clear();
        fileSearch->answer = [this, step] {
            forms().sFailing = step;
            return paths(1);
        };
        answerYes();
        forms().sFailing.clear();
        FindSWDFiles();
        EXPECT_THAT(messages.tags(), ElementsAre("SWDSearchSupport.FindSWDFiles")) << step;
        EXPECT_EQ(office->applicationsAlive(), 0) << step;
        EXPECT_THAT(steps, Not(Contains("build"))) << step;
    }
}

TEST_F(FindSWDFilesTest, ASystemThatCannotBeAskedTakesTheFirstRoute)
{
    class SilentMachine : public FakeMachine {
    public:
        double systemVersion() override { throw RunTimeError(kInvalidCall); }
    };
    platform().machine = std::make_shared<SilentMachine>();
    find({});
    EXPECT_THAT(fileSearch->asked, SizeIs(1));
}

TEST_F(FindSWDFilesTest, AVersionThatCannotBeReadIsPassedOver)
{
    office->fail("Word.Version", 462);
    find({});
    EXPECT_THAT(fileSearch->asked, SizeIs(1));
    EXPECT_THAT(messages.reports, IsEmpty());
}

TEST_F(FindSWDFilesTest, AFailedSearchIsStoredAndReportedAndWordIsLeftWithoutQuit)
{
    fileSearch->nFailure = 429;
    gnErrNumber = 0;
    FindSWDFiles();
    ASSERT_THAT(messages.reports, SizeIs(1));
    EXPECT_EQ(messages.reports[0].sTag, "SWDSearchSupport.FindSWDFiles");
    EXPECT_EQ(messages.reports[0].nNumber, 429);
    EXPECT_EQ(gnErrNumber, 429);
    EXPECT_EQ(gsErrDescription, standardErrorDescription(429));
    EXPECT_THAT(office->calls(), Not(Contains("Word.Quit")));
    EXPECT_EQ(office->applicationsAlive(), 0);
    EXPECT_THAT(messages.boxes, IsEmpty());
}

TEST_F(FindSWDFilesTest, AFailedSearchLeavesNoNoticeAndNoLock)
{
    fileSearch->nFailure = 429;
    FindSWDFiles();
    EXPECT_THAT(steps, ElementsAre("refresh", "hide", "unload"));
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
}

TEST_F(FindSWDFilesTest, AWordThatDoesNotQuitIsReported)
{
    office->fail("Word.Quit", 462);
    find({});
    EXPECT_THAT(messages.tags(), ElementsAre("SWDSearchSupport.FindSWDFiles"));
    EXPECT_EQ(messages.reports[0].nNumber, 462);
    EXPECT_EQ(office->applicationsAlive(), 0);
}

TEST_F(FindSWDFilesTest, WithoutWordTheCallFailsAndNothingIsBusy)
{
    office->bWordInstalled = false;
    EXPECT_EQ(numberOfFailure([] { FindSWDFiles(); }), kCannotCreateObject);
    EXPECT_EQ(goMousePointer().MousePointer(), 0);
    EXPECT_THAT(steps, IsEmpty());
    EXPECT_THAT(messages.reports, IsEmpty());
}

} // namespace
} // namespace zorvo
