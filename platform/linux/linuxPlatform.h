#pragma once

namespace zorvo {

/// Installs this platform's adaptors for the machine side in `platform()`: registry, settings, files,
/// folders, launcher, libraries, machine and file search, at the places that the environment names. The first
/// start writes the user's application data folder. The ports of office, objects, service and help stay as
/// they are: each program adds the ones it uses.
void installLinuxPlatform();

/// The same for a look at the machine that changes nothing of it: no folder, link, value or file is made, and
/// the registry can't be written. Whoever asks for the temporary folder still makes it.
void installLinuxPlatformToLookAt();

} // namespace zorvo
