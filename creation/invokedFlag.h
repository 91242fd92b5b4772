#pragma once

#include <string>

namespace zorvo {

/// Tells the workbook's add-in that a workbook of this template comes from this program: `sValue` is "TRUE"
/// or "FALSE". Throws RunTimeError 75 when the settings can't be written.
void SetInvokedFlag(const std::string& sTemplatePath, const std::string& sValue);

} // namespace zorvo
