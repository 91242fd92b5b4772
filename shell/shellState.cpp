#include "shell/shellState.h"

namespace zorvo {

ShellState& shellState()
{
    static ShellState state;
    return state;
}

} // namespace zorvo
