#pragma once

#include "base/RunTimeError.h"

#include <string>

namespace zorvo {

/// The failure as one line without its end: "Error <number> - <description>".
std::string failureLine(const RunTimeError& error);

} // namespace zorvo
