#pragma once

namespace zorvo {

/// The environment names a display, or tells Qt to show windows in another way. Without one a program with
/// windows can't start.
bool hasDisplay();

} // namespace zorvo
