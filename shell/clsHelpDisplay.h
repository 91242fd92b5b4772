#pragma once

#include "platform/Automation.h"

namespace zorvo {

/// A door for clients that want this alone. It never touches the life of the process.
class clsHelpDisplay : public AutomationObject {
public:
    /// Shows the contents of the help file.
    void show_QBK_Help();
};

} // namespace zorvo
