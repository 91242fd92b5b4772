#pragma once

#include "platform/Office.h"
#include "platform/linux/office/OfficeConnection.h"

#include <string>
#include <vector>

namespace zorvo {

/// The add-ins of an application: the add-in files in the user's own folder for them, by name. Whether one is
/// installed stands in the registry, under HKEY_CURRENT_USER\Software\Zorvo\Office\<Word|Excel>\AddIns, with
/// "1" or "0" under the file's name; one without a value isn't.
class OfficeAddInList {
public:
    explicit OfficeAddInList(OfficeDocumentKind kind);

    /// Looks at the folder again.
    int count();
    /// `index` from 1; of the folder as it was at the last `count`. Throws RunTimeError 9.
    OfficeAddIn at(int index);
    /// Throws RunTimeError 9, or 75 when the registry can't be written.
    void setInstalled(int index, bool bInstalled);

private:
    const std::string& nameAt(int index);

    OfficeDocumentKind kind_;
    bool bListed_ = false;
    std::vector<std::string> names_;
};

} // namespace zorvo
