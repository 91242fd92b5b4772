#pragma once

#include "base/RunTimeError.h"

#include <string>
#include <string_view>

namespace zorvo {

/// The text with a blank for each of its line breaks, or row of them.
std::string oneLine(std::string_view sText);

/// The failure as one line without its end: "Error <number> - <description>".
std::string failureLine(const RunTimeError& error);

} // namespace zorvo
