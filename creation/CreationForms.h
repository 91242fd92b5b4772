#pragma once

#include "base/XmlDocument.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvo {

/// The form that asks for the folder of a batch, `frmSaveFolderDialog`.
class SaveFolderDialog {
public:
    virtual ~SaveFolderDialog() = default;

    virtual void setNumberofFiles(std::int32_t n) = 0;
    /// Returns when the form has hidden; its fields stay readable until `unloadForm`.
    virtual void showForm() = 0;
    /// The user left with a valid folder.
    virtual bool isOK() const = 0;
    virtual std::string getFilePath() const = 0;
    /// Place on the screen, in twips.
    virtual std::int32_t left() const = 0;
    virtual std::int32_t top() const = 0;
    virtual void unloadForm() = 0;
};

/// What a batch is to make, and where.
struct DocumentBatch {
    /// The parsed selection document, and its `Documents/Document` nodes.
    XmlDocument objSelectionDoc;
    std::vector<XmlNode> objDocumentNodes;
    std::int32_t nDocumentCount = 0;
    std::string sFolder;
    std::string sFileName;
    std::string sProfileData;
};

/// The windows that the making of documents brings up. The forms answer it; a test records it.
class CreationForms {
public:
    virtual ~CreationForms() = default;

    /// `frmSingleInstance`, not waited for. The text is the caption of `lblInstanceName`.
    virtual void showSingleInstance(const std::string& sInstanceName) = 0;
    virtual void unloadSingleInstance() = 0;

    /// The one instance, until its `unloadForm`.
    virtual SaveFolderDialog& saveFolderDialog() = 0;

    /// `frmProgressForm`: shown modally, then unloaded. It makes the documents as soon as it is up.
    virtual void runBatch(const DocumentBatch& batch) = 0;
};

/// Null until the forms are installed.
CreationForms*& creationForms();

} // namespace zorvo
