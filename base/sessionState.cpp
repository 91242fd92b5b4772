#include "base/sessionState.h"

namespace zorvo {

SessionState& sessionState()
{
    static SessionState state;
    return state;
}

} // namespace zorvo
