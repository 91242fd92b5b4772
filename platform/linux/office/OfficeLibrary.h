#pragma once

#include "platform/linux/office/OfficeConnection.h"

#include <string>

namespace zorvo {

/// The part of the program that speaks to an office, loaded at the first call with the office's own libraries
/// beneath it. Throws RunTimeError 429 when it can't be loaded.
const OfficeConnector& officeConnector(const std::string& programFolder);

/// Lets go of what the loaded part holds of the office's libraries; nothing when it was never loaded. No
/// connection may live.
void shutDownOfficeLibrary();

} // namespace zorvo
