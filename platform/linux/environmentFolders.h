#pragma once

#include <string>

/// The folders that the environment names for this user, as native paths without a closing slash. They are
/// read at each call. A variable that isn't an absolute path is taken as missing.
namespace zorvo {

/// `$HOME`, else the one of the user's account; "/" when there is none.
std::string homeFolder();
std::string configHomeFolder();
std::string cacheHomeFolder();
/// Empty when the session has none.
std::string runtimeFolder();

/// The program's own data of this user: the user's registry and the drives.
std::string userDataFolder();
/// The program's data of this machine: the machine's registry.
std::string machineDataFolder();

} // namespace zorvo
