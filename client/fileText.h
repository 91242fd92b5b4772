#pragma once

#include <string>

/// Texts out of files that people and other programs write.
namespace zorvo {

/// Without the mark that some editors put ahead of UTF-8.
std::string withoutByteOrderMark(std::string sBytes);

/// Without the blanks, tabs and line ends around it.
std::string withoutBlankEnds(const std::string& sText);

} // namespace zorvo
