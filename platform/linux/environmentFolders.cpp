#include "platform/linux/environmentFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace zorvo {

namespace {

std::string absoluteFolder(const char* variable)
{
    const char* value = std::getenv(variable);
    std::string folder = value != nullptr && value[0] == '/' ? value : "";
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    return folder;
}

std::string below(const std::string& folder, const std::string& name)
{
    return folder.ends_with('/') ? folder + name : folder + '/' + name;
}

std::string folderOr(const char* variable, const std::string& belowHome)
{
    std::string folder = absoluteFolder(variable);
    return folder.empty() ? below(homeFolder(), belowHome) : folder;
}

} // namespace

std::string homeFolder()
{
    std::string home = absoluteFolder("HOME");
    if (!home.empty())
        return home;
    const passwd* account = getpwuid(getuid());
    return account != nullptr && account->pw_dir != nullptr && account->pw_dir[0] == '/' ? account->pw_dir
                                                                                         : "/";
}

std::string configHomeFolder()
{
    return folderOr("XDG_CONFIG_HOME", ".config");
}

std::string cacheHomeFolder()
{
    return folderOr("XDG_CACHE_HOME", ".cache");
}

std::string runtimeFolder()
{
    return absoluteFolder("XDG_RUNTIME_DIR");
}

std::string userDataFolder()
{
    return below(folderOr("XDG_DATA_HOME", ".local/share"), "zorvobrendle");
}

std::string machineDataFolder()
{
    std::string folder = absoluteFolder("ZORVOBRENDLE_MACHINE_DIR");
    return folder.empty() ? "/var/lib/zorvobrendle" : folder;
}

} // namespace zorvo
