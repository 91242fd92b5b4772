#include "shell/listBarJump.h"

#include "base/paths.h"
#include "window/TreeNodes.h"

namespace zorvo {

void jumpToListBarEntry(TreeNodes& tree, const std::string& sEntryKey)
{
    TreeNode* before = tree.selectedNode();
    TreeNode* match = tree.find(sGetFileName(sEntryKey, true));
    if (!match)
        return;
    tree.setExpanded(*match, true);
    tree.setSelected(*match, true);
    if (before)
        tree.setSelected(*before, false);
}

} // namespace zorvo
