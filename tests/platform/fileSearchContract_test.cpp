#include "base/RunTimeError.h"
#include "platform/Platform.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/filesearch/LinuxFileSearch.h"
#include "tests/fakes/FakeFileSearch.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What the port promises, held against the file system and against the fake that stands in for it.
struct RealSearch {
    TemporaryFolder folder;
    LinuxFiles files{DosPaths(folder.path())};
    LinuxFileSearch search{DosPaths(folder.path()), folder / "cache/search.db"};
};

struct FakeSearch {
    FakePlatform platform;
    FakeFiles& files = *platform.files;
    FakeFileSearch search;
};

template <typename Side>
class FileSearchContract : public testing::Test {
protected:
    FileSearchContract() { side.files.makeFolder("C:\\lib"); }

    void add(const std::string& sName, const std::string& sText)
    {
        side.files.write("C:\\lib\\" + sName, sText);
    }
    static std::string rtf(const std::string& sText) { return "{\\rtf1\\ansi " + sText + "\\par}"; }

    std::vector<std::string> find(const std::string& sText, const std::string& sName = "*.rtf")
    {
        return side.search.find({"C:\\lib", sText, sName}, {});
    }

    Side side;
};

using Sides = testing::Types<RealSearch, FakeSearch>;
TYPED_TEST_SUITE(FileSearchContract, Sides);

TYPED_TEST(FileSearchContract, FindsTheFilesWithAllTheWordsInAnyOrder)
{
    this->add("both.rtf", this->rtf("Assets that are current"));
    this->add("one.rtf", this->rtf("Current liabilities"));
    this->add("phrase.rtf", this->rtf("the current assets"));
    EXPECT_THAT(this->find("Current Assets"), ElementsAre("C:\\lib\\both.rtf", "C:\\lib\\phrase.rtf"));
}

TYPED_TEST(FileSearchContract, MatchesWholeWordsWithoutRegardToCase)
{
    this->add("a.rtf", this->rtf("ACCOUNT"));
    this->add("b.rtf", this->rtf("accounts"));
    this->add("c.rtf", this->rtf("Na\\'efve \\'e9t\\'e9"));
    EXPECT_THAT(this->find("account"), ElementsAre("C:\\lib\\a.rtf"));
    EXPECT_THAT(this->find("\u00C9T\u00C9"), ElementsAre("C:\\lib\\c.rtf"));
    EXPECT_THAT(this->find("t"), IsEmpty());
}

TYPED_TEST(FileSearchContract, WildcardsStandForOneCharacterAndForAnyNumber)
{
    this->add("a.rtf", this->rtf("gray"));
    this->add("b.rtf", this->rtf("grey"));
    this->add("c.rtf", this->rtf("gruay"));
    EXPECT_THAT(this->find("gr?y"), ElementsAre("C:\\lib\\a.rtf", "C:\\lib\\b.rtf"));
    EXPECT_THAT(this->find("gr*y"), ElementsAre("C:\\lib\\a.rtf", "C:\\lib\\b.rtf", "C:\\lib\\c.rtf"));
}

TYPED_TEST(FileSearchContract, LooksAtOneExtensionInAnyCase)
{
    this->add("a.rtf", this->rtf("cash"));
    this->add("b.RTF", this->rtf("cash"));
    this->add("c.rtfx", this->rtf("cash"));
    this->add("d.txt", "cash");
    this->add("rtf", "cash");
    EXPECT_THAT(this->find("cash"), ElementsAre("C:\\lib\\a.rtf", "C:\\lib\\b.RTF"));
    EXPECT_THAT(this->find("cash", "*.TXT"), ElementsAre("C:\\lib\\d.txt"));
}

TYPED_TEST(FileSearchContract, WithoutAPatternOfNamesLooksAtAll)
{
    this->add("a.rtf", this->rtf("cash"));
    this->add("d.txt", "cash");
    EXPECT_THAT(this->find("cash", ""), ElementsAre("C:\\lib\\a.rtf", "C:\\lib\\d.txt"));
}

TYPED_TEST(FileSearchContract, LeavesSubFoldersOut)
{
    this->side.files.makeFolder("C:\\lib\\sub.rtf");
    this->side.files.write("C:\\lib\\sub.rtf\\a.rtf", this->rtf("cash"));
    EXPECT_THAT(this->find("cash"), IsEmpty());
}

