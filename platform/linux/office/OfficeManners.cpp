#include "platform/linux/office/OfficeManners.h"

#include <algorithm>
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
    // A start reads a hundred libraries from the disk: it gets time of its own.
    manners.longestStart =
        std::min(manners.longestStart, manners.longestCall + std::chrono::milliseconds(30'000));
    manners.largestGrowth =
        static_cast<std::uint64_t>(numberOfEnvironment(
            "ZORVOBRENDLE_OFFICE_GROWTH_MB", static_cast<std::int64_t>(manners.largestGrowth >> 20U)))
        << 20U;
    return manners;
}

} // namespace zorvo
