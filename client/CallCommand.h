#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zorvo {

/// `brendle call PROGID OPERATION [ARG ...]`: any operation of the program's own classes or of a registered
/// one. Each result is a line of its own on `out`, the entries of an array one line each, in the order of the
/// operation: its result first, then the arguments that come back. Booleans are True and False.
int runCallCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace zorvo
