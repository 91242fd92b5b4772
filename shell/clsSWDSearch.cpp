#include "shell/clsSWDSearch.h"

#include "shell/ShellForms.h"
#include "shell/shellState.h"

namespace zorvo {

void clsSWDSearch::SWD_RunSearch()
{
    shellState().forms->showSearch();
}

} // namespace zorvo
