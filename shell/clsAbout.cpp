#include "shell/clsAbout.h"

#include "shell/ShellForms.h"
#include "shell/shellState.h"
#include "window/clsMousePointer.h"

namespace zorvo {

namespace {

/// Also after a box that failed: without an end, busy work would never again lock the main form.
class ModalDialogState {
public:
    ModalDialogState() { goMousePointer().SetModalDialogState(true); }
    ~ModalDialogState() { goMousePointer().SetModalDialogState(false); }
    ModalDialogState(const ModalDialogState&) = delete;
    ModalDialogState& operator=(const ModalDialogState&) = delete;
};

} // namespace

void clsAbout::show_QBK_About()
{
    const ModalDialogState modal;
    shellState().forms->showAbout();
}

} // namespace zorvo
