#pragma once

#include "platform/ObjectService.h"

#include <vector>

namespace zorvo {

/// The program's public classes in the order of the type library, each with its operations in slot order.
std::vector<AutomationClass> automationClasses();

} // namespace zorvo
