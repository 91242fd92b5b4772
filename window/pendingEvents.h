#pragma once

namespace zorvo {

/// Serves what waits now (paints, timers, calls from other processes) and returns. Nothing happens in a
/// console program.
void processPendingEvents();

} // namespace zorvo
