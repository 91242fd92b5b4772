#include "platform/linux/linuxPlatform.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/machineAccess.h"
#include "tests/fakes/installFakePlatform.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zorvo {
namespace {

TEST(LinuxPlatform, InstallsTheMachineSideAndNothingElse)
{
    const TemporaryFolder folder;
    const ScopedEnvironment data("XDG_DATA_HOME", folder / "data");
    const ScopedEnvironment config("XDG_CONFIG_HOME", folder / "config");
    const ScopedEnvironment machine("ZORVOBRENDLE_MACHINE_DIR", folder / "machine");
    const Platform before = platform();
    platform() = Platform();
    installLinuxPlatform();
    const Platform installed = platform();
    EXPECT_TRUE(installed.registry && installed.settings && installed.files && installed.folders &&
                installed.launcher && installed.libraries && installed.machine);
    EXPECT_FALSE(installed.objects || installed.service || installed.office || installed.help);
    // The first start names the application data folder.
    EXPECT_EQ(installed.files->toNative(sGetAppDataFolder()), folder / "config");
    platform() = before;
}

TEST(FakePlatform, StandsInWhileItLivesAndGoesAgain)
{
    const auto before = platform().files;
    {
        const FakePlatform fakes = installFakePlatform();
        EXPECT_EQ(platform().files, fakes.files);
        EXPECT_EQ(platform().registry, fakes.registry);
        EXPECT_EQ(platform().office, nullptr);
        EXPECT_TRUE(platform().files->folderExists(fakes.folders->sTemporary));
    }
    EXPECT_EQ(platform().files, before);
}

} // namespace
} // namespace zorvo
