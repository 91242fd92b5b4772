#include "branding/xmlCaptionLoaderManager.h"

#include "base/RunTimeError.h"
#include "tests/branding/BrandingTest.h"

#include <gmock/gmock.h>

#include <functional>

namespace zorvo {

namespace {

using testing::ElementsAre;

struct Getter {
    const char* sPath; // below Captions
    std::string (*read)();
};

constexpr Getter kGetters[] = {
    {"TemplateTreeCaptions/DialogTitle", sGetDialogTitle},
    {"TemplateTreeCaptions/TreeLabel_both", sGetTreeLabelBoth},
    {"TemplateTreeCaptions/TreeLabel_qbkonly", sGetTreeLabelQbkOnly},
    {"TemplateTreeCaptions/TreeLabel_tsronly", sGetTreeLabelTsrOnly},
    {"TemplateTreeCaptions/CategoryDescrProduct", sGetCategoryDescrProduct},
    {"TemplateTreeCaptions/CategoryDescrCategeory", sGetCategoryDescrCategeory},
    {"TemplateTreeCaptions/CategoryDescrDocument", sGetCategoryDescrDocument},
    {"AboutDialog/Warning", sGetAboutWarning},
    {"Web/ContactUs", sGetWebContactUs},
    {"Web/OnTheWeb1", sGetWebOnTheWeb1},
    {"Web/OnTheWeb2", sGetWebOnTheWeb2},
    {"Web/OnTheWeb3", sGetWebOnTheWeb3},
    {"Web/QuickTour", sGetWebQuickTour},
    {"Web/MyAccount", sGetWebMyAccount},
};

/// `<A><B>text</B></A>` for "A/B".
std::string elementAt(const std::string& sPath, const std::string& sText)
{
    const auto nSlash = sPath.find('/');
    const std::string sOuter = sPath.substr(0, nSlash);
    const std::string sInner = sPath.substr(nSlash + 1);
    return "<" + sOuter + "><" + sInner + ">" + sText + "</" + sInner + "></" + sOuter + ">";
}

std::vector<std::string> pairsRead()
{
    std::vector<std::string> pairs;
    std::string sFind;
    std::string sReplace;
    for (std::int16_t n = 1; bGetRebrandPair(n, sFind, sReplace); ++n)
        pairs.push_back(std::string(sFind).append(">").append(sReplace));
    return pairs;
}

void expectAllCaptionsEmpty()
{
    for (const Getter& getter : kGetters)
        EXPECT_EQ(getter.read(), "") << getter.sPath;
}

} // namespace

class CaptionDocument : public BrandingTest {
protected:
    void loadCaptions(const std::string& sInner)
    {
        putCaptions(sInner);
        xmlCaptionLoader();
    }

