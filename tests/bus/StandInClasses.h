#pragma once

#include "tests/bus/ProbeClasses.h"

#include <vector>

namespace zorvo {

/// The program's public classes with operations that keep a diary instead of opening windows: a line per call
/// in
/// `$HOME/diary`. What a session hands over is the content of `$HOME/answer`; without that file it hands over
/// nothing.
std::vector<AutomationClass> standInClasses(ProbeHost& host);

} // namespace zorvo
