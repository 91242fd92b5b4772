#include "shell/addInCopy.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"

#include <string>

namespace zorvo {

void RefreshAddInCopy()
{
    const std::string sSource = GetZorvoPath(true) + "Qbk.xla";
    if (!bFileExists(sSource))
        return;
    const std::string sAppData = sGetAppDataFolder();
    if (sAppData.empty())
        return;
    const std::string sTarget = sAppData + "\\Microsoft\\AddIns\\Qbk.xla";
    if (!bFileExists(sTarget))
        return;
    Files& files = *platform().files;
    if (files.lastModified(sSource) <= files.lastModified(sTarget))
        return;
    files.clearAttributes(sTarget);
    files.copy(sSource, sTarget);
}

} // namespace zorvo
