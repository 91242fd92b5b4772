#pragma once

#include "platform/linux/office/PrivateProfile.h"

#include <string>
#include <vector>

namespace zorvo {

/// The environment, as "NAME=value", of an office process of our own: without a screen, its temporary files
/// in its profile, file names in UTF-8.
std::vector<std::string> officeEnvironment(const PrivateProfile& profile);

} // namespace zorvo
