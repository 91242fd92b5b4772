#pragma once

#include <cstdint>
#include <string>

namespace zorvo {

/// The text of the waiting box at one tick of its timer: one, two, three dots, none, and from the start
/// again. `nDots` is the step and goes on by one.
std::string nextWaitText(std::int16_t& nDots);

} // namespace zorvo