    void loadBytes(const std::string& sBytes)
    {
        fakes.files->addFile("C:\\Zorvo\\xmlCaptions.xml", sBytes);
        xmlCaptionLoader();
    }
};

class CaptionGetter : public CaptionDocument, public testing::WithParamInterface<Getter> {};

TEST_P(CaptionGetter, ReadsItsPathWithoutTheBlanksAround)
{
    loadCaptions(elementAt(GetParam().sPath, "  The  text "));
    for (const Getter& getter : kGetters) {
        const bool bOwn = std::string(getter.sPath) == GetParam().sPath;
        EXPECT_EQ(getter.read(), bOwn ? "The  text" : "") << getter.sPath;
    }
}

TEST_P(CaptionGetter, GivesTheEmptyTextForAnEmptyElement)
{
    loadCaptions(elementAt(GetParam().sPath, ""));
    EXPECT_EQ(GetParam().read(), "");
}

INSTANTIATE_TEST_SUITE_P(All, CaptionGetter, testing::ValuesIn(kGetters), [](const auto& tested) {
    std::string sName = tested.param.sPath;
    for (char& c : sName)
        c = c == '/' || c == '_' ? 'x' : c;
    return sName;
});

TEST_F(CaptionDocument, TrimsBlanksAloneAndNoOtherWhiteSpace)
{
    loadCaptions(elementAt("Web/ContactUs", " \t text\n "));
    EXPECT_EQ(sGetWebContactUs(), "\t text\n");
}

TEST_F(CaptionDocument, DoesNotFindACorrectlySpelledCategory)
{
    loadCaptions(elementAt("TemplateTreeCaptions/CategoryDescrCategory", "Category"));
    EXPECT_EQ(sGetCategoryDescrCategeory(), "");
}

TEST_F(CaptionDocument, MustHaveItsOwnRoot)
{
    loadBytes("<captions><Web><ContactUs>x</ContactUs></Web></captions>");
    EXPECT_EQ(sGetWebContactUs(), "");
}

TEST_F(CaptionDocument, IsAbsentUntilLoadedAndEveryCaptionEmptyThen)
{
    putCaptions(elementAt("Web/ContactUs", "x"));
    EXPECT_FALSE(bCaptionsLoaded());
    expectAllCaptionsEmpty();
    EXPECT_FALSE(bCaptionsLoaded()) << "a getter loads nothing";
    EXPECT_TRUE(fakes.files->calls.empty());
}

TEST_F(CaptionDocument, IsAbsentAgainAfterTheRelease)
{
    loadCaptions(elementAt("Web/ContactUs", "x") +
                 "<Rebrand><Find1>a</Find1><Replace1>b</Replace1></Rebrand>");
    ASSERT_EQ(sGetWebContactUs(), "x");
    ASSERT_THAT(pairsRead(), ElementsAre("a>b"));
    ReleaseCaptions();
    EXPECT_FALSE(bCaptionsLoaded());
    EXPECT_EQ(sGetWebContactUs(), "");
    EXPECT_TRUE(pairsRead().empty());
    EXPECT_TRUE(captionState().rebrandPairs().pairs.empty());
}

TEST_F(CaptionDocument, ReplacesAnEarlierOneWhenLoadedAgain)
{
    loadCaptions(elementAt("Web/ContactUs", "old") +
                 "<Rebrand><Find1>a</Find1><Replace1>b</Replace1></Rebrand>");
    ASSERT_EQ(captionState().rebrandPairs().pairs.size(), 1U);
    loadCaptions(elementAt("Web/ContactUs", "new"));
    EXPECT_EQ(sGetWebContactUs(), "new");
    EXPECT_TRUE(pairsRead().empty());
    EXPECT_TRUE(captionState().rebrandPairs().pairs.empty());
}

TEST_F(CaptionDocument, ComesFromTheCompanysFolderFirst)
{
    StoreCompanyID("ABC");
    putCaptions(elementAt("Web/ContactUs", "base"));
    fakes.files->addFile("C:\\Zorvo\\Images\\xmlCaptions.xml",
                         "<Captions>" + elementAt("Web/ContactUs", "pictures") + "</Captions>");
    fakes.files->addFile("C:\\Zorvo\\ABC\\xmlCaptions.xml",
                         "<Captions>" + elementAt("Web/ContactUs", "company") + "</Captions>");
    xmlCaptionLoader();
    EXPECT_EQ(sGetWebContactUs(), "company");
}

TEST_F(CaptionDocument, MayLieAmongThePictures)
{
    putCaptions(elementAt("Web/ContactUs", "base"));
    fakes.files->addFile("C:\\Zorvo\\Images\\xmlCaptions.xml",
                         "<Captions>" + elementAt("Web/ContactUs", "pictures") + "</Captions>");
    xmlCaptionLoader();
    EXPECT_EQ(sGetWebContactUs(), "pictures");
}

TEST_F(CaptionDocument, CountsAsLoadedWhenItsFileIsMissing)
{
    xmlCaptionLoader();
    EXPECT_TRUE(bCaptionsLoaded());
    expectAllCaptionsEmpty();
    EXPECT_TRUE(pairsRead().empty());
    EXPECT_TRUE(reports.empty());
}

class BrokenCaptionFile : public CaptionDocument, public testing::WithParamInterface<const char*> {};

TEST_P(BrokenCaptionFile, LeavesAnEmptyDocumentAndReportsNothing)
{
    loadBytes(GetParam());
    EXPECT_TRUE(bCaptionsLoaded());
    expectAllCaptionsEmpty();
    EXPECT_TRUE(pairsRead().empty());
    EXPECT_TRUE(reports.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Files, BrokenCaptionFile,
    testing::Values("", "no XML at all", "<Captions><Web><ContactUs>x</ContactUs></Web>",
                    "<Captions><Web><ContactUs>x</Web></ContactUs></Captions>",
                    "<Captions><Web><ContactUs>\xE9 is no UTF-8</ContactUs></Web></Captions>",
                    "<Captions><Web><ContactUs>&unknown;</ContactUs></Web></Captions>"));

TEST_F(CaptionDocument, IsEmptyAndSilentWhenItsFileCannotBeRead)
{
    putCaptions(elementAt("Web/ContactUs", "x"));
    fakes.files->failOn(FakeFiles::Operation::read, "C:\\Zorvo\\xmlCaptions.xml", kPermissionDenied);
    xmlCaptionLoader();
    EXPECT_TRUE(bCaptionsLoaded());
    EXPECT_EQ(sGetWebContactUs(), "");
    EXPECT_TRUE(reports.empty());
}

TEST_F(CaptionDocument, IsReadFromWindows1252)
{
    loadBytes("<?xml version=\"1.0\" encoding=\"windows-1252\"?><Captions><Web><ContactUs>caf\xE9 \x97 "
              "\x92</ContactUs>"
              "</Web></Captions>");
    EXPECT_EQ(sGetWebContactUs(), "caf\xC3\xA9 \xE2\x80\x94 \xE2\x80\x99");
}

TEST_F(CaptionDocument, TakesTheFirstOfTwoElementsOfOneName)
{
    loadCaptions("<Web><ContactUs>first</ContactUs></Web><Web><ContactUs>second</ContactUs></Web>");
    EXPECT_EQ(sGetWebContactUs(), "first");
}

namespace {
/// A disk that fails in a way that no missing file does.
class FailingFiles : public FakeFiles {
public:
    bool fileExists(const std::string& /*path*/) override { throw RunTimeError(57, "Device I/O error"); }
};
} // namespace

TEST_F(CaptionDocument, StoresAndReportsAFailureOfTheLoaderItself)
{
    platform().files = std::make_shared<FailingFiles>();
    xmlCaptionLoader();
    EXPECT_EQ(gnErrNumber, 57);
    EXPECT_EQ(gsErrDescription, "Device I/O error");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].sTag, "xmlCaptionLoaderManager.xmlCaptionLoader");
    EXPECT_EQ(reports[0].sMessage, std::nullopt);
    EXPECT_TRUE(bCaptionsLoaded()) << "the empty document stays";
    expectAllCaptionsEmpty();
}

