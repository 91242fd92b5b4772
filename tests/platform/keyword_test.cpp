#include "platform/Keyword.h"

#include "platform/WordIndex.h"
#include "platform/searchWords.h"
#include "tests/platform/obviousMatcher.h"

#include <gtest/gtest.h>

#include <random>

namespace zorvo {
namespace {

bool isFoundByReading(const std::string& sKeyword, const std::string& sText)
{
    const Keyword keyword(sKeyword);
    KeywordInText found(keyword);
    WordCutter cutter([&found](std::string_view word) { found.take(word); });
    cutter.take(sText);
    cutter.end();
    return found.isFound() && !keyword.isBeyondWords();
}

bool isFoundByIndex(const std::string& sKeyword, const std::string& sText)
{
    WordIndexBuilder builder;
    WordCutter cutter([&builder](std::string_view word) { builder.addWord(word); });
    cutter.take(sText);
    cutter.end();
    builder.endText();
    return WordIndex(builder.take()).find(Keyword(sKeyword)).value_or(WordIndex::Texts()).test(0);
}

struct Case {
    const char* keyword;
    const char* text;
    bool bFound;
};

const Case kCases[] = {
    // Whole words, in any case.
    {"cash", "cash", true},
    {"cash", "Cash and cash equivalents", true},
    {"CASH", "cash", true},
    {"cash", "cashier", false},
    {"cash", "petty-cash", true},
    {"cash", "noncash", false},
    {"cash", "", false},
    {"cash", "(cash)", true},
    {"cash", "cash.", true},
    {"cash", "cash,debt", true},
    {"cash", "cash\ndebt", true},
    {"cash", "cash_flow", true},
    // All words, in any order, each as often as it likes.
    {"Current Assets", "current assets", true},
    {"Current Assets", "assets, both fixed and current", true},
    {"Current Assets", "current liabilities", false},
    {"Current Assets", "currentassets", false},
    {"  Current   Assets  ", "assets current", true},
    {"cash cash", "cash", true},
    {"Cash cash", "CASH", true},
    {"a b c d", "d c b a", true},
    {"a b c d", "d c b", false},
    // ? is one character.
    {"gr?y", "gray", true},
    {"gr?y", "grey", true},
    {"gr?y", "gry", false},
    {"gr?y", "graay", false},
    {"gr?y", "gr y", false},
    {"?", "a", true},
    {"?", "ab", false},
    {"?", "\u00E9", true},
    {"?", "\U0001D400", true},
    {"??", "\u00E9", false},
    {"gr?n", "gr\u00FCn", true},
    {"?sset", "asset", true},
    {"asse?", "asset", true},
    {"asset?", "asset", false},
    // * is any number of them, none too.
    {"account*", "account", true},
    {"account*", "accounts", true},
    {"account*", "accounting", true},
    {"account*", "unaccounted", false},
    {"*account*", "unaccounted", true},
    {"*able", "receivable", true},
    {"*able", "able", true},
    {"*able", "ables", false},
    {"a*e", "able", true},
    {"a*e", "ae", true},
    {"a*e", "a e", false},
    {"a*b*c", "aXbXbXc", true},
    {"a*b*c", "aXcXb", false},
    {"a**c", "ac", true},
    {"*?*", "a", true},
    {"*??*", "a", false},
    {"a*?", "a", false},
    {"a*?", "ab", true},
    {"*", "word", true},
    {"*", "...", false},
    {"* cash", "cash", true},
    {"*\u00E9", "t\u00E9", true},
    // Beyond ASCII.
    {"\u00C9TAT", "\u00E9tat", true},
    {"\u0416\u0423\u041A", "\u0436\u0443\u043A", true},
    {"\u03A3\u0395\u03A3", "\u03C3\u03B5\u03C2", true},
    {"\u00FCber", "\u00DCBER", true},
    {"uber", "\u00FCber", false},
    {"caf\u00E9s", "caf\u00E9", false},
    {"\u65E5\u672C", "\u65E5\u672C", true},
    // Marks part words, in the keyword as in the text.
    {"company", "the company's", true},
    {"company's", "the company's", true},
    {"company's", "the company\u2019s", true},
    {"long-term", "long-term debt", true},
    {"long-term", "term that is long", true},
    {"long-term", "long\u2013term", true},
    {"1,000", "1,000", true},
    {"1,000", "1000", false},
    {"401(k)", "a 401(k) plan", true},
    {"\"cash\"", "cash", true},
    {"U.S.", "the U.S. dollar", true},
    {"a.b", "a b", true},
    // Characters of expressions are nothing special.
    {"c.sh", "cash", false},
    {"[c]ash", "cash", false},
    {"cash|debt", "cash", false},
    {"cash|debt", "cash debt", true},
    {"^cash$", "cash", true},
    {"cash+", "cash", true},
    {"\\bcash", "cash", false},
    {"(cash", "cash", true},
    {"%", "5 %", false},
    {"'", "it's", false},
    {"\"\"", "\"\"", false},
    // A hyphen that shows only at a line's end is no part of a word.
    {"depreciation", "depre\u00ADciation", true},
    {"depre\u00ADciation", "depreciation", true},
    {"zero\u200Bwidth", "width zero", true},
    // Blanks ask for nothing.
    {"", "cash", true},
    {" ", "cash", true},
    {"   ", "", true},
    {"\u00A0", "", true},
};

TEST(Keyword, FindsWhatTheRulesSay)
{
    for (const Case& one : kCases) {
        EXPECT_EQ(isFoundByReading(one.keyword, one.text), one.bFound) << one.keyword << " in " << one.text;
        EXPECT_EQ(isFoundByIndex(one.keyword, one.text), one.bFound) << one.keyword << " in " << one.text;
    }
}

class RandomTexts {
public:
    explicit RandomTexts(unsigned seed)
        : engine_(seed)
    {
    }

