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

/// A bit for each byte, which is 0 or 1.
std::uint64_t bitsOf(const std::array<std::uint8_t, 64>& bytes)
{
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < bytes.size(); i += sizeof(std::uint64_t)) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes.data() + i, sizeof eight);
        // The product's highest byte gathers them: the factor moves each to a place of its own.
        bits |= (eight * 0x0102040810204080U >> 56U) << i;
    }
    return bits;
}
} // namespace

/// Simple loops, which the compiler makes quick ones.
void WordRuns::prepare(std::string_view text)
{
    const std::size_t n = text.size();
    const std::size_t nBlocks = n / kBlock + 1;
    if (upper_.size() < nBlocks * kBlock + WordLetters::kMost)
        upper_.resize(nBlocks * kBlock + WordLetters::kMost);
    const char* bytes = text.data(); // what stands in a member may be anywhere
    char* upper = upper_.data();
    for (std::size_t i = 0; i < n; ++i) {
        const auto c = static_cast<std::uint8_t>(bytes[i]);
        const auto fromLetter = static_cast<std::uint8_t>(c - 'a');
        upper[i] = static_cast<char>(c - (fromLetter < kLetters ? 'a' - 'A' : 0));
    }
    std::fill(upper + n, upper + nBlocks * kBlock, '\0');

    bits_.resize(nBlocks);
    for (std::size_t block = 0; block < nBlocks; ++block) {
        std::array<std::uint8_t, kBlock> inRun{};
        std::array<std::uint8_t, kBlock> beyondAscii{};
        for (std::size_t i = 0; i < kBlock; ++i) {
            const auto c = static_cast<std::uint8_t>(upper[block * kBlock + i]);
            const bool bLetter = static_cast<std::uint8_t>(c - 'A') < kLetters;
            const bool bDigit = static_cast<std::uint8_t>(c - '0') < kDigits;
            beyondAscii[i] = c >= 0x80 ? 1 : 0;
            inRun[i] = bLetter || bDigit || c >= 0x80 ? 1 : 0;
        }
        bits_[block] = {bitsOf(inRun), bitsOf(beyondAscii)};
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
