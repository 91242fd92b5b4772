#pragma once

#include "platform/Automation.h"

namespace zorvo {

/// A door for clients that want this alone. It never touches the life of the process.
class clsAbout : public AutomationObject {
public:
    /// Shows a new About box modally. Under the modal state the box's busy pointer loads no main form.
    void show_QBK_About();
};

} // namespace zorvo
