#include "shell/expandCollapse.h"

#include "window/TreeNodes.h"

namespace zorvo {

namespace {

/// `first` is always a first child. The walk goes by the numbers between it and its last sibling, whatever
/// lies there: in the collection's order those are the siblings and all below them, so that a node may be
/// touched twice.
void expandCollapseLevel(TreeNodes& tree, TreeNode& first, bool bExpand)
{
    const int nLast = first.parent()->children().back()->index();
    for (int i = first.index(); i <= nLast; ++i) {
        TreeNode& node = tree.item(i);
        if (node.children().empty())
            continue;
        expandCollapseLevel(tree, *node.children().front(), bExpand);
        tree.setExpanded(node, bExpand);
    }
    tree.setExpanded(first, bExpand);
}

} // namespace

void expandCollapse(TreeNodes& tree, bool bExpand)
{
    TreeNode* selected = tree.selectedNode();
    if (!selected || selected->children().empty())
        return;
    expandCollapseLevel(tree, *selected->children().front(), bExpand);
    tree.setExpanded(*selected, bExpand);
}

} // namespace zorvo
