#pragma once

#include <string>

namespace zorvo {

/// "Version " and the program's version. As a side effect the same text is stored as the setting `Version`,
/// without a company prefix; a store that can't be written is ignored, since nobody in this program reads it
/// back.
std::string GetVersionText();

} // namespace zorvo
