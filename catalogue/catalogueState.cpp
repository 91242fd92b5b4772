#include "catalogue/catalogueState.h"

namespace zorvo {

CatalogueState& catalogueState()
{
    static CatalogueState state;
    return state;
}

} // namespace zorvo
