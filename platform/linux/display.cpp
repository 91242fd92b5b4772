#include "platform/linux/display.h"

#include <cstdlib>
#include <string_view>

namespace zorvo {

namespace {

std::string_view variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

bool hasDisplay()
{
    return !variable("DISPLAY").empty() || !variable("WAYLAND_DISPLAY").empty() ||
           !variable("QT_QPA_PLATFORM").empty() ||
           variable("XDG_SESSION_TYPE") == "wayland"; // such a session has one by a name of its own
}

} // namespace zorvo
