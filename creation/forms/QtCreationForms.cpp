#include "creation/forms/QtCreationForms.h"

#include "creation/forms/frmProgressForm.h"
#include "creation/forms/frmSaveFolderDialog.h"

#include <utility>

namespace zorvo {

QtCreationForms::QtCreationForms(SingleInstanceBox box)
    : box_(std::move(box))
{
}

void QtCreationForms::showSingleInstance(const std::string& sInstanceName)
{
    box_.show(sInstanceName);
}

void QtCreationForms::unloadSingleInstance()
{
    box_.unload();
}

SaveFolderDialog& QtCreationForms::saveFolderDialog()
{
    if (!dialog_)
        dialog_ = new frmSaveFolderDialog([this] { dialog_ = nullptr; });
    return *dialog_;
}

void QtCreationForms::runBatch(const DocumentBatch& batch)
{
    frmProgressForm form;
    form.setBatch(batch);
    form.showModal();
    form.unload();
}

void installQtCreationForms(SingleInstanceBox box)
{
    static QtCreationForms forms(std::move(box));
    creationForms() = &forms;
}

} // namespace zorvo
