#pragma once

#include "tree/LibraryDocument.h"
#include "tree/StatusDocument.h"

#include <memory>

namespace zorvo {

/// What the tree keeps for the life of the main window. A test makes it anew with `treeState() =
/// TreeState()`.
struct TreeState {
    /// The central catalogue; null until the first load of a tree. Whoever works on it while boxes can come
    /// up holds it too: the main window may go meanwhile.
    std::shared_ptr<const LibraryDocument> objLibraryDoc;
    /// What is installed; null until the first load of the main tree.
    std::shared_ptr<const StatusDocument> objStatusDoc;
    /// The list bar was built.
    bool bListBarLoaded = false;
};

TreeState& treeState();

/// Drops both documents, when the main window unloads.
void ReleaseCatalogDocuments();

} // namespace zorvo
