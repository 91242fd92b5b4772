#include "platform/linux/office/officeEnvironment.h"

#include "base/text.h"
#include "platform/linux/office/childProcess.h"

#include <cstdlib>

namespace zorvo {

namespace {

bool isUtf8Locale()
{
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && value[0] != '\0')
            return containsNoCase(value, "UTF-8") || containsNoCase(value, "utf8");
    }
    return false;
}

} // namespace

std::vector<std::string> officeEnvironment(const PrivateProfile& profile)
{
    std::vector<std::string> result;
    const bool bUtf8 = isUtf8Locale();
    for (const std::string& text : ownEnvironment()) {
        const std::string name = text.substr(0, text.find('='));
        if (name != "TMPDIR" && name != "DISPLAY" && name != "WAYLAND_DISPLAY" &&
            name != "SAL_USE_VCLPLUGIN" && (bUtf8 || name != "LC_ALL"))
            result.push_back(text);
    }
    result.push_back("TMPDIR=" + profile.temporaryFolder());
    result.emplace_back("SAL_USE_VCLPLUGIN=svp");
    // In another character set it finds no file whose name has letters beyond ASCII.
    if (!bUtf8)
        result.emplace_back("LC_ALL=C.UTF-8");
    return result;
}

} // namespace zorvo
