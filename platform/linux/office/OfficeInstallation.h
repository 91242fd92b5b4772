#pragma once

#include "platform/linux/office/OfficeConnection.h"

#include <string>

namespace zorvo {

/// A LibreOffice on this machine. All paths are native.
struct OfficeInstallation {
    std::string sProgramFolder;
    std::string sVersion;     // "7.4"
    std::string sBuild;       // the build's own mark, which a profile carries
    std::string sUserProfile; // the folder of the user's own settings; need not exist yet
};

/// Looks where `ZORVOBRENDLE_OFFICE_DIR` (a program folder) says, else at the usual places. Throws
/// RunTimeError 429, naming the packages to install, when there is none or it lacks the part for this kind of
/// document.
OfficeInstallation findOffice(OfficeDocumentKind kind);

} // namespace zorvo
