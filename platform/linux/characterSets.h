#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Texts of other character sets, to and from UTF-8.
namespace zorvo {

enum class ByteOrder { littleEndian, bigEndian };

/// Strict: nothing for an odd number of bytes or a half of a surrogate pair.
std::optional<std::string> utf8FromUtf16(std::string_view bytes, ByteOrder order);
/// What can be read of it: a half of a surrogate pair becomes U+FFFD, an odd byte at the end goes.
std::string readableFromUtf16(std::string_view bytes, ByteOrder order);

/// What stores keep is not always text. These two, little endian, lose nothing: a byte that is not UTF-8
/// travels as the lone half U+DC00 + byte and comes back as that byte. Nothing for an odd number of bytes.
std::string utf16FromStoredText(std::string_view text);
std::optional<std::string> storedTextFromUtf16(std::string_view bytes);

/// windows-1252; its five free bytes become the control characters of the same number.
std::string utf8FromWindows1252(std::string_view bytes);

/// Text of an "ANSI" file: UTF-8 when it is, else windows-1252.
std::string utf8FromAnsi(std::string_view bytes);

} // namespace zorvo
