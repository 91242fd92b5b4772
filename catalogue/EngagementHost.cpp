#include "catalogue/EngagementHost.h"

namespace zorvo {

EngagementHost& engagementHost()
{
    static EngagementHost host;
    return host;
}

} // namespace zorvo
