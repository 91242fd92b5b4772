#pragma once

#include <functional>
#include <string>

namespace zorvo {

/// One line in the log and nothing on the screen: for what a window tells in its own way. The work is done by
/// the log that the shell installs; without one nothing happens.
void LogFailure(const std::string& sLine);

using FailureLog = std::function<void(const std::string& sLine)>;

/// Installs the log and gives back the one before, so that a test can put it back.
FailureLog setFailureLog(FailureLog log);

} // namespace zorvo
