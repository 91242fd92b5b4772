#include "tree/FindFiles.h"

#include "tests/tree/TreeTest.h"

namespace zorvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FindFilesTest : public TreeTest {
protected:
    std::vector<std::string> find(const std::string& sPattern, const std::string& sContains = {},
                                  bool bNotContains = false, bool bRecurse = false)
    {
        std::vector<std::string> records;
        nCount = 0;
        FindFiles("c:\\Work\\", sPattern, sContains, bNotContains, records, nCount, bRecurse);
        EXPECT_EQ(nCount, static_cast<int>(records.size()));
        return records;
    }

    int nCount = 0;
};

TEST_F(FindFilesTest, GivesFullPathsWithTheirFirstCharacterInUpperCase)
{
    fakes.files->addFile("C:\\Work\\a.ico");
    EXPECT_THAT(find("*.ico"), ElementsAre("C:\\Work\\a.ico"));
}

TEST_F(FindFilesTest, AppendsToWhatIsThere)
{
    fakes.files->addFile("C:\\Work\\a.ico");
    std::vector<std::string> records{"first"};
    nCount = 1;
    FindFiles("C:\\Work\\", "*.ico", "", false, records, nCount, false);
    EXPECT_THAT(records, ElementsAre("first", "C:\\Work\\a.ico"));
    EXPECT_EQ(nCount, 2);
}

TEST_F(FindFilesTest, ListsAFolderThatMatchesLikeAFile)
{
    fakes.files->addFolder("C:\\Work\\folder.ico");
    EXPECT_THAT(find("*.ico"), ElementsAre("C:\\Work\\folder.ico"));
}

TEST_F(FindFilesTest, StaysInTheFolderUnlessAskedToRecurse)
{
    fakes.files->addFile("C:\\Work\\a.ico");
    fakes.files->addFile("C:\\Work\\deep\\b.ico");
    fakes.files->addFile("C:\\Work\\deep\\deeper\\c.ico");
    EXPECT_THAT(find("*.ico"), ElementsAre("C:\\Work\\a.ico"));
    EXPECT_THAT(find("*.ico", "", false, true),
                ElementsAre("C:\\Work\\a.ico", "C:\\Work\\deep\\b.ico", "C:\\Work\\deep\\deeper\\c.ico"));
}

TEST_F(FindFilesTest, TakesFilesThatHoldATextOrThatDoNot)
{
    fakes.files->addFile("C:\\Work\\a.txt", "some TEXT here");
    fakes.files->addFile("C:\\Work\\b.txt", "nothing");
    EXPECT_THAT(find("*.txt", "text"), ElementsAre("C:\\Work\\a.txt"));
    EXPECT_THAT(find("*.txt", "text", true), ElementsAre("C:\\Work\\b.txt"));
}

TEST_F(FindFilesTest, AMissingFolderHoldsNothing)
{
    EXPECT_THAT(find("*.ico"), IsEmpty());
}

TEST_F(FindFilesTest, AFileThatCannotBeReadHoldsNoText)
{
    fakes.files->addFile("C:\\Work\\a.txt", "text");
    EXPECT_TRUE(FileContainsText("C:\\Work\\a.txt", "TEXT"));
    EXPECT_FALSE(FileContainsText("C:\\Work\\a.txt", "other"));
    EXPECT_FALSE(FileContainsText("C:\\Work\\gone.txt", "text"));
    fakes.files->failOn(FakeFiles::Operation::read, "C:\\Work\\a.txt", kPermissionDenied);
    EXPECT_FALSE(FileContainsText("C:\\Work\\a.txt", "text"));
}

TEST(MatchesPattern, KnowsStarsAndQuestionMarksWithoutRegardToCase)
{
    EXPECT_TRUE(MatchesPattern("Word16.ICO", "*.ico"));
    EXPECT_FALSE(MatchesPattern("Word16.icon", "*.ico"));
    EXPECT_TRUE(MatchesPattern("a.b.ico", "*.ico"));
    EXPECT_TRUE(MatchesPattern("W\u00e9.ico", "w?.ico"));
    EXPECT_FALSE(MatchesPattern("W.ico", "w?.ico"));
    EXPECT_TRUE(MatchesPattern("no extension", "*.*"));
    EXPECT_TRUE(MatchesPattern("abcabc", "*a*c"));
    EXPECT_FALSE(MatchesPattern("abcab", "*a*c"));
    EXPECT_TRUE(MatchesPattern("", "*"));
    EXPECT_FALSE(MatchesPattern("", "?"));
}

TEST(MatchesPattern, StaysQuickOnAHostilePattern)
{
    std::string sPattern;
    for (int i = 0; i < 200; ++i)
        sPattern += "*a";
    EXPECT_FALSE(MatchesPattern(std::string(5000, 'a') + "b", sPattern + "c"));
}

} // namespace
} // namespace zorvo
