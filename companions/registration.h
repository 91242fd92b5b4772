#pragma once

#include "platform/linux/RegistryStore.h"

#include <string>

/// The companion classes in `HKEY_CLASSES_ROOT`. Every change is made whole or not at all; without the
/// permission to write the machine's registry it throws RunTimeError 70.
namespace zorvo {

inline constexpr const char* kCompanionsBusName = "com.zorvo.Companions";

/// Registers all classes with `sExecutable`, a native path, as the program that serves them.
void registerCompanions(RegistryStore& registry, const std::string& sExecutable);

/// Registers the classes that nobody has registered, and renews those of ours whose program isn't there any
/// more. A class that has another server keeps it.
void registerMissingCompanions(RegistryStore& registry, const std::string& sExecutable);

/// Removes the classes that are ours; those of another server stay.
void unregisterCompanions(RegistryStore& registry);

} // namespace zorvo
