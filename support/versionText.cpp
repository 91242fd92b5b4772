#include "support/versionText.h"

#include "base/RunTimeError.h"
#include "base/programVersion.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"

namespace zorvo {

std::string GetVersionText()
{
    std::string sText = "Version " + std::to_string(kProgramVersion.nMajor) + "." +
                        std::to_string(kProgramVersion.nMinor) + ".0." +
                        std::to_string(kProgramVersion.nRevision);
    try {
        platform().settings->set("ZorvoBrendle", "Settings", "Version", sText);
    } catch (const RunTimeError&) { // the help desk's copy is a convenience
    }
    return sText;
}

} // namespace zorvo
