#pragma once

#include "window/ToolPool.h"

namespace zorvo {

/// All commands of the main window with their captions and texts, and the menus and the tool bar that show
/// them.
ToolPool commandTools();

} // namespace zorvo
