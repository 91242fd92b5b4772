#include "shell/treeSearch.h"

#include "base/text.h"
#include "window/TreeNodes.h"

namespace zorvo {

void SearchTree(TreeNodes& tree, TreeSearchForms& forms)
{
    bool bAgain = true;
    while (bAgain) {
        const auto dialog = forms.newSearchDialog();
        const bool bFindNext = dialog->ask();
        bool bNoMore = false;
        tree.setMultiSelect(false);
        if (bFindNext) {
            tree.clearSelection();
            SearchTreeNodes(tree, dialog->text(), forms, bNoMore);
        }
        tree.setMultiSelect(true);
        bAgain = bNoMore && forms.askToContinue();
    }
}

void SearchTreeNodes(TreeNodes& tree, const std::string& sFind, TreeSearchForms& forms, bool& bNoMore)
{
    // A dialog of its own for the matches: the first one only takes the text.
    const auto dialog = forms.newSearchDialog();
    dialog->setText(sFind);
    bNoMore = false;
    for (int i = 1; i <= tree.count(); ++i) {
        if (!containsNoCase(tree.item(i).text(), sFind))
            continue;
        tree.setSelected(tree.item(i), true);
        if (!dialog->ask())
            return;
    }
    bNoMore = true;
}

} // namespace zorvo
