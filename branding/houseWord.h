#pragma once

#include <string>
#include <string_view>

namespace zorvo {

inline constexpr std::string_view kHouseWord = "Zorvo";

/// Puts `sName` in place of the house word wherever the word stands for the company, and leaves it where it
/// is part of a class name, a file name, a registry path or a compound word: `Zorvonet`, `clsZorvo`,
/// `.Zorvo`, `Zorvo_`,
/// `\Zorvo`, `Zorvo\`, `ZorvoZorvo`, `Zorvo9`. The lower-case word alone never changes.
///
/// A literal `[~~0~]` .. `[~~7~]`, `[~cU~]` or `[~cl~]` in the text (c a digit or letter) comes back as the
/// text that it stands for: the rule hides protected words behind these, and doesn't know its own from the
/// caller's.
std::string replaceHouseWord(std::string_view sText, std::string_view sName);

} // namespace zorvo
