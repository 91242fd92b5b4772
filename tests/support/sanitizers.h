#pragma once

namespace zorvo {

/// Sanitizers look at what code does, not at how often: a test of large amounts may do with less under them.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

} // namespace zorvo
