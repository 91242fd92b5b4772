#include "client/registryData.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>

namespace zorvo {

namespace {

struct TypeName {
    RegistryType type;
    const char* name;
};

constexpr std::array<TypeName, 9> kTypeNames{{
    {RegistryType::none, "REG_NONE"},
    {RegistryType::string, "REG_SZ"},
    {RegistryType::expandString, "REG_EXPAND_SZ"},
    {RegistryType::binary, "REG_BINARY"},
    {RegistryType::dword, "REG_DWORD"},
    {RegistryType::dwordBigEndian, "REG_DWORD_BIG_ENDIAN"},
    {RegistryType::link, "REG_LINK"},
    {RegistryType::multiString, "REG_MULTI_SZ"},
    {RegistryType::qword, "REG_QWORD"},
}};

constexpr std::string_view kTextSeparator = "\\0";

/// Size of a number type, 0 for the others.
std::size_t numberSize(RegistryType type)
{
    if (type == RegistryType::qword)
        return sizeof(std::uint64_t);
    return type == RegistryType::dword || type == RegistryType::dwordBigEndian ? sizeof(std::uint32_t) : 0;
}

/// The number's bits in `size` bytes: unsigned, or negative down to the type's lowest.
std::optional<std::uint64_t> numberOf(std::string_view text, std::size_t size)
{
    const std::uint64_t most =
        size == sizeof(std::uint64_t) ? std::numeric_limits<std::uint64_t>::max() : 0xFFFFFFFFU;
    const bool bNegative = text.starts_with('-');
    if (bNegative)
        text.remove_prefix(1);
    const bool bHex = !bNegative && (text.starts_with("0x") || text.starts_with("0X"));
    if (bHex)
        text.remove_prefix(2);
    std::uint64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, bHex ? 16 : 10);
    if (error != std::errc() || stop != end || number > (bNegative ? most / 2 + 1 : most))
        return std::nullopt;
    return bNegative ? (~number + 1) & most : number;
}

std::string numberBytes(std::uint64_t number, std::size_t size, RegistryType type)
{
    std::string data;
    for (std::size_t byte = 0; byte < size; ++byte)
        data.push_back(static_cast<char>(number >> (8 * byte) & 0xFFU));
    if (type == RegistryType::dwordBigEndian)
        std::reverse(data.begin(), data.end());
    return data;
}

std::string numberText(std::string data, RegistryType type)
{
    if (type != RegistryType::dwordBigEndian)
        std::reverse(data.begin(), data.end());
    std::uint64_t number = 0;
    for (const char byte : data)
        number = number << 8U | static_cast<unsigned char>(byte);
    if (data.size() == sizeof(std::uint32_t))
        return std::to_string(static_cast<std::int32_t>(number));
    return std::to_string(static_cast<std::int64_t>(number));
}

std::optional<std::string> bytesOf(std::string_view text)
{
    std::string digits;
    for (const char character : text)
        if (character != ' ' && character != ',')
            digits.push_back(character);
    if (digits.size() % 2 != 0)
        return std::nullopt;
    std::string data;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        unsigned byte = 0;
        const char* end = digits.data() + at + 2;
        const auto [stop, error] = std::from_chars(digits.data() + at, end, byte, 16);
        if (error != std::errc() || stop != end)
            return std::nullopt;
        data.push_back(static_cast<char>(byte));
    }
    return data;
}

std::string hexText(const std::string& data)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (const char character : data) {
        const auto byte = static_cast<unsigned char>(character);
        text.append({kDigits[byte / 16], kDigits[byte % 16]});
    }
    return text;
}

std::string multiData(std::string_view text)
{
    if (text.empty())
        return std::string(1, '\0');
    std::string data;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(kTextSeparator, at), text.size());
        data.append(text.substr(at, end - at)).push_back('\0');
        at = end + kTextSeparator.size();
    }
    return data + '\0';
}

std::string multiText(std::string_view data, std::string_view separator)
{
    while (data.ends_with('\0'))
        data.remove_suffix(1);
    return replaceAll(data, std::string_view("\0", 1), separator);
}

} // namespace

std::optional<RegistryType> registryTypeOfName(std::string_view name)
{
    for (const TypeName& row : kTypeNames)
        if (equalNoCase(name, row.name))
            return row.type;
    return std::nullopt;
}

std::string registryTypeName(RegistryType type)
{
    for (const TypeName& row : kTypeNames)
        if (row.type == type)
            return row.name;
    return "REG_" + std::to_string(static_cast<std::uint32_t>(type));
}

std::optional<std::string> registryDataFromText(RegistryType type, std::string_view text)
{
    if (type == RegistryType::string || type == RegistryType::expandString)
        return std::string(text) + '\0';
    if (type == RegistryType::multiString)
        return multiData(text);
    const std::size_t size = numberSize(type);
    if (size == 0)
        return bytesOf(text);
    const auto number = numberOf(text, size);
    return number ? std::optional(numberBytes(*number, size, type)) : std::nullopt;
}

std::string registryDataToText(RegistryType type, const std::string& data, RegistryTextLayout layout)
{
    if (type == RegistryType::string || type == RegistryType::expandString)
        return data.ends_with('\0') ? data.substr(0, data.size() - 1) : data;
    if (type == RegistryType::multiString)
        return multiText(data, layout == RegistryTextLayout::lines ? "\n" : kTextSeparator);
    return numberSize(type) != 0 && data.size() == numberSize(type) ? numberText(data, type) : hexText(data);
}

} // namespace zorvo
