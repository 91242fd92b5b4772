#include "shell/clsHelpDisplay.h"

#include "shell/ShellForms.h"
#include "shell/shellState.h"

namespace zorvo {

void clsHelpDisplay::show_QBK_Help()
{
    shellState().forms->showHelpContents();
}

} // namespace zorvo
