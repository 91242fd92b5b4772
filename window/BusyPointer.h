#pragma once

#include "window/clsMousePointer.h"

namespace zorvo {

/// The wait pointer while this lives: however the work ends, the main form isn't left locked.
class BusyPointer {
public:
    BusyPointer() { goMousePointer().setMousePointer(kHourglass); }
    ~BusyPointer() { goMousePointer().setMousePointer(kDefaultPointer); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

} // namespace zorvo
