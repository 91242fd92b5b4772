#pragma once

#include "base/XmlDocument.h"

#include <string>
#include <vector>

namespace zorvo {

/// The ready-made engagements of the installed `Tessora` products: the rows of the list, and the selection
/// document of the one chosen.
class EngagementList {
public:
    /// Fills the rows anew, of the latest years alone or of all, as the session's setting says. A failure
    /// reaches the caller and leaves the rows that were there by then.
    void LoadEngagementList();

    /// Display texts, by row.
    const std::vector<std::string>& texts() const { return texts_; }
    /// Product key, version and, where the engagement has one, package, joined by ";", by row.
    const std::vector<std::string>& keys() const { return listData_; }

    /// The selection document of a row: the template path as it stands and the engagement whole. Throws
    /// RunTimeError 91 when product year or engagement are no longer there.
    std::string selectionDocument(std::size_t nRow) const;

private:
    void addRows(const XmlNode& product);

    XmlDocument objStatusDoc_;
    XmlDocument objGeneralDoc_;
    std::vector<std::string> texts_;
    std::vector<std::string> listData_;
};

} // namespace zorvo
