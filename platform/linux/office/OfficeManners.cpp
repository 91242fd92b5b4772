#include "platform/linux/office/OfficeManners.h"

#include <cstdlib>

namespace zorvo {

namespace {

/// A whole number above 0, or `otherwise`.
std::int64_t numberOfEnvironment(const char* variable, std::int64_t otherwise)
{
    const char* text = std::getenv(variable);
    const std::int64_t number = text != nullptr ? std::strtoll(text, nullptr, 10) : 0;
    return number > 0 ? number : otherwise;
}

} // namespace

OfficeManners mannersOfEnvironment()
{
    OfficeManners manners;
    manners.longestCall = std::chrono::milliseconds(
        numberOfEnvironment("ZORVOBRENDLE_OFFICE_TIMEOUT_MS", manners.longestCall.count()));
    manners.longestStart = std::chrono::milliseconds(
        numberOfEnvironment("ZORVOBRENDLE_OFFICE_START_MS", manners.longestStart.count()));
    manners.largestGrowth =
        static_cast<std::uint64_t>(numberOfEnvironment(
            "ZORVOBRENDLE_OFFICE_GROWTH_KB", static_cast<std::int64_t>(manners.largestGrowth >> 10U)))
        << 10U;
    return manners;
}

} // namespace zorvo
