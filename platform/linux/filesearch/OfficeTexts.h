#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// Is given, for each file in order, the native path of a rich text file made of it, or nothing when the
/// office can't read it. The rich text goes after the call.
using TakeOfficeText = std::function<void(std::size_t i, const std::optional<std::string>& sTextFile)>;

/// Takes the texts out of native files with an office process of our own, which may neither stand still for
/// long nor grow without bounds: a file at which it does, for longer than `patience`, is one that can't be
/// read. Runs on one thread, which the process doesn't outlive. Throws RunTimeError 429 when there is no
/// office, or it can't be started.
void takeOfficeTexts(const std::vector<std::string>& files, const TakeOfficeText& take,
                     const std::function<bool()>& isCancelled,
                     std::chrono::milliseconds patience = std::chrono::seconds(30));

} // namespace zorvo
