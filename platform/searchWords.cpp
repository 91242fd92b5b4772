#include "platform/searchWords.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>

namespace zorvo {

namespace {

constexpr char32_t kZeroWidthSpace = 0x200B;
constexpr char32_t kNoCharacter = 0xFFFD;
constexpr std::uint8_t kLetters = 26;
constexpr std::uint8_t kDigits = 10;

} // namespace

/// Simple loops, which the compiler makes quick ones.
void WordBounds::prepare(std::string_view text)
{
    nLength_ = text.size();
    if (upper_.size() < nLength_) {
        upper_.resize(nLength_);
        kinds_.resize(nLength_ + sizeof(std::uint64_t));
    }
    const std::size_t n = nLength_; // bytes may lie anywhere, also in a member
    const char* bytes = text.data();
    char* upper = upper_.data();
    for (std::size_t i = 0; i < n; ++i) {
        const auto c = static_cast<std::uint8_t>(bytes[i]);
        const auto fromLetter = static_cast<std::uint8_t>(c - 'a');
        upper[i] = static_cast<char>(c - (fromLetter < kLetters ? 'a' - 'A' : 0));
    }
    std::uint8_t* kinds = kinds_.data();
    for (std::size_t i = 0; i < n; ++i) {
        const auto c = static_cast<std::uint8_t>(upper[i]);
        const auto fromCapital = static_cast<std::uint8_t>(c - 'A');
        const auto fromDigit = static_cast<std::uint8_t>(c - '0');
        const std::uint8_t letter = fromCapital < kLetters ? kWord : kNone;
        const std::uint8_t digit = fromDigit < kDigits ? kWord : kNone;
        const std::uint8_t beyond = c >= 0x80 ? kBeyondAscii : kNone;
        kinds[i] = static_cast<std::uint8_t>(letter | digit | beyond);
    }
}

WordRole wordRole(char32_t character)
{
    const auto code = static_cast<UChar32>(character);
    if (u_isalnum(code) || (U_GET_GC_MASK(code) & U_GC_M_MASK) != 0)
        return WordRole::belongs;
    return u_charType(code) == U_FORMAT_CHAR && character != kZeroWidthSpace ? WordRole::ignored
                                                                             : WordRole::parts;
}

char32_t characterAt(std::string_view text, std::size_t& at)
{
    constexpr std::size_t kLongestCharacter = 4;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data()) + at;
    const auto left = static_cast<std::int32_t>(std::min(text.size() - at, kLongestCharacter));
    std::int32_t length = 0;
    UChar32 character = 0;
    U8_NEXT(bytes, length, left, character);
    at += static_cast<std::size_t>(length);
    return character < 0 ? kNoCharacter : static_cast<char32_t>(character);
}

void appendUpper(std::string& word, char32_t character)
{
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, u_toupper(static_cast<UChar32>(character)));
    word.append(reinterpret_cast<const char*>(bytes.data()), length);
}

} // namespace zorvo
