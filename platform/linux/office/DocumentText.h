#pragma once

#include "platform/linux/office/DocumentCore.h"

#include <memory>
#include <string>

namespace zorvo {

/// The text of an open document, with the cursor in it.
class DocumentText {
public:
    /// Throws RunTimeError 424 when the document has been closed.
    explicit DocumentText(std::shared_ptr<DocumentCore> document);

    /// `sFile` is a backslash path.
    void insertFile(const std::string& sFile) const;
    void goToStart() const;
    bool isWithinTable() const;
    void deleteForward() const;

    int tableCount() const;
    /// The number by which a table is known. `index` from 1; throws RunTimeError 9.
    int tableAt(int index) const;
    std::string tableText(int nTable) const;
    void selectTable(int nTable) const;
    void removeTable(int nTable) const;

private:
    std::shared_ptr<DocumentCore> document_;
    DocumentCore::Loaded loaded_;
};

} // namespace zorvo