using RebrandPairTest = CaptionDocument;

TEST_F(RebrandPairTest, IsFalseWithoutADocument)
{
    std::string sFind = "f";
    std::string sReplace = "r";
    EXPECT_FALSE(bGetRebrandPair(1, sFind, sReplace));
    EXPECT_EQ(sFind, "f");
    EXPECT_EQ(sReplace, "r");
}

TEST_F(RebrandPairTest, TrimsBothTexts)
{
    loadCaptions("<Rebrand><Find1>  a b </Find1><Replace1> c </Replace1></Rebrand>");
    EXPECT_THAT(pairsRead(), ElementsAre("a b>c"));
}

TEST_F(RebrandPairTest, EndsAtTheFirstMissingFind)
{
    loadCaptions("<Rebrand><Find1>a</Find1><Replace1>b</Replace1><Replace2>d</Replace2>"
                 "<Find3>e</Find3><Replace3>f</Replace3></Rebrand>");
    EXPECT_THAT(pairsRead(), ElementsAre("a>b"));
}

TEST_F(RebrandPairTest, EndsAtTheFirstMissingReplaceWithoutApplyingThatPair)
{
    loadCaptions("<Rebrand><Find1>a</Find1><Replace1>b</Replace1><Find2>c</Find2>"
                 "<Find3>e</Find3><Replace3>f</Replace3></Rebrand>");
    EXPECT_THAT(pairsRead(), ElementsAre("a>b"));
    std::string sFind;
    std::string sReplace = "untouched";
    EXPECT_FALSE(bGetRebrandPair(2, sFind, sReplace));
    EXPECT_EQ(sFind, "c") << "the find text got that far";
    EXPECT_EQ(sReplace, "untouched");
}

