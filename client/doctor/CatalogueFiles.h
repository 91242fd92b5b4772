#pragma once

#include "base/XmlDocument.h"
#include "client/doctor/Diagnosis.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zorvo {

/// The program's own files: catalogues, captions of each company, and the error log.
DiagnosisSection checkFiles();

/// What the tree order document in use says; empty when it can't be read, which `checkFiles` tells.
struct TreeOrderContent {
    bool bRead = false;
    std::set<std::string> productKeys;
    /// The companies that have products of their own.
    std::set<std::string> companies;
};
TreeOrderContent treeOrderContent();

/// The document at a backslash path, which must be there. One that can't be read or isn't well formed is a
/// fault, with the line, and gives an empty document.
XmlDocument readCatalogue(const std::string& sPath, std::vector<Fault>& faults);

} // namespace zorvo
