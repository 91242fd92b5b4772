#pragma once

#include <array>
#include <cctype>
#include <string>

namespace zorvo {

/// A native path as a file address. Only what means nothing to anybody stays unescaped: the office's own
/// conversion goes through the locale and loses names that aren't in its character set, and its start options
/// give some characters a meaning.
inline std::string fileAddressOf(const std::string& path)
{
    static constexpr std::array digits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                          '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};
    static const std::string plain = "/-_.";
    std::string address = "file://";
    for (const char character : path) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x80U && (std::isalnum(code) != 0 || plain.find(character) != std::string::npos)) {
            address += character;
            continue;
        }
        address += '%';
        address += digits.at(code >> 4U);
        address += digits.at(code & 0xFU);
    }
    return address;
}

} // namespace zorvo
