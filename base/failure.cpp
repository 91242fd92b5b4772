#include "base/failure.h"

#include <utility>

namespace zorvo {

std::int32_t gnErrNumber = 0;
std::string gsErrDescription;

namespace {
FailureReporter& reporter()
{
    static FailureReporter installed;
    return installed;
}
} // namespace

void ReportError(const std::optional<std::string>& sTag, const std::optional<std::string>& sMessage,
                 const std::optional<bool>& bQuiet)
{
    if (reporter())
        reporter()(sTag, sMessage, bQuiet);
}

FailureReporter setFailureReporter(FailureReporter replacement)
{
    return std::exchange(reporter(), std::move(replacement));
}

void recordFailure(const RunTimeError& error)
{
    gnErrNumber = error.number();
    gsErrDescription = error.description();
}

} // namespace zorvo
