#include "window/MainFormGate.h"

namespace zorvo {

MainFormGate*& mainFormGate()
{
    static MainFormGate* gate = nullptr;
    return gate;
}

} // namespace zorvo
