#pragma once

namespace zorvo {

/// A display server of this session that windows can be shown on answers, or lies on another machine.
bool hasScreen();

} // namespace zorvo
