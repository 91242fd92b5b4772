#pragma once

#include <string>

namespace zorvo {

/// The twin of CreateWordDocument for workbooks. `bShare` also keeps the template's start-up code from
/// running, and closes the workbook once it is saved. A failing call to Excel is skipped and the next one
/// runs.
void CreateExcelDocument(const std::string& sUpperTemplatePath, const std::string& sFolder,
                         std::string& sFileName, bool bShare, bool bSave, const std::string& sProfileData);

} // namespace zorvo
