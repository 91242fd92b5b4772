#include "tree/treeState.h"

namespace zorvo {

TreeState& treeState()
{
    static TreeState state;
    return state;
}

void ReleaseCatalogDocuments()
{
    treeState().objLibraryDoc.reset();
    treeState().objStatusDoc.reset();
    treeState().described = {};
}

} // namespace zorvo
