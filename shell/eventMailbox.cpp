#include "shell/eventMailbox.h"

#include "shell/MainForm.h"
#include "shell/ShellForms.h"
#include "shell/shellState.h"

namespace zorvo {

void handleEventTimer(MainForm& form)
{
    const int nRequest = form.tmEventInterval();
    form.setTmEventInterval(0);
    switch (nRequest) {
    case kRequestRaise:
        // Top-most for a moment: the window comes to the front without staying there and without taking the
        // focus from inside another process's call.
        form.SetWindowTopMost(true);
        form.setTmEventInterval(kRequestEndRaise);
        break;
    case kRequestEndRaise:
        form.SetWindowTopMost(false);
        break;
    case kRequestUnload:
        form.unloadForm();
        break;
    default:
        endSplash();
    }
}

void endSplash()
{
    try {
        shellState().forms->unloadSplash();
    } catch (...) { // the window is gone all the same
    }
}

} // namespace zorvo
