#pragma once

#include <string>

namespace zorvo {

/// Title of the main window: the company's name and "'s Brendle". The one company whose name differs from its
/// acronym is "OTR", shown as "OT&R".
std::string sMainCaption(const std::string& sCompany);

} // namespace zorvo
