#include "branding/sRebrand.h"

#include "base/RunTimeError.h"
#include "tests/branding/BrandingTest.h"
#include "tests/branding/captionXml.h"
#include "tests/branding/literalRebrand.h"
#include "tests/branding/randomTexts.h"

namespace zorvo {

class RebrandTest : public BrandingTest {
protected:
    RebrandTest() { StoreCompanyID("ABC"); }

    static std::string rebranded(const std::string& sText) { return sRebrand(sText, false); }

    void putPairs(const std::string& sPairs) { putCaptions("<Rebrand>" + sPairs + "</Rebrand>"); }
};

TEST_F(RebrandTest, LeavesTheDefaultCompanysTextButForTheOptionPhrases)
{
    StoreCompanyID("Zorvo");
    putPairs("<Find1>Brendle</Find1><Replace1>X</Replace1>");
    EXPECT_EQ(rebranded("Zorvo's Brendle option 6"), "Zorvo's Brendle");
    EXPECT_FALSE(bCaptionsLoaded());
    EXPECT_TRUE(fakes.files->calls.empty()) << "no document is read";
}

TEST_F(RebrandTest, PutsTheCompanyInPlaceOfTheHouseWord)
{
    EXPECT_EQ(rebranded("Zorvo's Brendle"), "ABC's Brendle");
    EXPECT_EQ(rebranded("Zorvo"), "ABC");
    EXPECT_EQ(rebranded("Zorvo 9"), "ABC 9");
    EXPECT_EQ(rebranded("Zorvo, Zorvo; Zorvo"), "ABC, ABC; ABC");
    EXPECT_EQ(rebranded(""), "");
    EXPECT_EQ(rebranded("nothing to do"), "nothing to do");
}

TEST_F(RebrandTest, LeavesTheWordInOtherSpellings)
{
    EXPECT_EQ(rebranded("ZORVO zorvo zORVO ZorvO"), "ZORVO zorvo zORVO ZorvO");
}

TEST_F(RebrandTest, LeavesTheWordWhereItIsPartOfANameOrAPath)
{
    for (const char* sText :
         {"Zorvonet",  "clsZorvoTree", "clsZorvo", "Zorvo_Company", "Zorvo_",      "my.Zorvo",
          ".Zorvo",    "C:\\Zorvo\\x", "\\Zorvo",  "Zorvo\\",       "zorvo\\data", "\\zorvo",
          "\\zorvo\\", "ZorvoZorvo",   ".Zorvo_",  "Zorvo9",        "Zorvo0",      "ZorvoA",
          "ZorvoZ",    "Zorvoa",       "Zorvoz",   "zorvo9",        "zorvoz"})
        EXPECT_EQ(rebranded(sText), sText);
}

TEST_F(RebrandTest, DoesNotProtectTheWordBehindALetter)
{
    EXPECT_EQ(rebranded("xZorvo "), "xABC ");
}

TEST_F(RebrandTest, DoesNotProtectTheWordBeforeSignsBesideDigitsAndLetters)
{
    // The neighbours of the three ranges in the character table.
    for (const char* sSign : {"/", ":", "@", "[", "`", "{", "'", "-", "\xC3\xA9"})
        EXPECT_EQ(rebranded(std::string("Zorvo") + sSign), std::string("ABC") + sSign);
}

TEST_F(RebrandTest, DoublesAreHiddenFromTheLeft)
{
    EXPECT_EQ(rebranded("ZorvoZorvoZorvo"), "ZorvoZorvoABC");
    EXPECT_EQ(rebranded("ZorvoZorvoZorvoZorvo"), "ZorvoZorvoZorvoZorvo");
    EXPECT_EQ(rebranded("ZorvoZorvo9"), "ZorvoZorvo9");
}

TEST_F(RebrandTest, ACharacterProtectsOnlyOneOfTwoWords)
{
    EXPECT_EQ(rebranded("Zorvo.Zorvo"), "ABC.Zorvo");
    EXPECT_EQ(rebranded("Zorvo\\Zorvo"), "ABC\\Zorvo") << "the one behind the separator comes first";
    EXPECT_EQ(rebranded("ZorvoclsZorvo"), "ABCclsZorvo");
    EXPECT_EQ(rebranded("Zorvo\\zorvo"), "Zorvo\\zorvo") << "the upper-case word takes the separator";
    EXPECT_EQ(rebranded("Zorvo_Zorvo"), "Zorvo_ABC");
}

TEST_F(RebrandTest, TheCharacterBehindAWordIsTakenInTheOrderOfTheCodes)
{
    // "zorvoZ" comes before "Zorvoa", and so takes the second word's first letter.
    EXPECT_EQ(rebranded("zorvoZorvoa"), "zorvoZorvoa");
    EXPECT_EQ(rebranded("zorvoZorvo"), "zorvoZorvo");
    EXPECT_EQ(rebranded("zorvoZorvo9zorvoZorvo "), "zorvoZorvo9zorvoZorvo ");
    EXPECT_EQ(rebranded("Zorvozorvo\\"), "ABCzorvo\\") << "the lower-case word was hidden before";
    EXPECT_EQ(rebranded("Zorvozorvo9"), "ABCzorvo9") << "9 comes before z";
}

TEST_F(RebrandTest, RebrandsTheTwoExemptFileNamesAlone)
{
    EXPECT_EQ(rebranded("ZorvoSysSupport.txt"), "ABCSysSupport.txt");
    EXPECT_EQ(rebranded("ZorvoSysInfo.txt"), "ABCSysInfo.txt");
    EXPECT_EQ(rebranded("x ZorvoSysInfo.txt"), "x ZorvoSysInfo.txt") << "the whole text is compared";
    EXPECT_EQ(rebranded("ZorvoSysInfo.TXT"), "ZorvoSysInfo.TXT");
}

TEST_F(RebrandTest, JudgesTheExemptionByTheTextBeforeThePairs)
{
    putPairs("<Find1>Q</Find1><Replace1>Zorvo</Replace1><Find2>.txt</Find2><Replace2>.log[~~0~]</Replace2>");
    EXPECT_EQ(rebranded("QSysInfo.txt"), "ZorvoSysInfo.logZorvoZorvo");
    EXPECT_EQ(rebranded("ZorvoSysInfo.txt"), "ABCSysInfo.log[~~0~]")
        << "nothing is restored in an exempt name";
}

TEST_F(RebrandTest, ShowsOneCompanyWithAnAmpersand)
{
    StoreCompanyID("OTR");
    EXPECT_EQ(sRebrand("About Zorvo", true), "About OT&&R");
    EXPECT_EQ(sRebrand("About Zorvo", false), "About OT&R");
    StoreCompanyID("ABC");
    EXPECT_EQ(sRebrand("About Zorvo", true), "About ABC");
}

TEST_F(RebrandTest, BringsBackTokensThatTheTextHeldItself)
{
    EXPECT_EQ(rebranded("[~~5~]"), "Zorvo\\");
    EXPECT_EQ(rebranded("[~~0~][~~1~][~~2~][~~3~]"), "ZorvoZorvo.ZorvoZorvo_clsZorvo");
    EXPECT_EQ(rebranded("[~~4~][~~6~][~~7~][~~8~]"), "\\Zorvo\\zorvozorvo\\[~~8~]");
    EXPECT_EQ(rebranded("[~nU~] [~9l~] [~nL~]"), "Zorvon zorvo9 [~nL~]");
}

TEST_F(RebrandTest, BringsBackATokenThatTheCompanysNameCompletes)
{
    StoreCompanyID("0");
    EXPECT_EQ(rebranded("[~~Zorvo~]"), "ZorvoZorvo");
    StoreCompanyID("[~~3~]");
    EXPECT_EQ(rebranded("Zorvo!"), "clsZorvo!");
}

TEST_F(RebrandTest, LeavesTheWordInTheCompanysOwnName)
{
    StoreCompanyID("New Zorvo");
    EXPECT_EQ(rebranded("Zorvo and Zorvo"), "New Zorvo and New Zorvo");
}

TEST_F(RebrandTest, RemovesTheOptionPhrasesInTheirOrder)
{
    EXPECT_EQ(rebranded("a option 6b Option 6c option 8d Option 8e"), "abcde");
    EXPECT_EQ(rebranded("option 6"), "option 6") << "the blank belongs to the phrase";
    EXPECT_EQ(rebranded(" option 7 OPTION 6"), " option 7 OPTION 6");
    EXPECT_EQ(rebranded(" opt option 6ion 6"), " option 6") << "what a removal joins is not searched again";
    EXPECT_EQ(rebranded(" opt option 6ion 8"), "") << "but a later phrase finds it";
    EXPECT_EQ(rebranded(" opt option 8ion 6"), " option 6");
}

TEST_F(RebrandTest, RunsThePairsFirstOnTheRawText)
{
    putPairs("<Find1>Zorvo</Find1><Replace1>Acme</Replace1>");
    EXPECT_EQ(rebranded("Zorvo's Zorvonet"), "Acme's Acmenet");
}

TEST_F(RebrandTest, RunsThePairsInTheirOrderOverEveryOccurrence)
{
    putPairs("<Find1>a</Find1><Replace1>b</Replace1><Find2>b</Find2><Replace2>cb</Replace2>");
    EXPECT_EQ(rebranded("aabA"), "cbcbcbA");
}

TEST_F(RebrandTest, DeletesTheFindTextOfAPairWithAnEmptyReplacement)
{
    putPairs("<Find1>very</Find1><Replace1/>");
    EXPECT_EQ(rebranded("very very Zorvo"), "  ABC");
}

TEST_F(RebrandTest, LoadsTheCaptionDocumentOnceWhenNoneIsThere)
{
    putPairs("<Find1>a</Find1><Replace1>b</Replace1>");
    ASSERT_FALSE(bCaptionsLoaded());
    EXPECT_EQ(rebranded("a"), "b");
    EXPECT_TRUE(bCaptionsLoaded());
    const std::size_t nReads = fakes.files->calls.size();
    EXPECT_EQ(rebranded("a"), "b");
    EXPECT_EQ(fakes.files->calls.size(), nReads);
}

TEST_F(RebrandTest, DoesNotLookAgainForAMissingCaptionFile)
{
    EXPECT_EQ(rebranded("a Zorvo"), "a ABC");
    putPairs("<Find1>a</Find1><Replace1>b</Replace1>");
    EXPECT_EQ(rebranded("a Zorvo"), "a ABC");
    ReleaseCaptions();
    EXPECT_EQ(rebranded("a Zorvo"), "b ABC");
}

TEST_F(RebrandTest, FollowsAReplacedDocumentAtOnce)
{
    putPairs("<Find1>a</Find1><Replace1>b</Replace1>");
    EXPECT_EQ(rebranded("a"), "b");
    putPairs("<Find1>a</Find1><Replace1>c</Replace1>");
    xmlCaptionLoader();
    EXPECT_EQ(rebranded("a"), "c");
    captionState() = CaptionState();
    putPairs("<Find1>a</Find1><Replace1>d</Replace1>");
    EXPECT_EQ(rebranded("a"), "d");
}

TEST_F(RebrandTest, FollowsTheCompanyAtOnceAndKeepsTheDocumentThatIsLoaded)
{
    putPairs("<Find1>a</Find1><Replace1>b</Replace1>");
    fakes.files->addFile("C:\\Zorvo\\XYZ\\xmlCaptions.xml",
                         "<Captions><Rebrand><Find1>a</Find1><Replace1>c</Replace1></Rebrand></Captions>");
    EXPECT_EQ(rebranded("a Zorvo"), "b ABC");
    StoreCompanyID("XYZ");
    EXPECT_EQ(rebranded("a Zorvo"), "b XYZ");
    ReleaseCaptions();
    EXPECT_EQ(rebranded("a Zorvo"), "c XYZ");
    StoreCompanyID("Zorvo");
    EXPECT_EQ(rebranded("a Zorvo"), "a Zorvo");
}

TEST_F(RebrandTest, OverflowsWhenThePairsPassSixteenBits)
{
    std::string sPairs;
    for (int n = 1; n <= 32767; ++n)
        sPairs += pairXml(n, "a", "a");
    putPairs(sPairs);
    try {
        rebranded("text");
        FAIL() << "no overflow";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), kOverflow);
    }
    EXPECT_THROW(rebranded("text"), RunTimeError) << "at each call anew";
}

TEST_F(RebrandTest, EqualsThePassByPassRuleOnRandomTexts)
{
    constexpr int kTexts = 10000; // the benchmark goes over a million
    constexpr int kTextsPerDocument = 40;
    RandomTexts random(20240607);
    for (int i = 0; i < kTexts; ++i) {
        if (i % kTextsPerDocument == 0) {
            StoreCompanyID(random.company());
            XmlDocument document;
            ASSERT_TRUE(document.loadXML(random.captionDocument()));
            captionState().setDocument(document);
        }
        const std::string sText = random.text();
        const bool bEscape = random.coin();
        ASSERT_EQ(sRebrand(sText, bEscape), literalRebrand(sText, bEscape))
            << "company " << GetCompanyID() << ", text " << sText;
    }
}

TEST(BIsLetter, HoldsForTheFirstCharacterInBothAlphabetsBoundsIncluded)
{
    for (const char* s : {"A", "Z", "a", "z", "M9", "m "})
        EXPECT_TRUE(bIsLetter(s)) << s;
    for (const char* s : {"@", "[", "`", "{", "0", "9", " A", "\xC3\x84", ""})
        EXPECT_FALSE(bIsLetter(s)) << s;
}

} // namespace zorvo
