#include "shell/mainGeometry.h"

#include "branding/brandedSettings.h"

#include <algorithm>
#include <limits>
#include <string>

namespace zorvo {

namespace {

constexpr const char* kApplication = "ZorvoBrendle";
constexpr const char* kSection = "Settings";
/// A window lower or narrower than this was never meant by a user.
constexpr int kSmallestSide = 200;

int storedNumber(const char* sKey)
{
    return nGetBrandedSetting(kApplication, kSection, sKey, 0);
}

void storeNumber(const char* sKey, int nValue)
{
    using Limits = std::numeric_limits<std::int16_t>;
    const int nFitting = std::clamp<int>(nValue, Limits::min(), Limits::max());
    SaveBrandedSetting(kApplication, kSection, sKey, std::to_string(nFitting));
}

} // namespace

MainGeometry restoreMainGeometry()
{
    if (storedNumber("MainState") == static_cast<int>(WindowState::maximised))
        return {};
    WindowPlace place;
    place.nLeft = storedNumber("MainLeft");
    place.nTop = storedNumber("MainTop");
    place.nHeight = storedNumber("MainHeight");
    if (place.nHeight < kSmallestSide)
        return {};
    place.nWidth = storedNumber("MainWidth");
    if (place.nWidth < kSmallestSide)
        return {};
    return {WindowState::normal, place};
}

void saveMainGeometry(WindowState state, const WindowPlace& place)
{
    if (state != WindowState::minimised) {
        storeNumber("MainLeft", place.nLeft);
        storeNumber("MainTop", place.nTop);
        storeNumber("MainWidth", place.nWidth);
        storeNumber("MainHeight", place.nHeight);
    }
    storeNumber("MainState", static_cast<int>(state));
}

} // namespace zorvo
