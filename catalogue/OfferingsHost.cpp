#include "catalogue/OfferingsHost.h"

namespace zorvo {

OfferingsHost& offeringsHost()
{
    static OfferingsHost host;
    return host;
}

} // namespace zorvo
