#pragma once

#include <string>

namespace zorvo {

/// The rules of FileSearch.h carried out word by word, in the slow and obvious way: the second opinion for
/// the matcher.
bool obviouslyFound(const std::string& sKeyword, const std::string& sText);

} // namespace zorvo
