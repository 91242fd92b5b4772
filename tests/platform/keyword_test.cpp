#include "platform/Keyword.h"

#include "platform/WordIndex.h"
#include "platform/searchWords.h"
#include "tests/platform/obviousMatcher.h"
#include "tests/support/sanitizers.h"

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
    constexpr int kTexts = kSanitized ? 5'000 : 20'000;
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

/// Character by character.
std::vector<std::string> obviousWords(std::string_view text)
{
    std::vector<std::string> words(1);
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = characterAt(text, at);
        const WordRole role = wordRole(character);
        if (role == WordRole::belongs)
            appendUpper(words.back(), character);
        else if (role == WordRole::parts && !words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty())
        words.pop_back();
    return words;
}

/// A text of runs that end anywhere in the blocks that the cutter looks at, as characters.
std::vector<std::string> runsOfManyLengths(std::mt19937& random)
{
    const std::vector<std::string> others = {" ", ", ", "\n", "\u00DF", "\u00E9", "\u2013", "\u00AD", "9"};
    std::vector<std::string> text;
    while (text.size() < 2'000) {
        const std::size_t nLetters = random() % 8 == 0 ? random() % 150 : random() % 9;
        for (std::size_t i = 0; i < nLetters; ++i)
            text.push_back(
                std::string(1, static_cast<char>((random() % 5 == 0 ? 'A' : 'a') + random() % 26)));
        text.push_back(others[random() % 3 == 0 ? random() % others.size() : 0]);
    }
    return text;
}

TEST(Keyword, WordsAreTheSameHoweverTheTextIsPartedIntoPieces)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const std::vector<std::string> text = runsOfManyLengths(random);
        std::vector<std::string> words;
        WordCutter cutter([&words](std::string_view word) { words.emplace_back(word); });
        std::string whole;
        std::string piece;
        for (const std::string& character : text) {
            whole += character;
            piece += character;
            if (random() % (round + 1) != 0)
                continue;
            cutter.take(piece);
            piece.clear();
        }
        cutter.take(piece);
        cutter.end();
        ASSERT_EQ(words, obviousWords(whole)) << whole;
    }
}

TEST(Keyword, AnEndlessWordInOnePieceKeepsItsBeginning)
{
    std::vector<std::size_t> lengths;
    WordCutter cutter([&lengths](std::string_view word) { lengths.push_back(word.size()); });
    cutter.take(std::string(2 * kLongestWord, 'x') + " short ");
    cutter.end();
    EXPECT_EQ(lengths, (std::vector<std::size_t>{kLongestWord, 5}));
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

TEST(WordIndex, TellsWordsOfEveryLengthApart)
{
    constexpr std::size_t kLongest = 40;
    WordIndexBuilder builder;
    for (std::size_t length = 1; length <= kLongest; ++length) {
        const std::string same(length - 1, 'A');
        builder.addWord(same + 'B');
        builder.addWord(same + 'C');
        builder.addWord('D' + same);
        EXPECT_TRUE(builder.endText());
    }
    const std::string sBytes = builder.take();
    for (std::size_t length = 1; length <= kLongest; ++length) {
        const std::string same(length - 1, 'A');
        for (const std::string& word : {same + 'B', same + 'C', 'D' + same}) {
            const auto texts = WordIndex(sBytes).find(Keyword(word));
            EXPECT_TRUE(texts->test(length - 1)) << word;
            EXPECT_EQ(texts->count(), 1U) << word;
        }
        EXPECT_TRUE(WordIndex(sBytes).find(Keyword(same + 'E'))->none());
    }
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
