#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zorvo {

/// The offices that this process has started and that still run.
std::vector<pid_t> officeChildren();
/// Processes of the whole machine whose command line holds the text.
std::vector<pid_t> processesWith(const std::string& text);

} // namespace zorvo
