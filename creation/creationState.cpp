#include "creation/creationState.h"

#include "platform/Office.h"

namespace zorvo {

CreationState& creationState()
{
    static CreationState state;
    return state;
}

} // namespace zorvo
