#include "platform/linux/RegistryTextWriter.h"

#include "base/text.h"
#include "platform/linux/RegistryText.h"
#include "platform/linux/characterSets.h"

#include <string_view>

namespace zorvo {

namespace {

std::string escaped(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        if (character == '\\' || character == '"')
            result.push_back('\\');
        result.push_back(character);
    }
    return result;
}

/// A text that the quoted form gives back exactly: one zero, at its end, and no line break.
bool isPlainText(const RegistryValue& value)
{
    constexpr std::string_view kBreaks("\r\n", 2);
    return value.type == RegistryType::string && value.sData.find('\0') + 1 == value.sData.size() &&
           value.sData.find_first_of(kBreaks) == std::string::npos && isUtf8(value.sData);
}

std::string lowerHex(std::uint32_t number, int digits)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (; digits > 0 || number != 0; --digits, number /= 16)
        text.insert(text.begin(), kDigits[number % 16]);
    return text;
}

} // namespace

RegistryTextWriter::RegistryTextWriter()
    : text_(std::string(kRegistryTextHeader) + '\n')
{
}

void RegistryTextWriter::key(const std::string& sFullKey)
{
    text_.append("\n[").append(sFullKey).append("]\n");
}

void RegistryTextWriter::value(const RegistryValue& value)
{
    const std::string name = value.sName.empty() ? "@=" : '"' + escaped(value.sName) + "\"=";
    if (isPlainText(value)) {
        const std::string_view content = std::string_view(value.sData).substr(0, value.sData.size() - 1);
        text_.append(name).append("\"").append(escaped(content)).append("\"\n");
    } else if (value.type == RegistryType::dword && value.sData.size() == 4) {
        std::uint32_t number = 0;
        for (int byte = 3; byte >= 0; --byte)
            number = number << 8U | static_cast<unsigned char>(value.sData[static_cast<std::size_t>(byte)]);
        text_.append(name).append("dword:").append(lowerHex(number, 8)).append("\n");
    } else if (value.type == RegistryType::binary) {
        hex(name + "hex:", value.sData);
    } else {
        const std::string type = lowerHex(static_cast<std::uint32_t>(value.type), 1);
        hex(name + "hex(" + type + "):",
            isTextType(value.type) ? utf16FromStoredText(value.sData) : value.sData);
    }
}

void RegistryTextWriter::hex(const std::string& prefix, const std::string& data)
{
    constexpr std::size_t kWidth = 77; // leaves room for "\" in 80 columns
    text_.append(prefix);
    std::size_t column = prefix.size();
    for (std::size_t at = 0; at < data.size(); ++at) {
        const bool bLast = at + 1 == data.size();
        text_.append(lowerHex(static_cast<unsigned char>(data[at]), 2)).append(bLast ? "" : ",");
        column += 3;
        if (!bLast && column >= kWidth) {
            text_.append("\\\n  ");
            column = 2;
        }
    }
    text_.append("\n");
}

std::string RegistryTextWriter::utf16() const
{
    std::string lines;
    lines.reserve(text_.size() + text_.size() / 16);
    for (const char character : text_) {
        if (character == '\n')
            lines.push_back('\r');
        lines.push_back(character);
    }
    return "\xFF\xFE" + utf16FromStoredText(lines);
}

} // namespace zorvo
