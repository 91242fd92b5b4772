#include "support/SupportHost.h"

namespace zorvo {

SupportHost& supportHost()
{
    static SupportHost host;
    return host;
}

} // namespace zorvo
