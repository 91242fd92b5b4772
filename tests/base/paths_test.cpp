#include "base/paths.h"

#include <gtest/gtest.h>

#include <string>

using namespace zorvo;
using namespace std::string_literals;

TEST(sGetFilePath, KeepsTheBackslashOfARoot)
{
    EXPECT_EQ(sGetFilePath("C:\\a.txt"), "C:\\");
}

TEST(sGetFilePath, GivesTheFolderWithoutItsBackslash)
{
    EXPECT_EQ(sGetFilePath("C:\\d\\a.txt"), "C:\\d");
    EXPECT_EQ(sGetFilePath("\\\\server\\share\\a.txt"), "\\\\server\\share");
}

TEST(sGetFilePath, TakesAPathWithoutAPointAsAllFolder)
{
    EXPECT_EQ(sGetFilePath("C:\\d\\file"), "C:\\d\\file");
    EXPECT_EQ(sGetFilePath(""), "");
}

TEST(sGetFilePath, GoesByTheLastPointEvenInAFolder)
{
    EXPECT_EQ(sGetFilePath("C:\\d.x\\file"), "C:\\");
    EXPECT_EQ(sGetFilePath("C:\\a\\d.x\\file"), "C:\\a");
}

TEST(sGetFilePath, GivesAPathWithoutABackslashUnchanged)
{
    EXPECT_EQ(sGetFilePath("a.txt"), "a.txt");
    EXPECT_EQ(sGetFilePath("C:a.txt"), "C:a.txt");
    EXPECT_EQ(sGetFilePath("a.b\\c"), "a.b\\c");
}

TEST(sGetFilePath, IsEmptyWhenTheBackslashComesFirst)
{
    EXPECT_EQ(sGetFilePath("\\a.txt"), "");
}

TEST(sGetFileName, GivesTheNamePart)
{
    EXPECT_EQ(sGetFileName("C:\\d\\a.b.txt", false), "a.b.txt");
    EXPECT_EQ(sGetFileName("C:\\a.txt", false), "a.txt");
    EXPECT_EQ(sGetFileName("\\a.txt", false), "a.txt");
}

TEST(sGetFileName, CutsTheExtensionAtTheLastPoint)
{
    EXPECT_EQ(sGetFileName("C:\\d\\a.b.txt", true), "a.b");
    EXPECT_EQ(sGetFileName("a.txt", true), "a");
    EXPECT_EQ(sGetFileName("plain", true), "plain");
    EXPECT_EQ(sGetFileName(".txt", true), "");
}

TEST(sGetFileName, OfATextWithoutBackslashAndColonIsAllOfIt)
{
    EXPECT_EQ(sGetFileName("a.txt", false), "a.txt");
    EXPECT_EQ(sGetFileName("", false), "");
}

TEST(sGetFileName, OfAPathThatIsAllFolderIsEmpty)
{
    EXPECT_EQ(sGetFileName("C:\\d\\file", false), "");
    EXPECT_EQ(sGetFileName("C:", false), "");
    EXPECT_EQ(sGetFileName("C:\\", false), "");
    EXPECT_EQ(sGetFileName("C:a.txt", false), "");
}

TEST(sGetFileName, TakesAllBehindTheFolderOfTheLastPoint)
{
    EXPECT_EQ(sGetFileName("C:\\a\\d.x\\file", false), "d.x\\file");
    EXPECT_EQ(sGetFileName("C:\\d.x\\file", true), "d");
}

TEST(sJoinPath, PutsOneBackslashBetween)
{
    EXPECT_EQ(sJoinPath("C:\\a", "b"), "C:\\a\\b");
    EXPECT_EQ(sJoinPath("C:\\a\\", "\\b\\"), "C:\\a\\b\\");
    EXPECT_EQ(sJoinPath("", "b"), "\\b");
}

TEST(sJoinPath, TakesAwayOneBackslashOfEachOnly)
{
    EXPECT_EQ(sJoinPath("C:\\a\\\\", "\\\\b"), "C:\\a\\\\\\b");
}

TEST(sJoinPath, EndsInABackslashWithAnEmptySecondText)
{
    EXPECT_EQ(sJoinPath("C:\\a", ""), "C:\\a\\");
    EXPECT_EQ(sJoinPath("C:\\a\\", ""), "C:\\a\\");
}

TEST(sJoinPath, CutsThePathAtItsFirstZero)
{
    EXPECT_EQ(sJoinPath("C:\\a\0junk"s), "C:\\a");
    EXPECT_EQ(sJoinPath("C:\\a\\"), "C:\\a\\");
    EXPECT_EQ(sJoinPath("C:\\a\0junk"s, "b"), "C:\\a\\b");
}

TEST(sStripNull, GivesATextWithoutAZeroWhole)
{
    EXPECT_EQ(sStripNull("abc"), "abc");
    EXPECT_EQ(sStripNull(""), "");
}

TEST(sStripNull, CutsAtTheFirstZeroAndAtTheMaximum)
{
    EXPECT_EQ(sStripNull("abc\0d\0"s), "abc");
    EXPECT_EQ(sStripNull("abc\0d"s, 2), "ab");
    EXPECT_EQ(sStripNull("abc", 3), "abc");
    EXPECT_EQ(sStripNull("abc", 9), "abc");
    EXPECT_EQ(sStripNull("abc", 0), "");
    EXPECT_EQ(sStripNull("äöü", 2), "äö");
}

TEST(WithBackslash, AddsOneOnlyWhereNoneIs)
{
    EXPECT_EQ(withBackslash("C:\\a"), "C:\\a\\");
    EXPECT_EQ(withBackslash("C:\\a\\"), "C:\\a\\");
    EXPECT_EQ(withBackslash(""), "\\");
}