TEST_F(RebrandPairTest, AppliesNoPairWhenTheFirstFindIsEmpty)
{
    loadCaptions(
        "<Rebrand><Find1> </Find1><Replace1>b</Replace1><Find2>c</Find2><Replace2>d</Replace2></Rebrand>");
    EXPECT_TRUE(pairsRead().empty());
    std::string sFind;
    std::string sReplace;
    EXPECT_FALSE(bGetRebrandPair(1, sFind, sReplace));
    EXPECT_EQ(sReplace, "b") << "the replacement is read before the find text is judged";
}

TEST_F(RebrandPairTest, TakesAnEmptyReplaceAsADeletion)
{
    loadCaptions("<Rebrand><Find1>a</Find1><Replace1/></Rebrand>");
    EXPECT_THAT(pairsRead(), ElementsAre("a>"));
}

TEST_F(RebrandPairTest, StartsAtOneAndKnowsNoLeadingZeros)
{
    loadCaptions("<Rebrand><Find0>z</Find0><Replace0>z</Replace0><Find01>y</Find01><Replace01>y</Replace01></"
                 "Rebrand>");
    EXPECT_TRUE(pairsRead().empty());
}

TEST_F(RebrandPairTest, FindsPairsInAnyOrderAndAcrossGroups)
{
    loadCaptions("<Rebrand><Replace2>d</Replace2><Find2>c</Find2></Rebrand>"
                 "<Rebrand><Replace1>b</Replace1><Find1>a</Find1><Find2>later</Find2></Rebrand>");
    EXPECT_THAT(pairsRead(), ElementsAre("a>b", "c>d"));
}

TEST_F(RebrandPairTest, LooksAtPlainNamesBelowTheGroupAlone)
{
    loadCaptions("<Rebrand xmlns:n=\"urn:n\"><n:Find1>a</n:Find1><n:Replace1>b</n:Replace1></Rebrand>"
                 "<Rebrand><Inner><Find1>a</Find1><Replace1>b</Replace1></Inner></Rebrand>"
                 "<Find1>a</Find1><Replace1>b</Replace1>");
    EXPECT_TRUE(pairsRead().empty());
}

TEST_F(RebrandPairTest, ListsAllPairsOfADocumentOnce)
{
    loadCaptions("<Rebrand><Find1>a</Find1><Replace1>b</Replace1><Find2>c</Find2><Replace2/></Rebrand>");
    const RebrandPairs& pairs = captionState().rebrandPairs();
    ASSERT_EQ(pairs.pairs.size(), 2U);
    EXPECT_EQ(pairs.pairs[1].sFind, "c");
    EXPECT_EQ(pairs.pairs[1].sReplace, "");
    EXPECT_FALSE(pairs.bPastLastNumber);
    EXPECT_EQ(&captionState().rebrandPairs(), &pairs);
}

} // namespace zorvo
