#pragma once

#include "creation/CreationForms.h"

#include <functional>
#include <string>

namespace zorvo {

class frmSaveFolderDialog;

/// The small box that stands while one document is made. It belongs to a higher floor.
struct SingleInstanceBox {
    /// Shows it with the document's name, not waited for.
    std::function<void(const std::string& sInstanceName)> show;
    std::function<void()> unload;
};

/// The forms that the making of documents brings up.
class QtCreationForms : public CreationForms {
public:
    explicit QtCreationForms(SingleInstanceBox box);

    void showSingleInstance(const std::string& sInstanceName) override;
    void unloadSingleInstance() override;
    SaveFolderDialog& saveFolderDialog() override;
    void runBatch(const DocumentBatch& batch) override;

private:
    SingleInstanceBox box_;
    /// Deletes itself after its unload; a window must not wait for the end of the process to go.
    frmSaveFolderDialog* dialog_ = nullptr;
};

/// Makes these forms the ones of `creationForms()`. Called once, with the application object there.
void installQtCreationForms(SingleInstanceBox box);

} // namespace zorvo
