#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Text is UTF-8 in std::string all through the program. "Without regard to case" means Unicode upper case,
/// character by character, compared by code; bytes that are not UTF-8 are compared as they are.
namespace zorvo {

std::string upperCase(std::string_view text);

bool isUtf8(std::string_view text);

/// Below, equal to or above 0, by character code.
int compareCodes(std::string_view a, std::string_view b);
/// The same over the upper-case forms.
int compareNoCase(std::string_view a, std::string_view b);
bool equalNoCase(std::string_view a, std::string_view b);
/// An empty `part` is contained in every text.
bool containsNoCase(std::string_view text, std::string_view part);
bool endsWithNoCase(std::string_view text, std::string_view ending);
/// Byte position of the first occurrence at or after `from`, or npos.
std::string::size_type findNoCase(std::string_view text, std::string_view part,
                                  std::string::size_type from = 0);

/// Every occurrence, from the first character on; what was put in is not searched again. An empty `find`
/// changes nothing.
std::string replaceAll(std::string_view text, std::string_view find, std::string_view replacement);
std::string replaceAllNoCase(std::string_view text, std::string_view find, std::string_view replacement);

/// Without the blanks (U+0020, nothing else) at both ends.
std::string trimBlanks(std::string_view text);

/// Up to the first zero character, or all.
std::string cutAtNull(std::string_view text);

/// Number of characters (code points).
std::size_t characterCount(std::string_view text);
/// The last `count` characters, or all when there are fewer.
std::string lastCharacters(std::string_view text, std::size_t count);

} // namespace zorvo
