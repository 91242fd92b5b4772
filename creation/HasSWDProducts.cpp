#include "creation/HasSWDProducts.h"

#include "tree/treeState.h"

namespace zorvo {

bool HasSWDProducts()
{
    const auto status = treeState().objStatusDoc;
    return status && status->hasSwdProducts();
}

} // namespace zorvo
