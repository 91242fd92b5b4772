#pragma once

#include <string>

namespace zorvo {

/// The library that the registry names for a class that runs inside the office, as a native path:
/// HKEY_CLASSES_ROOT\<ProgID>\CLSID leads to CLSID\{...}\InprocServer32. Empty when there is none.
std::string addInLibraryOf(const std::string& sProgId);

} // namespace zorvo