TYPED_TEST(FileSearchContract, SortsByNameWithoutRegardToCase)
{
    for (const char* name : {"b.rtf", "A.rtf", "\u00E4.rtf", "C.rtf", "a2.rtf"})
        this->add(name, this->rtf("cash"));
    EXPECT_THAT(this->find("cash"), ElementsAre("C:\\lib\\A.rtf", "C:\\lib\\a2.rtf", "C:\\lib\\b.rtf",
                                                "C:\\lib\\C.rtf", "C:\\lib\\\u00E4.rtf"));
}

TYPED_TEST(FileSearchContract, AFolderThatIsNotThereHasNoFiles)
{
    for (const char* folder : {"", "C:\\none", "Q:\\lib", "lib"})
        EXPECT_THAT(this->side.search.find({folder, "cash", "*.rtf"}, {}), IsEmpty()) << folder;
}

TYPED_TEST(FileSearchContract, AFolderMayEndInABackslash)
{
    this->add("a.rtf", this->rtf("cash"));
    EXPECT_THAT(this->side.search.find({"C:\\lib\\", "cash", "*.rtf"}, {}), ElementsAre("C:\\lib\\a.rtf"));
}

TYPED_TEST(FileSearchContract, BlanksAskForNothingSoThatEveryFileAnswers)
{
    this->add("a.rtf", this->rtf("cash"));
    this->add("b.rtf", this->rtf(""));
    EXPECT_THAT(this->find("   "), ElementsAre("C:\\lib\\a.rtf", "C:\\lib\\b.rtf"));
}

TYPED_TEST(FileSearchContract, AStarAsksForAWord)
{
    this->add("a.rtf", this->rtf("cash"));
    this->add("b.rtf", this->rtf("..."));
    EXPECT_THAT(this->find("*"), ElementsAre("C:\\lib\\a.rtf"));
}

TYPED_TEST(FileSearchContract, MarksWithoutAWordFindNothing)
{
    this->add("a.rtf", this->rtf("cash \"--\" %"));
    for (const char* text : {"\"\"", "%", "--", "'"})
        EXPECT_THAT(this->find(text), IsEmpty()) << text;
}

TYPED_TEST(FileSearchContract, QuotesAndCharactersOfExpressionsPartWords)
{
    this->add("a.rtf", this->rtf("Section 401(k): the company's long-term plan [x] a+b $5"));
    for (const char* text :
         {"\"long-term\"", "401(k)", "company", "company's", "[x]", "^a+b$", "(plan)|x", "\\long"})
        EXPECT_THAT(this->find(text), ElementsAre("C:\\lib\\a.rtf")) << text;
    EXPECT_THAT(this->find(".*"), ElementsAre("C:\\lib\\a.rtf"));
    EXPECT_THAT(this->find("[a-z]+nothing"), IsEmpty());
}

TYPED_TEST(FileSearchContract, AKeywordOfTenThousandCharactersIsSearchedFor)
{
    const std::string sLong(10'000, 'x');
    this->add("a.rtf", this->rtf("cash " + sLong));
    EXPECT_THAT(this->find(sLong), ElementsAre("C:\\lib\\a.rtf"));
    EXPECT_THAT(this->find(sLong + "y"), IsEmpty());
    std::string sWords;
    for (int i = 0; i < 5'000; ++i)
        sWords += "c ";
    EXPECT_THAT(this->find(sWords), IsEmpty());
    EXPECT_THAT(this->find(std::string(10'000, '?')), ElementsAre("C:\\lib\\a.rtf"));
}

TYPED_TEST(FileSearchContract, OwnerFilesOfOpenDocumentsAreNoExamples)
{
    this->add("~$a.rtf", "cash");
    EXPECT_THAT(this->find("cash"), IsEmpty());
}

TYPED_TEST(FileSearchContract, ReadsAFileAsItIsNow)
{
    this->add("a.rtf", this->rtf("cash"));
    EXPECT_THAT(this->find("cash"), ElementsAre("C:\\lib\\a.rtf"));
    this->add("a.rtf", this->rtf("debt"));
    EXPECT_THAT(this->find("cash"), IsEmpty());
    EXPECT_THAT(this->find("debt"), ElementsAre("C:\\lib\\a.rtf"));
    this->side.files.remove("C:\\lib\\a.rtf");
    EXPECT_THAT(this->find("debt"), IsEmpty());
}

} // namespace
} // namespace zorvo
