#include "shell/forms/treeSearchForms.h"

#include "shell/forms/frmNoMoreSearch.h"
#include "shell/forms/frmTreeSearch.h"
#include "shell/treeSearch.h"
#include "window/spacing.h"

#include <QApplication>

namespace zorvo {

namespace {

/// In the lower right corner of the main window, where it hides no match.
void standAside(Form& form)
{
    const QWidget* front = QApplication::activeWindow();
    if (!front)
        return;
    form.load();
    form.adjustSize();
    const QRect area = front->geometry();
    form.move(area.right() - form.width() - kFormMargin, area.bottom() - form.height() - 4 * kFormMargin);
}

class SearchDialog : public TreeSearchDialog {
public:
    ~SearchDialog() override { form_.unload(); }
    bool ask() override
    {
        standAside(form_);
        form_.showModal();
        return form_.bFindNext;
    }
    std::string text() const override { return form_.text(); }
    void setText(const std::string& sText) override { form_.setText(sText); }

private:
    frmTreeSearch form_;
};

class SearchForms : public TreeSearchForms {
public:
    std::unique_ptr<TreeSearchDialog> newSearchDialog() override { return std::make_unique<SearchDialog>(); }
    bool askToContinue() override
    {
        frmNoMoreSearch form;
        form.showModal();
        const bool bContinue = form.bContinue;
        form.unload();
        return bContinue;
    }
};

} // namespace

void searchTreeWithForms(TreeNodes& tree)
{
    SearchForms forms;
    zorvo::SearchTree(tree, forms);
}

} // namespace zorvo
