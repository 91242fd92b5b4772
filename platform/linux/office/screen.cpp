#include "platform/linux/office/screen.h"

#include "platform/linux/environmentFolders.h"
#include "platform/linux/nativeFiles.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

namespace zorvo {

namespace {

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// `name` may begin with a zero character: a socket that is no file.
bool listens(const std::string& name)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, name.data(), name.size());
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    const FileDescriptor endpoint(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return endpoint.isOpen() &&
           connect(endpoint.get(), reinterpret_cast<const sockaddr*>(&address), length) == 0;
}

bool hasWaylandScreen()
{
    const std::string name = variable("WAYLAND_DISPLAY");
    if (name.empty())
        return false;
    return listens(name.front() == '/' ? name : runtimeFolder() + '/' + name);
}

/// "host:number.screen"; an empty host, or "unix", is this machine.
bool hasX11Screen()
{
    const std::string display = variable("DISPLAY");
    const std::string::size_type colon = display.rfind(':');
    if (colon == std::string::npos)
        return false;
    const std::string host = display.substr(0, colon);
    if (!host.empty() && host != "unix")
        return true; // a forwarded display; whoever set it up knows that it is there
    std::string number = display.substr(colon + 1);
    number = number.substr(0, number.find('.'));
    const std::string file = "/tmp/.X11-unix/X" + number;
    return listens(std::string(1, '\0') + file) || listens(file);
}

} // namespace

bool hasScreen()
{
    return hasX11Screen() || hasWaylandScreen();
}

} // namespace zorvo
