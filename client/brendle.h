#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zorvo {

/// The whole `brendle` command; `args` is what stands behind its name. Exit code 0 when done, 1 with one line
/// on `err` and nothing on `out` when the call failed, 2 for wrong usage. Needs a QCoreApplication.
int runBrendle(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace zorvo
