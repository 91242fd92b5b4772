#include "platform/linux/linuxPlatform.h"

#include "platform/Platform.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxLauncher.h"
#include "platform/linux/LinuxLibraryLoader.h"
#include "platform/linux/LinuxMachine.h"
#include "platform/linux/LinuxSpecialFolders.h"
#include "platform/linux/RegistryStore.h"
#include "platform/linux/SettingsFile.h"
#include "platform/linux/environmentFolders.h"
#include "platform/linux/filesearch/LinuxFileSearch.h"

#include <utility>

namespace zorvo {

namespace {

void installPorts(const DosPaths& paths, std::shared_ptr<RegistryStore> registry)
{
    Platform& ports = platform();
    ports.registry = std::move(registry);
    ports.settings = std::make_shared<SettingsFile>();
    ports.files = std::make_shared<LinuxFiles>(paths);
    ports.folders = std::make_shared<LinuxSpecialFolders>(paths);
    ports.launcher = std::make_shared<LinuxLauncher>(paths);
    ports.libraries = std::make_shared<LinuxLibraryLoader>(paths);
    ports.machine = std::make_shared<LinuxMachine>();
    ports.fileSearch = std::make_shared<LinuxFileSearch>(paths);
}

} // namespace

void installLinuxPlatform()
{
    installPorts(DosPaths(userDataFolder()), std::make_shared<RegistryStore>());
    // A user whose registry can't be written has no such folder, which the program bears.
    writeAppDataFolder(*platform().registry, *platform().files);
}

void installLinuxPlatformToLookAt()
{
    installPorts(DosPaths(userDataFolder(), DosPaths::DriveC::asItIs),
                 std::make_shared<RegistryStore>(RegistryDatabase::Use::lookAlone));
}

} // namespace zorvo
