#pragma once

#include <string>

namespace zorvo {

/// The data of a client as the products' add-in takes it, out of a file of lines "key=value" in UTF-8. Empty
/// lines and those that begin with "#" are passed over. Throws RunTimeError when the file can't be read (53
/// and its kind) and 13, with the number of the line, when it isn't such a file or holds nothing.
std::string readProfileFile(const std::string& sPath);

} // namespace zorvo
