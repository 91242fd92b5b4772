#pragma once

#include "companions/profileData.h"
#include "platform/SettingsStore.h"

#include <vector>

/// The profiles that were used last, in the user's settings.
namespace zorvo {

inline constexpr int kMostProfiles = 10;

/// The last one first.
std::vector<ProfileData> storedProfiles(SettingsStore& settings);

/// Puts the profile in front; one of the same client goes, and the oldest beyond `kMostProfiles`. Throws
/// RunTimeError 75 when the settings can't be written.
void storeProfile(SettingsStore& settings, const ProfileData& profile);

} // namespace zorvo
