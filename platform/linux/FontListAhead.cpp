#include "platform/linux/FontListAhead.h"

#include <fontconfig/fontconfig.h>

#include <system_error>
#include <unistd.h>

namespace zorvo {

namespace {
constexpr int kGivesWay = 10;
} // namespace

FontListAhead::FontListAhead()
{
    try {
        thread_ = std::jthread([] {
            // The display's server answers the program meanwhile, perhaps on the same processor: that comes
            // first.
            nice(kGivesWay);
            FcInit();
        });
    } catch (const std::system_error&) { // no thread more is to be had; the list is read later
    }
}

void FontListAhead::wait()
{
    if (thread_.joinable())
        thread_.join();
}

} // namespace zorvo
