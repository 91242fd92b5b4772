#pragma once

namespace zorvo {

/// Exit codes of `brendle`, for scripts and installers.
enum ExitCode : int { kExitDone = 0, kExitFailed = 1, kExitWrongUsage = 2 };

} // namespace zorvo
