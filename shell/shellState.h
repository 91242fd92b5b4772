#pragma once

#include "platform/Automation.h"

#include <memory>
#include <string>

namespace zorvo {

class MainForm;
class ShellForms;

/// What the shell keeps for the whole process. One value; a test makes it anew with `shellState() =
/// ShellState()`.
struct ShellState {
    /// The loaded main form; absent before its load event and after its unload event. Every test for a main
    /// window reads this, never the form's default instance, which would load it.
    MainForm* gfrmMain = nullptr;
    ShellForms* forms = nullptr;

    /// Path of the hand-over file, built once; empty until then.
    std::string sMarkerPath;

    /// The shared framework object: holding it is its whole use.
    LateBoundPtr objActXManager;
    std::string sActXCaption;
};

ShellState& shellState();

} // namespace zorvo
