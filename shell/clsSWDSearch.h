#pragma once

#include "platform/Automation.h"

namespace zorvo {

/// A door for clients that want this alone. It never touches the life of the process.
class clsSWDSearch : public AutomationObject {
public:
    /// Runs the search of the example library.
    void SWD_RunSearch();
};

} // namespace zorvo
