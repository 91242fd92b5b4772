#pragma once

namespace zorvo {

class ListBarGroups;
class TreeNodes;

/// Fills the tree, and the list bar if it was not built yet, from what is installed and what the catalogue
/// holds. With `bAllOfferings` it shows all that the publisher offers, groups and products only, and
/// `listBar` is null. `bRebuild` loads the images and builds the list bar anew. Failures are reported and end
/// what they happened in. A box per installed product that the catalogue doesn't hold comes up while the tree
/// fills.
void LoadTree(TreeNodes& tree, ListBarGroups* listBar, bool bAllOfferings, bool bRebuild);

} // namespace zorvo
