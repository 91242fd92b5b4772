#pragma once

#include <string>

namespace zorvo {

/// The backslash form of a path as a user gives it: with a drive, or native and then relative to the current
/// folder. Both separators are taken in either.
std::string givenPath(const std::string& sGiven);

} // namespace zorvo
