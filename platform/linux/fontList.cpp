#include "platform/linux/fontList.h"

#include <fontconfig/fontconfig.h>

#include <system_error>

namespace zorvo {

std::jthread readFontListAhead()
{
    try {
        return std::jthread([] { FcInit(); });
    } catch (const std::system_error&) {
        return {};
    }
}

} // namespace zorvo
