#pragma once

namespace zorvo {

class TreeNodes;

/// Searches the tree by name with the program's own dialogs.
void searchTreeWithForms(TreeNodes& tree);

} // namespace zorvo
