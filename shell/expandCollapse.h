#pragma once

namespace zorvo {

class TreeNodes;

/// Expands or collapses the selected node and all below it. Nothing happens with no node selected or on one
/// that has no children.
void expandCollapse(TreeNodes& tree, bool bExpand);

} // namespace zorvo
