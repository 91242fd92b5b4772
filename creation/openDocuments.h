#pragma once

#include <string>

namespace zorvo {

/// Opens a finished document for the user, in an application that stays. Failures are skipped; without the
/// application nothing happens and `creationState().sMissingOffice` says why.
void OpenWordDocument(const std::string& sPath);
void OpenExcelDocument(const std::string& sPath);

} // namespace zorvo
