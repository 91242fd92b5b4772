#pragma once

#include "creation/CreationForms.h"

#include <string>
#include <vector>

namespace zorvo {

/// What a batch does to the form that shows it, `frmProgressForm`.
class BatchWindow {
public:
    virtual ~BatchWindow() = default;

    /// Entries in the list of documents made.
    virtual int entryCount() const = 0;
    virtual void enableList() = 0;

    /// Nothing can be pressed any more, and the bar stands at 1 of `nMaximum`.
    virtual void beginProgress(int nMaximum) = 0;
    virtual void advanceBar() = 0;
    virtual void setStatus(const std::string& sText) = 0;
    /// `nImage` is an index of the form's small pictures.
    virtual void addEntry(const std::string& sName, int nImage) = 0;
    /// The bar goes, and the list and the buttons can be used.
    virtual void endProgress() = 0;
    virtual void focusFinished() = 0;
    /// Something that the user should know of the documents; empty takes it away.
    virtual void showNotice(const std::string& sText) = 0;
};

/// Makes all documents of the batch, each saved and closed, and ends Word and Excel. Nothing that happens to
/// one document stops it. A failure outside the making of one is reported and ends the batch with the form as
/// it stands. With entries in the list already, all this is done, and the list is enabled.
void Process_Multi_Docs(const DocumentBatch& batch, BatchWindow& window);

/// Lists a document that was made, with the picture of its template's kind.
void AddCreatedDocument(const std::string& sName, const XmlNode& document, BatchWindow& window);

/// Makes the first document and leaves it open, under the batch's own file name.
void ProcessFirstDoc(const DocumentBatch& batch, BatchWindow& window);

/// Opens documents of `sFolder` (with a closing backslash) for the user, by kind. Tells of each that isn't
/// there any more; with no more than that one in the list of `nEntries` it ends there.
void OpenCreatedDocuments(const std::string& sFolder, const std::vector<std::string>& names, int nEntries,
                          BatchWindow& window);

} // namespace zorvo
