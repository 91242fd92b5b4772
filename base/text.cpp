#include "base/text.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <vector>

namespace zorvo {

namespace {

constexpr UChar32 kRawByteBase = 0x110000; // keeps a stray byte apart from every real character

/// Reads one character at `position` and moves past it; a byte that is not UTF-8 comes as itself, above
/// Unicode.
UChar32 nextCharacter(std::string_view text, std::size_t& position)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    auto index = static_cast<std::int32_t>(position);
    UChar32 character = 0;
    U8_NEXT(bytes, index, length, character);
    if (character < 0) {
        character = kRawByteBase + bytes[position];
        ++position;
    } else {
        position = static_cast<std::size_t>(index);
    }
    return character;
}

UChar32 upperCharacter(UChar32 character)
{
    if (character < 0x80)
        return character >= 'a' && character <= 'z' ? character - 32 : character;
    return character >= kRawByteBase ? character : u_toupper(character);
}

void appendCharacter(std::string& text, UChar32 character)
{
    if (character < 0x80) {
        text.push_back(static_cast<char>(character));
        return;
    }
    if (character >= kRawByteBase) {
        text.push_back(static_cast<char>(character - kRawByteBase));
        return;
    }
    std::uint8_t buffer[U8_MAX_LENGTH];
    std::int32_t length = 0;
    U8_APPEND_UNSAFE(buffer, length, character);
    text.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(length));
}

/// Length in bytes of the match of `part` at the start of `text`, or npos. The lengths may differ: upper and
/// lower case need not take the same number of bytes.
std::size_t matchLengthNoCase(std::string_view text, std::string_view part)
{
    std::size_t at = 0;
    std::size_t inPart = 0;
    while (inPart < part.size()) {
        if (at >= text.size())
            return std::string::npos;
        if (upperCharacter(nextCharacter(text, at)) != upperCharacter(nextCharacter(part, inPart)))
            return std::string::npos;
    }
    return at;
}

int compareCharacters(std::string_view a, std::string_view b, bool foldCase)
{
    std::size_t inA = 0;
    std::size_t inB = 0;
    while (inA < a.size() && inB < b.size()) {
        UChar32 fromA = nextCharacter(a, inA);
        UChar32 fromB = nextCharacter(b, inB);
        if (foldCase) {
            fromA = upperCharacter(fromA);
            fromB = upperCharacter(fromB);
        }
        if (fromA != fromB)
            return fromA < fromB ? -1 : 1;
    }
    if (inA < a.size())
        return 1;
    return inB < b.size() ? -1 : 0;
}

} // namespace

std::string upperCase(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        appendCharacter(result, upperCharacter(nextCharacter(text, at)));
    return result;
}

bool isUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();)
        if (nextCharacter(text, at) >= kRawByteBase)
            return false;
    return true;
}

int compareCodes(std::string_view a, std::string_view b)
{
    return compareCharacters(a, b, false);
}

int compareNoCase(std::string_view a, std::string_view b)
{
    return compareCharacters(a, b, true);
}

bool equalNoCase(std::string_view a, std::string_view b)
{
    return matchLengthNoCase(a, b) == a.size();
}

bool containsNoCase(std::string_view text, std::string_view part)
{
    return findNoCase(text, part) != std::string::npos;
}

bool endsWithNoCase(std::string_view text, std::string_view ending)
{
    const std::string folded = upperCase(text);
    return folded.ends_with(upperCase(ending));
}

std::string::size_type findNoCase(std::string_view text, std::string_view part, std::string::size_type from)
{
    for (std::size_t at = from; at <= text.size();) {
        if (matchLengthNoCase(text.substr(at), part) != std::string::npos)
            return at;
        if (at == text.size())
            break;
        nextCharacter(text, at);
    }
    return std::string::npos;
}

std::string replaceAll(std::string_view text, std::string_view find, std::string_view replacement)
{
    if (find.empty())
        return std::string(text);
    std::string result;
    std::size_t at = 0;
    for (std::size_t hit = text.find(find); hit != std::string_view::npos; hit = text.find(find, at)) {
        result.append(text.substr(at, hit - at)).append(replacement);
        at = hit + find.size();
    }
    return result.append(text.substr(at));
}

std::string replaceAllNoCase(std::string_view text, std::string_view find, std::string_view replacement)
{
    if (find.empty())
        return std::string(text);
    std::string result;
    std::size_t copied = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = matchLengthNoCase(text.substr(at), find);
        if (length == std::string::npos) {
            nextCharacter(text, at);
            continue;
        }
        result.append(text.substr(copied, at - copied)).append(replacement);
        at += length;
        copied = at;
    }
    return result.append(text.substr(copied));
}

std::string trimBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string cutAtNull(std::string_view text)
{
    return std::string(text.substr(0, text.find('\0')));
}

std::size_t characterCount(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
        nextCharacter(text, at);
    return count;
}

std::string lastCharacters(std::string_view text, std::size_t count)
{
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < text.size(); nextCharacter(text, at))
        starts.push_back(at);
    if (starts.size() <= count)
        return std::string(text);
    return count == 0 ? std::string() : std::string(text.substr(starts[starts.size() - count]));
}

} // namespace zorvo
