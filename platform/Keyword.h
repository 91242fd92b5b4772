#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zorvo {

/// One word of a question: upper case, with `?` for one character and `*` for any number of them.
class WordPattern {
public:
    explicit WordPattern(std::string pattern);

    /// `word` is in upper case, as WordCutter gives it.
    bool matches(std::string_view word) const;

    const std::string& text() const { return pattern_; }
    bool hasWildcards() const { return bWildcards_; }

    bool operator==(const WordPattern&) const = default;

private:
    bool matchesWildcards(std::string_view word) const;

    std::string pattern_;
    bool bWildcards_;
};

/// The words that a user looks for, as FileSearch.h has the rules.
class Keyword {
public:
    explicit Keyword(std::string_view text);

    /// A text with all of these words is found; each stands here once, the most telling first.
    const std::vector<WordPattern>& words() const { return words_; }
    /// There are marks in it and no word: no text is found, though there are no words to look for.
    bool isBeyondWords() const { return bBeyondWords_; }

private:
    std::vector<WordPattern> words_;
    bool bBeyondWords_ = false;
};

/// Whether a text that is too long to keep holds all words of a keyword.
class KeywordInText {
public:
    explicit KeywordInText(const Keyword& keyword);

    /// The next word of the text.
    void take(std::string_view word);
    bool isFound() const { return nMissing_ == 0; }

private:
    void strike(std::size_t i);

    const std::vector<WordPattern>& words_;
    std::unordered_map<std::string_view, std::size_t> plain_; // by text, into `words_`
    std::vector<std::size_t> wildcards_;
    std::vector<bool> found_;
    std::size_t nMissing_;
};

} // namespace zorvo
