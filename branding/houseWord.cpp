#include "branding/houseWord.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

/// The rule hides every protected word behind a token, replaces what is left, and brings the tokens back, one
/// pass over the text per token. Here the text is read once. That comes out the same because
///  - no hidden text holds a bracket or a tilde, so a hiding never makes a new word nor spans a token;
///  - a hidden text always comes back as it was, since a token begins with the only "[" in it and so overlaps
///  no other:
///    hiding means no more than that the word, with the characters taken along, is out of the play;
///  - what a token stands for is longer than a token and holds no bracket, so bringing back makes no new
///  token.
/// What is left is who takes which character first, and that only matters between neighbours.
namespace zorvo {

namespace {

constexpr std::size_t kWordLength = kHouseWord.size();
constexpr std::string_view kLowerHouseWord = "zorvo";
constexpr std::string_view kTokenStart = "[~";
constexpr std::size_t kTokenLength = 6;

/// What the numbered tokens stand for, by number.
constexpr std::array<std::string_view, 8> kHiddenTexts = {"ZorvoZorvo", ".Zorvo",  "Zorvo_",  "clsZorvo",
                                                          "\\Zorvo",    "Zorvo\\", "\\zorvo", "zorvo\\"};

enum class WordState { plain, hidden, broken };

/// One "Zorvo" or "zorvo" of the text.
struct Word {
    std::size_t nAt;
    bool bUpper;
    WordState state = WordState::plain;
    // The stretch that is out of the play once the word is hidden.
    std::size_t nFrom = nAt;
    std::size_t nEnd = nAt + kWordLength;
};

bool isDigitOrLetter(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::vector<Word> findWords(std::string_view text)
{
    std::vector<Word> words;
    // "v" is the rarest of the word's letters, and the last but one.
    for (std::size_t v = text.find('v', 3); v != std::string_view::npos; v = text.find('v', v + 1)) {
        const std::size_t nAt = v - 3;
        if ((text[nAt] == 'Z' || text[nAt] == 'z') && text.substr(nAt + 1, 4) == "orvo")
            words.push_back({.nAt = nAt, .bUpper = text[nAt] == 'Z'});
    }
    return words;
}

class Hiding {
public:
    explicit Hiding(std::string_view text)
        : text_(text)
        , words_(findWords(text))
    {
        if (words_.empty())
            return;
        hideDoubled();
        hideAfter(".", true);
        hideBefore('_', true);
        hideAfter("cls", true);
        hideAfter("\\", true);
        hideBefore('\\', true);
        hideAfter("\\", false);
        hideBefore('\\', false);
        hideCompounds();
    }

    std::vector<Word> takeWords() { return std::move(words_); }

private:
    bool isPlain(std::size_t i, bool bUpper) const
    {
        return words_[i].state == WordState::plain && words_[i].bUpper == bUpper;
    }

    static void hide(Word& word, std::size_t nFrom, std::size_t nEnd)
    {
        word.state = WordState::hidden;
        word.nFrom = nFrom;
        word.nEnd = nEnd;
    }

    /// The next word's hidden stretch has taken the character behind this one.
    bool isTakenBehind(std::size_t i) const
    {
        return i + 1 < words_.size() && words_[i + 1].state == WordState::hidden &&
               words_[i + 1].nFrom <= words_[i].nAt + kWordLength;
    }

    bool isTouchingNext(std::size_t i) const
    {
        return i + 1 < words_.size() && words_[i + 1].nAt == words_[i].nAt + kWordLength;
    }

    void hideDoubled()
    {
        for (std::size_t i = 0; i + 1 < words_.size(); ++i) {
            if (!words_[i].bUpper || !words_[i + 1].bUpper || !isTouchingNext(i))
                continue;
            hide(words_[i], words_[i].nFrom, words_[i].nEnd);
            hide(words_[i + 1], words_[i + 1].nFrom, words_[i + 1].nEnd);
            ++i;
        }
    }

    /// Words with `lead` in front of them.
    void hideAfter(std::string_view lead, bool bUpper)
    {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            Word& word = words_[i];
            if (!isPlain(i, bUpper) || !text_.substr(0, word.nAt).ends_with(lead))
                continue;
            const std::size_t nFrom = word.nAt - lead.size();
            if (i == 0 || words_[i - 1].nEnd <= nFrom)
                hide(word, nFrom, word.nEnd);
        }
    }

    /// Words with the character behind them.
    void hideBefore(char trail, bool bUpper)
    {
        for (std::size_t i = 0; i < words_.size(); ++i) {
            Word& word = words_[i];
            if (isPlain(i, bUpper) && word.nEnd < text_.size() && text_[word.nEnd] == trail &&
                !isTakenBehind(i))
                hide(word, word.nFrom, word.nEnd + 1);
        }
    }

    /// Words with a digit or letter behind them: by that character's code, upper-case words first, then left
    /// to right. Where the character begins the next word, that one is a word no longer.
    void hideCompounds()
    {
        struct Candidate {
            int nRank;
            std::size_t nWord;
        };
        std::vector<Candidate> candidates;
        for (std::size_t i = 0; i < words_.size(); ++i) {
            const Word& word = words_[i];
            if (word.state == WordState::plain && word.nEnd < text_.size() &&
                isDigitOrLetter(text_[word.nEnd]))
                candidates.push_back({text_[word.nEnd] * 2 + (word.bUpper ? 0 : 1), i});
        }
        std::stable_sort(candidates.begin(), candidates.end(),
                         [](const Candidate& a, const Candidate& b) { return a.nRank < b.nRank; });
        for (const Candidate& candidate : candidates) {
            Word& word = words_[candidate.nWord];
            if (word.state != WordState::plain || isTakenBehind(candidate.nWord))
                continue;
            hide(word, word.nFrom, word.nEnd + 1);
            if (isTouchingNext(candidate.nWord))
                words_[candidate.nWord + 1].state = WordState::broken;
        }
    }

    std::string_view text_;
    std::vector<Word> words_;
};

/// What the token at the start of `text` stands for, or nothing when no token stands there.
std::optional<std::string> hiddenText(std::string_view text)
{
    if (text.size() < kTokenLength || text[4] != '~' || text[5] != ']')
        return std::nullopt;
    const char first = text[2];
    const char second = text[3];
    if (first == '~' && second >= '0' && second <= '7')
        return std::string(kHiddenTexts[static_cast<std::size_t>(second - '0')]);
    if (isDigitOrLetter(first) && second == 'U')
        return std::string(kHouseWord) + first;
    if (isDigitOrLetter(first) && second == 'l')
        return std::string(kLowerHouseWord) + first;
    return std::nullopt;
}

std::string bringBackTokens(std::string sText)
{
    std::size_t nStart = sText.find(kTokenStart);
    if (nStart == std::string::npos)
        return sText;
    const std::string_view text = sText;
    std::string sResult;
    std::size_t nDone = 0;
    for (; nStart != std::string::npos; nStart = text.find(kTokenStart, nStart + 1)) {
        const auto sHidden = hiddenText(text.substr(nStart));
        if (!sHidden)
            continue;
        sResult.append(text.substr(nDone, nStart - nDone)).append(*sHidden);
        nDone = nStart + kTokenLength;
    }
    return sResult.append(text.substr(nDone));
}

} // namespace

std::string replaceHouseWord(std::string_view sText, std::string_view sName)
{
    std::string sResult;
    std::size_t nDone = 0;
    for (const Word& word : Hiding(sText).takeWords()) {
        if (word.state != WordState::plain || !word.bUpper)
            continue;
        sResult.append(sText.substr(nDone, word.nAt - nDone)).append(sName);
        nDone = word.nAt + kWordLength;
    }
    sResult.append(sText.substr(nDone));
    return bringBackTokens(std::move(sResult));
}

} // namespace zorvo
