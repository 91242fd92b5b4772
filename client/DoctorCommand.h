#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zorvo {

/// `brendle doctor [--json]`: what a help desk needs to see at once, on `out`. 0 when nothing is wrong, 1
/// when something is, with one line on `err`, 2 for wrong usage. Changes nothing on the machine.
int runDoctorCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace zorvo
