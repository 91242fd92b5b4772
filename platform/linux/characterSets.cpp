#include "platform/linux/characterSets.h"

#include "base/text.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <array>

namespace zorvo {

namespace {

constexpr char32_t kStrayByte = 0xDC00; // + the byte, 0x80 to 0xFF

// windows-1252 from 0x80 to 0x9F.
constexpr std::array<char32_t, 32> kWindows1252{
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void appendUtf8(std::string& text, char32_t character)
{
    std::uint8_t buffer[U8_MAX_LENGTH];
    std::int32_t length = 0;
    U8_APPEND_UNSAFE(buffer, length, character);
    text.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(length));
}

char32_t unitAt(std::string_view bytes, std::size_t at, ByteOrder order)
{
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return order == ByteOrder::littleEndian ? first | second << 8U : second | first << 8U;
}

void appendUnit(std::string& bytes, char32_t unit)
{
    bytes.push_back(static_cast<char>(unit & 0xFFU));
    bytes.push_back(static_cast<char>(unit >> 8U));
}

/// The character at `at`, moved past; a lone half of a pair comes as itself.
char32_t nextUtf16(std::string_view bytes, std::size_t& at, ByteOrder order)
{
    const char32_t unit = unitAt(bytes, at, order);
    at += 2;
    if (!U16_IS_LEAD(unit) || at + 1 >= bytes.size())
        return unit;
    const char32_t trail = unitAt(bytes, at, order);
    if (!U16_IS_TRAIL(trail))
        return unit;
    at += 2;
    return static_cast<char32_t>(U16_GET_SUPPLEMENTARY(unit, trail));
}

/// The character at `at`, moved past; negative, and past one byte, where the bytes aren't UTF-8.
UChar32 nextUtf8(std::string_view text, std::size_t& at)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const std::size_t left = text.size() - at;
    std::int32_t index = 0;
    UChar32 character = 0;
    U8_NEXT(bytes + at, index, static_cast<std::int32_t>(left < 8 ? left : 8), character);
    at += character < 0 ? 1 : static_cast<std::size_t>(index);
    return character;
}

} // namespace

std::optional<std::string> utf8FromUtf16(std::string_view bytes, ByteOrder order)
{
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size();) {
        const char32_t character = nextUtf16(bytes, at, order);
        if (U_IS_SURROGATE(character))
            return std::nullopt;
        appendUtf8(text, character);
    }
    return text;
}

std::string readableFromUtf16(std::string_view bytes, ByteOrder order)
{
    constexpr char32_t kNoCharacter = 0xFFFD;
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size();) {
        const char32_t character = nextUtf16(bytes, at, order);
        appendUtf8(text, U_IS_SURROGATE(character) ? kNoCharacter : character);
    }
    return text;
}

std::string utf16FromStoredText(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const UChar32 character = nextUtf8(text, at);
        if (character < 0) {
            appendUnit(bytes, kStrayByte + byte);
        } else if (character > 0xFFFF) {
            appendUnit(bytes, U16_LEAD(character));
            appendUnit(bytes, U16_TRAIL(character));
        } else {
            appendUnit(bytes, static_cast<char32_t>(character));
        }
    }
    return bytes;
}

std::optional<std::string> storedTextFromUtf16(std::string_view bytes)
{
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const char32_t character = nextUtf16(bytes, at, ByteOrder::littleEndian);
        if (character >= kStrayByte + 0x80 && character <= kStrayByte + 0xFF)
            text.push_back(static_cast<char>(character - kStrayByte));
        else
            appendUtf8(text, character);
    }
    return text;
}

std::string utf8FromWindows1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        appendUtf8(text, code >= 0x80 && code < 0xA0 ? kWindows1252[code - 0x80U] : code);
    }
    return text;
}

std::string utf8FromAnsi(std::string_view bytes)
{
    return isUtf8(bytes) ? std::string(bytes) : utf8FromWindows1252(bytes);
}

} // namespace zorvo
