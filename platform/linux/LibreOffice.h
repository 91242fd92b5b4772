#pragma once

#include "platform/Office.h"

#include <memory>

namespace zorvo {

/// Word and Excel as LibreOffice. Documents of a visible application open in the user's own LibreOffice and
/// stay there; all others live in a hidden one of our own, which comes with the first document and goes when
/// its last application quits or is let go. The office is looked for, and its libraries are loaded, when they
/// are needed.
///
/// All calls come from one thread. The `platform()` ports files, folders and registry must be installed.
std::shared_ptr<Office> makeLibreOffice();

} // namespace zorvo
