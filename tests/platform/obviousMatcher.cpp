#include "tests/platform/obviousMatcher.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <vector>

namespace zorvo {

namespace {

using Word = std::vector<UChar32>;

bool belongsToWord(UChar32 c, bool bWildcards)
{
    if (bWildcards && (c == '?' || c == '*'))
        return true;
    const int type = u_charType(c);
    return u_isalnum(c) || type == U_NON_SPACING_MARK || type == U_COMBINING_SPACING_MARK ||
           type == U_ENCLOSING_MARK;
}

bool isPassedOver(UChar32 c)
{
    return u_charType(c) == U_FORMAT_CHAR && c != 0x200B;
}

std::vector<Word> wordsOf(const std::string& sText, bool bWildcards)
{
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(sText);
    std::vector<Word> words(1);
    for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 c = text.char32At(i);
        if (isPassedOver(c))
            continue;
        if (belongsToWord(c, bWildcards))
            words.back().push_back(u_toupper(c));
        else
            words.emplace_back();
    }
    std::erase_if(words, [](const Word& word) { return word.empty(); });
    return words;
}

bool matches(const Word& pattern, const Word& word, std::size_t p = 0, std::size_t w = 0)
{
    if (p == pattern.size())
        return w == word.size();
    if (pattern[p] == '*')
        return matches(pattern, word, p + 1, w) || (w < word.size() && matches(pattern, word, p, w + 1));
    return w < word.size() && (pattern[p] == '?' || pattern[p] == word[w]) &&
           matches(pattern, word, p + 1, w + 1);
}

bool isBlank(const std::string& sText)
{
    const icu::UnicodeString text = icu::UnicodeString::fromUTF8(sText);
    for (int i = 0; i < text.length(); i = text.moveIndex32(i, 1))
        if (!u_isUWhiteSpace(text.char32At(i)))
            return false;
    return true;
}

} // namespace

bool obviouslyFound(const std::string& sKeyword, const std::string& sText)
{
    const std::vector<Word> patterns = wordsOf(sKeyword, true);
    const std::vector<Word> words = wordsOf(sText, false);
    if (patterns.empty())
        return isBlank(sKeyword);
    for (const Word& pattern : patterns) {
        bool bFound = false;
        for (const Word& word : words)
            bFound = bFound || matches(pattern, word);
        if (!bFound)
            return false;
    }
    return true;
}

} // namespace zorvo
