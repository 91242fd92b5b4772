#include "platform/Keyword.h"

#include "platform/searchWords.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <unordered_set>

namespace zorvo {

namespace {

bool isWildcard(char32_t character)
{
    return character == U'?' || character == U'*';
}

/// Bytes of the character at the start of `text`, which is UTF-8 and not empty.
std::size_t characterLength(std::string_view text)
{
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
        ++length;
    return length;
}

/// The words of a question, wildcards taken for letters.
std::vector<std::string> patternsOf(std::string_view text)
{
    std::vector<std::string> patterns;
    std::string word;
    const auto end = [&] {
        if (!word.empty())
            patterns.push_back(word);
        word.clear();
    };
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = characterAt(text, at);
        const WordRole role = isWildcard(character) ? WordRole::belongs : wordRole(character);
        if (role == WordRole::parts)
            end();
        else if (role == WordRole::belongs && (character != U'*' || word.empty() || word.back() != '*'))
            appendUpper(word, character);
    }
    end();
    return patterns;
}

bool isBlank(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();)
        if (!u_isUWhiteSpace(static_cast<UChar32>(characterAt(text, at))))
            return false;
    return true;
}

/// Plain letters and digits: the more there are, the fewer words match.
std::ptrdiff_t plainCharacters(const WordPattern& pattern)
{
    return std::count_if(pattern.text().begin(), pattern.text().end(),
                         [](char c) { return c != '?' && c != '*'; });
}

} // namespace

WordPattern::WordPattern(std::string pattern)
    : pattern_(std::move(pattern))
    , bWildcards_(pattern_.find_first_of("?*") != std::string::npos)
{
}

bool WordPattern::matches(std::string_view word) const
{
    return bWildcards_ ? matchesWildcards(word) : word == pattern_;
}

/// Each `*` first takes nothing; where the rest doesn't fit, the last `*` takes one character more.
bool WordPattern::matchesWildcards(std::string_view word) const
{
    constexpr std::size_t kNone = std::string::npos;
    std::size_t at = 0;
    std::size_t inPattern = 0;
    std::size_t afterStar = kNone;
    std::size_t starEnd = 0; // what the last `*` takes ends here
    while (at < word.size()) {
        const char wanted = inPattern < pattern_.size() ? pattern_[inPattern] : '\0';
        if (wanted == '*') {
            afterStar = ++inPattern;
            starEnd = at;
        } else if (wanted == '?') {
            at += characterLength(word.substr(at));
            ++inPattern;
        } else if (wanted == word[at]) {
            ++at;
            ++inPattern;
        } else if (afterStar != kNone) {
            starEnd += characterLength(word.substr(starEnd));
            at = starEnd;
            inPattern = afterStar;
        } else {
            return false;
        }
    }
    return pattern_.find_first_not_of('*', inPattern) == kNone;
}

Keyword::Keyword(std::string_view text)
{
    std::unordered_set<std::string> known;
    for (std::string& pattern : patternsOf(text))
        if (known.insert(pattern).second)
            words_.emplace_back(std::move(pattern));
    std::stable_sort(words_.begin(), words_.end(), [](const WordPattern& a, const WordPattern& b) {
        return plainCharacters(a) > plainCharacters(b);
    });
    bBeyondWords_ = words_.empty() && !isBlank(text);
}

KeywordInText::KeywordInText(const Keyword& keyword)
    : words_(keyword.words())
    , found_(keyword.words().size(), false)
    , nMissing_(keyword.words().size())
{
    for (std::size_t i = 0; i < words_.size(); ++i) {
        if (words_[i].hasWildcards())
            wildcards_.push_back(i);
        else
            plain_.emplace(words_[i].text(), i);
    }
}

void KeywordInText::take(std::string_view word)
{
    if (nMissing_ == 0)
        return;
    const auto plain = plain_.find(word);
    if (plain != plain_.end())
        strike(plain->second);
    for (const std::size_t i : wildcards_)
        if (!found_[i] && words_[i].matches(word))
            strike(i);
}

void KeywordInText::strike(std::size_t i)
{
    if (!found_[i])
        --nMissing_;
    found_[i] = true;
}

} // namespace zorvo
