#pragma once

#include "platform/ObjectService.h"

#include <functional>
#include <vector>

namespace zorvo {

/// What the probe's operations do to the process they run in.
struct ProbeHost {
    std::function<void()> endProcess = [] {};
    std::function<void()> reconsiderEnd = [] {};
    bool bFormLoaded = false;
};

/// Classes for tests: `Test.Probe`, whose operations show all that a served class can do, and stand-ins for
/// the program's own classes with the operations that the command-line client calls.
std::vector<AutomationClass> probeClasses(ProbeHost& host);

} // namespace zorvo
