#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace zorvo {

/// What holds for everything that one adaptor does.
struct OfficeManners {
    /// Called again and again while a call waits.
    std::function<void()> idleWork;
    bool bNeverReplace = false;
    /// An office that takes longer for one call hangs. With the time for ending it, it is noticed within 30
    /// s.
    std::chrono::milliseconds longestCall{25'000};
    /// A start reads a hundred libraries from the disk.
    std::chrono::milliseconds longestStart{60'000};
    /// An office of our own that has grown by more bytes than this is started anew between two documents.
    std::uint64_t largestGrowth = std::uint64_t{512} << 20U;
};

/// With `ZORVOBRENDLE_OFFICE_TIMEOUT_MS` and `ZORVOBRENDLE_OFFICE_GROWTH_KB` of the environment, which tests
/// set.
OfficeManners mannersOfEnvironment();

} // namespace zorvo
