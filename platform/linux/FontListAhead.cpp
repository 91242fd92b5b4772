#include "platform/linux/FontListAhead.h"

#include <fontconfig/fontconfig.h>

#include <system_error>

namespace zorvo {

FontListAhead::FontListAhead()
{
    try {
        thread_ = std::jthread([] { FcInit(); });
    } catch (const std::system_error&) { // no thread more is to be had; the list is read later
    }
}

void FontListAhead::wait()
{
    if (thread_.joinable())
        thread_.join();
}

} // namespace zorvo
