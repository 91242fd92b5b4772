#pragma once

namespace zorvo {

class TreeView;

/// Searches the tree by name with the program's own dialogs, which leave each match in sight.
void searchTreeWithForms(TreeView& tree);

} // namespace zorvo
