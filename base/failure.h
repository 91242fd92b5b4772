#pragma once

#include "base/RunTimeError.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace zorvo {

/// The last caught failure, for the whole process. Every catch point writes both before it reports.
extern std::int32_t gnErrNumber;
extern std::string gsErrDescription;

/// Writes the failure in the log and shows it in a box. `sTag` is "Module.Procedure"; `sMessage` replaces the
/// raw error in the box. The work is done by the reporter that the shell installs; without one (a console
/// tool, a test) nothing happens.
/// With `bQuiet` given, whatever its value, the failure is neither logged nor shown.
void ReportError(const std::optional<std::string>& sTag = {}, const std::optional<std::string>& sMessage = {},
                 const std::optional<bool>& bQuiet = {});

using FailureReporter =
    std::function<void(const std::optional<std::string>& sTag, const std::optional<std::string>& sMessage,
                       const std::optional<bool>& bQuiet)>;

/// Installs the reporter and gives back the one before, so that a test can put it back.
FailureReporter setFailureReporter(FailureReporter reporter);

/// Stores the failure in the two globals: the first act of every catch point.
void recordFailure(const RunTimeError& error);

} // namespace zorvo
