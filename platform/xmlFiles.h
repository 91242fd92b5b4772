#pragma once

#include "base/XmlDocument.h"

#include <string>

namespace zorvo {

/// The document in the file at a backslash path. Empty when the file is missing, can't be read or isn't well
/// formed: an absent catalogue is an empty one.
XmlDocument loadXmlFile(const std::string& sPath);

} // namespace zorvo