    /// Short words of few letters, so that many match.
    std::string text(bool bKeyword)
    {
        static const std::vector<std::string> letters = {"a",      "b",      "A",         "\u00E9", "\u00C9",
                                                         "\u03C3", "\u03C2", "\u0130",    "\u00DF", "7",
                                                         "\u0301", "\u00AD", "\U0001D400"};
        static const std::vector<std::string> marks = {" ", " ",  " ", "-",      "'",
                                                       ".", "\n", "_", "\u00A0", "\\"};
        std::string result;
        for (int n = number(bKeyword ? 8 : 40); n > 0; --n) {
            const int kind = number(bKeyword ? 9 : 7);
            if (kind < 5)
                result += letters[static_cast<std::size_t>(number(static_cast<int>(letters.size())))];
            else if (kind < 7)
                result += marks[static_cast<std::size_t>(number(static_cast<int>(marks.size())))];
            else
                result += kind == 7 ? "?" : "*";
        }
        return result;
    }

private:
    int number(int n) { return std::uniform_int_distribution<int>(0, n - 1)(engine_); }

    std::mt19937 engine_;
};

TEST(Keyword, AgreesWithTheObviousMatcherOnRandomTexts)
{
    RandomTexts random(20240305);
    int nFound = 0;
    constexpr int kTexts = 20'000;
    for (int i = 0; i < kTexts; ++i) {
        const std::string sKeyword = random.text(true);
        const std::string sText = random.text(false);
        const bool bWanted = obviouslyFound(sKeyword, sText);
        nFound += bWanted ? 1 : 0;
        ASSERT_EQ(isFoundByReading(sKeyword, sText), bWanted)
            << '\'' << sKeyword << "' in '" << sText << '\'';
        ASSERT_EQ(isFoundByIndex(sKeyword, sText), bWanted) << '\'' << sKeyword << "' in '" << sText << '\'';
    }
    // Texts that all match, or none, would tell nothing.
    EXPECT_GT(nFound, kTexts / 10);
    EXPECT_LT(nFound, kTexts * 9 / 10);
}

TEST(Keyword, ManyStarsTakeNoLongTime)
{
    std::string pattern;
    for (int i = 0; i < 500; ++i)
        pattern += "*a";
    EXPECT_FALSE(isFoundByReading(pattern + "b", std::string(2'000, 'a')));
    EXPECT_TRUE(isFoundByReading(pattern, std::string(2'000, 'a')));
}

TEST(Keyword, AWordMayGoOnInTheNextPiece)
{
    std::vector<std::string> words;
    WordCutter cutter([&words](std::string_view word) { words.emplace_back(word); });
    cutter.take("Current as");
    cutter.take("sets");
    cutter.take("");
    cutter.take(" ");
    cutter.end();
    EXPECT_EQ(words, (std::vector<std::string>{"CURRENT", "ASSETS"}));
}

TEST(Keyword, AnEndlessWordKeepsItsBeginning)
{
    std::size_t nLength = 0;
    WordCutter cutter([&nLength](std::string_view word) { nLength = word.size(); });
    for (std::size_t i = 0; i < 2 * kLongestWord / 1000; ++i)
        cutter.take(std::string(1000, 'x'));
    cutter.end();
    EXPECT_EQ(nLength, kLongestWord);
}

TEST(WordIndex, TellsWhichOfTheTextsHoldTheWords)
{
    WordIndexBuilder builder;
    for (std::size_t text = 0; text < WordIndexBuilder::kMostTexts; ++text) {
        builder.addWord("ALL");
        builder.addWord(text % 2 == 0 ? "EVEN" : "ODD");
        builder.addWord("ALL");
        builder.addWord("W" + std::to_string(text));
        EXPECT_TRUE(builder.endText());
    }
    const std::string sBytes = builder.take();
    const WordIndex index(sBytes);
    EXPECT_TRUE(index.find(Keyword("all"))->all());
    EXPECT_EQ(index.find(Keyword("even all"))->count(), 128U);
    EXPECT_TRUE(index.find(Keyword("even odd"))->none());
    EXPECT_TRUE(index.find(Keyword("w255"))->test(255));
    EXPECT_EQ(index.find(Keyword("w255"))->count(), 1U);
    EXPECT_EQ(index.find(Keyword("w25?"))->count(), 6U);
}

TEST(WordIndex, ABuilderBeginsAnewAfterItsBytesAreTaken)
{
    WordIndexBuilder builder;
    builder.addWord("ONE");
    builder.endText();
    builder.take();
    EXPECT_EQ(builder.texts(), 0U);
    builder.addWord("TWO");
    builder.endText();
    const std::string sBytes = builder.take();
    EXPECT_FALSE(WordIndex(sBytes).find(Keyword("one"))->test(0));
    EXPECT_TRUE(WordIndex(sBytes).find(Keyword("two"))->test(0));
}

TEST(WordIndex, ATextWithTooManyWordsIsToldAndKeepsNone)
{
    WordIndexBuilder builder;
    builder.addWord("FIRST");
    builder.endText();
    builder.addWord("FIRST");
    for (int i = 0; i < 150'000; ++i)
        builder.addWord("W" + std::to_string(i));
    EXPECT_FALSE(builder.endText());
    builder.addWord("W7");
    EXPECT_TRUE(builder.endText());
    const std::string sBytes = builder.take();
    EXPECT_EQ(WordIndex(sBytes).find(Keyword("first"))->count(), 1U);
    EXPECT_TRUE(WordIndex(sBytes).find(Keyword("w7"))->test(2));
    EXPECT_EQ(WordIndex(sBytes).find(Keyword("w7"))->count(), 1U);
}

TEST(WordIndex, WhatIsDiscardedIsNotFound)
{
    WordIndexBuilder builder;
    builder.addWord("ONE");
    builder.discardText();
    builder.addWord("TWO");
    builder.addWord("ONE");
    builder.discardText();
    builder.addWord("TWO");
    builder.endText();
    const std::string sBytes = builder.take();
    EXPECT_TRUE(WordIndex(sBytes).find(Keyword("one"))->none());
    EXPECT_TRUE(WordIndex(sBytes).find(Keyword("two"))->test(0));
}

TEST(WordIndex, DamagedBytesAreNoticedOrHarmless)
{
    WordIndexBuilder builder;
    for (int text = 0; text < 10; ++text) {
        for (int i = 0; i < 50; ++i)
            builder.addWord("WORD" + std::to_string(i * text));
        builder.endText();
    }
    const std::string sBytes = builder.take();
    EXPECT_FALSE(WordIndex(std::string()).find(Keyword("x")).has_value());
    EXPECT_FALSE(
        WordIndex(std::string_view(sBytes).substr(0, sBytes.size() - 1)).find(Keyword("x")).has_value());
    std::mt19937 engine(7);
    for (int i = 0; i < 2'000; ++i) {
        std::string sDamaged = sBytes;
        for (int n = 0; n < 3; ++n)
            sDamaged[engine() % sDamaged.size()] = static_cast<char>(engine());
        WordIndex(sDamaged).find(Keyword("word1*"));
    }
}

} // namespace
} // namespace zorvo
