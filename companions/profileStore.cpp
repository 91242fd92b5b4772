#include "companions/profileStore.h"

#include <algorithm>
#include <string>

namespace zorvo {

namespace {

constexpr const char* kApplication = "ZorvoTSR";
constexpr const char* kSection = "Profiles";

std::string keyOf(int nProfile)
{
    return "Profile" + std::to_string(nProfile);
}

} // namespace

std::vector<ProfileData> storedProfiles(SettingsStore& settings)
{
    std::vector<ProfileData> profiles;
    for (int n = 1; n <= kMostProfiles; ++n) {
        ProfileData profile = parseProfile(settings.get(kApplication, kSection, keyOf(n)).value_or(""));
        if (!profile.empty())
            profiles.push_back(std::move(profile));
    }
    return profiles;
}

void storeProfile(SettingsStore& settings, const ProfileData& profile)
{
    std::vector<ProfileData> profiles = storedProfiles(settings);
    std::erase_if(profiles, [&](const ProfileData& each) {
        return profileValue(each, kClientName) == profileValue(profile, kClientName);
    });
    profiles.insert(profiles.begin(), profile);
    if (profiles.size() > kMostProfiles)
        profiles.resize(kMostProfiles);
    for (int n = 1; n <= static_cast<int>(profiles.size()); ++n) {
        const std::string sText = profileText(profiles[static_cast<std::size_t>(n - 1)]);
        // Each write makes the whole store anew.
        if (settings.get(kApplication, kSection, keyOf(n)) != sText)
            settings.set(kApplication, kSection, keyOf(n), sText);
    }
}

} // namespace zorvo
