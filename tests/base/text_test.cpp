#include "base/text.h"

#include <gtest/gtest.h>

#include <string>

using namespace zorvo;
using namespace std::string_literals;

TEST(UpperCase, FoldsCharacterByCharacterInUnicode)
{
    EXPECT_EQ(upperCase("abc XYZ 09"), "ABC XYZ 09");
    EXPECT_EQ(upperCase("é ü ж"), "É Ü Ж");
    // One character stays one character.
    EXPECT_EQ(upperCase("Straße"), "STRAßE");
}

TEST(UpperCase, KeepsBytesThatAreNotUtf8)
{
    EXPECT_EQ(upperCase("a\xE9z\xFF"), "A\xE9Z\xFF");
}

TEST(CompareCodes, OrdersByCharacterCode)
{
    EXPECT_LT(compareCodes("Z", "a"), 0);
    EXPECT_GT(compareCodes("a", "Z"), 0);
    EXPECT_EQ(compareCodes("abc", "abc"), 0);
    EXPECT_LT(compareCodes("ab", "abc"), 0);
    EXPECT_GT(compareCodes("abc", "ab"), 0);
    EXPECT_LT(compareCodes("", "a"), 0);
    EXPECT_LT(compareCodes("z", "é"), 0);
}

TEST(CompareNoCase, ComparesTheUpperCaseForms)
{
    EXPECT_EQ(compareNoCase("straße É", "STRAßE é"), 0);
    EXPECT_LT(compareNoCase("a", "B"), 0);
    // "_" lies between the upper and the lower case letters; the upper ones count.
    EXPECT_GT(compareNoCase("_", "a"), 0);
}

TEST(EqualNoCase, HoldsForWholeTextsOnly)
{
    EXPECT_TRUE(equalNoCase("Quillbook", "QUILLBOOK"));
    EXPECT_FALSE(equalNoCase("Quillbook", "Quill"));
    EXPECT_FALSE(equalNoCase("Quill", "Quillbook"));
    EXPECT_TRUE(equalNoCase("", ""));
    EXPECT_FALSE(equalNoCase("", "a"));
    EXPECT_TRUE(equalNoCase("ÿ", "Ÿ"));
}

TEST(ContainsNoCase, FindsAnywhereAndAlwaysTheEmptyText)
{
    EXPECT_TRUE(containsNoCase("MySableWOODx", "sablewood"));
    EXPECT_FALSE(containsNoCase("Sablewoo", "Sablewood"));
    EXPECT_TRUE(containsNoCase("", ""));
    EXPECT_TRUE(containsNoCase("a", ""));
}

TEST(EndsWithNoCase, LooksAtTheEnd)
{
    EXPECT_TRUE(endsWithNoCase("C:\\A.DOT", ".dot"));
    EXPECT_FALSE(endsWithNoCase("C:\\A.DOTX", ".dot"));
    EXPECT_FALSE(endsWithNoCase("t", ".dot"));
    EXPECT_TRUE(endsWithNoCase("x", ""));
}

TEST(FindNoCase, GivesTheBytePositionAtOrAfterTheStart)
{
    EXPECT_EQ(findNoCase("éABC abc", "abc"), 2U);
    EXPECT_EQ(findNoCase("éABC abc", "abc", 3), 6U);
    EXPECT_EQ(findNoCase("abc", "d"), std::string::npos);
    EXPECT_EQ(findNoCase("abc", "", 3), 3U);
    EXPECT_EQ(findNoCase("abc", "a", 9), std::string::npos);
}

TEST(ReplaceAll, IsExactAndDoesNotSearchWhatItPutIn)
{
    EXPECT_EQ(replaceAll("?a??A??a?", "?a?", "[?a?]"), "[?a?]?A?[?a?]");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAll("", "a", "x"), "");
    EXPECT_EQ(replaceAll("abcabc", "abc", ""), "");
}

TEST(ReplaceAllNoCase, IgnoresCaseAndDoesNotSearchWhatItPutIn)
{
    EXPECT_EQ(replaceAllNoCase("?a??A??b?", "?A?", "[?a?]"), "[?a?][?a?]?b?");
    EXPECT_EQ(replaceAllNoCase("aAa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAllNoCase("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAllNoCase("ÄäX", "ä", "-"), "--X");
    EXPECT_EQ(replaceAllNoCase("a\xE9-B", "b", "c"), "a\xE9-c");
}

TEST(ReplaceAllNoCase, MeasuresTheMatchInTheTextNotInThePattern)
{
    // The long s takes two bytes, its upper case S one.
    EXPECT_EQ(replaceAllNoCase("<?Clasſ?>", "?class?", "x"), "<x>");
}

TEST(TrimBlanks, TakesBlanksOffAndNothingElse)
{
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks(""), "");
    EXPECT_EQ(trimBlanks(" \ta\r\n "), "\ta\r\n");
    EXPECT_EQ(trimBlanks("\xC2\xA0x"), "\xC2\xA0x");
}

TEST(CutAtNull, EndsAtTheFirstZero)
{
    EXPECT_EQ(cutAtNull("ab\0cd\0"s), "ab");
    EXPECT_EQ(cutAtNull("abcd"), "abcd");
    EXPECT_EQ(cutAtNull("\0a"s), "");
}

TEST(CharacterCount, CountsCodePoints)
{
    EXPECT_EQ(characterCount(""), 0U);
    EXPECT_EQ(characterCount("aé€😀"), 4U);
}

TEST(LastCharacters, NeverCutsACharacter)
{
    EXPECT_EQ(lastCharacters("aé€😀", 2), "€😀");
    EXPECT_EQ(lastCharacters("ab", 5), "ab");
    EXPECT_EQ(lastCharacters("ab", 2), "ab");
    EXPECT_EQ(lastCharacters("ab", 0), "");
}
