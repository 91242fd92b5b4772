#pragma once

#include "tree/LibraryDocument.h"
#include "tree/OwnLibraries.h"
#include "tree/StatusDocument.h"

#include <functional>
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
    /// Of the product whose node was described last, when it has one of its own.
    OwnLibraries described;
    /// The list bar was built.
    bool bListBarLoaded = false;
    /// Told after each installed product year that a fill of the tree has dealt with, of how many. It must
    /// not serve events: the tree is half there. May be empty.
    std::function<void(int nDone, int nTotal)> progress;
};

TreeState& treeState();

/// Drops the documents, when the main window unloads.
void ReleaseCatalogDocuments();

} // namespace zorvo
