#include "shell/forms/treeSearchForms.h"

#include "shell/forms/frmNoMoreSearch.h"
#include "shell/forms/frmTreeSearch.h"
#include "shell/treeSearch.h"
#include "window/TreeView.h"
#include "window/spacing.h"

namespace zorvo {

namespace {

/// A desktop's title bar is no higher.
constexpr int kTitleBar = 2 * kFormMargin;

QRect onScreen(const QWidget& widget, const QRect& area)
{
    return {widget.mapToGlobal(area.topLeft()), area.size()};
}

class SearchDialog : public TreeSearchDialog {
public:
    explicit SearchDialog(const TreeView& tree)
        : tree_(tree)
    {
    }
    ~SearchDialog() override { form_.unload(); }
    bool ask() override
    {
        form_.load();
        standAside();
        form_.showModal();
        return form_.bFindNext;
    }
    std::string text() const override { return form_.text(); }
    void setText(const std::string& sText) override { form_.setText(sText); }

private:
    /// In a right corner of the main window, the lower one unless the match is there. Where the user has put
    /// it, it stays as long as it hides no match.
    void standAside()
    {
        if (bPlaced_ && !hidesMatch(form_.geometry()))
            return;
        form_.adjustSize();
        const QRect area = tree_.window()->geometry();
        QRect place(QPoint(), form_.size());
        place.moveBottomRight(area.bottomRight() - QPoint(kFormMargin, kFormMargin + kTitleBar));
        if (hidesMatch(place))
            place.moveTop(area.top() + kTitleBar);
        form_.move(place.topLeft());
        bPlaced_ = true;
    }
    bool hidesMatch(const QRect& place) const
    {
        const QRect match = onScreen(*tree_.viewport(), tree_.visualRect(tree_.currentIndex()));
        return place.adjusted(0, -kTitleBar, 0, kTitleBar).intersects(match);
    }

    const TreeView& tree_;
    frmTreeSearch form_;
    bool bPlaced_ = false;
};

class SearchForms : public TreeSearchForms {
public:
    explicit SearchForms(const TreeView& tree)
        : tree_(tree)
    {
    }
    std::unique_ptr<TreeSearchDialog> newSearchDialog() override
    {
        return std::make_unique<SearchDialog>(tree_);
    }
    bool askToContinue() override
    {
        frmNoMoreSearch form;
        form.showModal();
        const bool bContinue = form.bContinue;
        form.unload();
        return bContinue;
    }

private:
    const TreeView& tree_;
};

} // namespace

void searchTreeWithForms(TreeView& tree)
{
    SearchForms forms(tree);
    SearchTree(tree.nodes(), forms);
}

} // namespace zorvo
