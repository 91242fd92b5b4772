#include "base/failureLog.h"

#include <utility>

namespace zorvo {

namespace {
FailureLog& failureLog()
{
    static FailureLog installed;
    return installed;
}
} // namespace

void LogFailure(const std::string& sLine)
{
    if (failureLog())
        failureLog()(sLine);
}

FailureLog setFailureLog(FailureLog log)
{
    return std::exchange(failureLog(), std::move(log));
}

} // namespace zorvo
