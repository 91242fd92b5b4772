#include "shell/treeSearch.h"

#include "base/text.h"
#include "window/TreeNodes.h"

namespace zorvo {

namespace {

/// Whatever happens meanwhile, the user gets the multiple selection back.
class SingleSelection {
public:
    explicit SingleSelection(TreeNodes& tree)
        : tree_(tree)
    {
        tree_.setMultiSelect(false);
    }
    ~SingleSelection() { tree_.setMultiSelect(true); }
    SingleSelection(const SingleSelection&) = delete;
    SingleSelection& operator=(const SingleSelection&) = delete;

private:
    TreeNodes& tree_;
};

} // namespace

void SearchTree(TreeNodes& tree, TreeSearchForms& forms)
{
    bool bAgain = true;
    while (bAgain) {
        const auto dialog = forms.newSearchDialog();
        const bool bFindNext = dialog->ask();
        bool bNoMore = false;
        {
            const SingleSelection single(tree);
            if (bFindNext) {
                tree.clearSelection();
                SearchTreeNodes(tree, dialog->text(), forms, bNoMore);
            }
        }
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
