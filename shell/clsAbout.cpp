#include "shell/clsAbout.h"

#include "shell/ShellForms.h"
#include "shell/shellState.h"
#include "window/clsMousePointer.h"

namespace zorvo {

void clsAbout::show_QBK_About()
{
    goMousePointer().SetModalDialogState(true);
    shellState().forms->showAbout();
    goMousePointer().SetModalDialogState(false);
}

} // namespace zorvo
