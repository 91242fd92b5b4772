#include "creation/invokedFlag.h"

#include "base/paths.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"

namespace zorvo {

void SetInvokedFlag(const std::string& sTemplatePath, const std::string& sValue)
{
    platform().settings->set("Zorvo", "Quillbook", "ZorvoBrendleInvoked_" + sGetFileName(sTemplatePath, true),
                             sValue);
}

} // namespace zorvo
