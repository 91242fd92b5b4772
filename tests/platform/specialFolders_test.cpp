#include "platform/linux/LinuxSpecialFolders.h"

#include "base/RunTimeError.h"
#include "platform/linux/LinuxFiles.h"
#include "tests/fakes/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/testFolders.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace zorvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

class SpecialFoldersTest : public testing::Test {
protected:
    std::string z(const std::string& native) const { return paths.fromNative(native); }

    static mode_t modeOf(const std::string& native)
    {
        struct stat status {};
        return lstat(native.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
    }

    TemporaryFolder folder;
    const ScopedEnvironment home{"HOME", folder / "home"};
    const ScopedEnvironment config{"XDG_CONFIG_HOME", folder / "config"};
    const ScopedEnvironment cache{"XDG_CACHE_HOME", std::nullopt};
    const ScopedEnvironment runtime{"XDG_RUNTIME_DIR", std::nullopt};
    const ScopedEnvironment temp{"TMPDIR", folder / "tmp"};
    const ScopedEnvironment documents{"XDG_DOCUMENTS_DIR", std::nullopt};
    const ScopedEnvironment program{"ZORVOBRENDLE_PROGRAM_DIR", std::nullopt};
    DosPaths paths{folder / "data"};
    LinuxSpecialFolders folders{paths};
};

TEST_F(SpecialFoldersTest, TheProgramFolderIsTheOneOfTheEnvironment)
{
    const ScopedEnvironment given("ZORVOBRENDLE_PROGRAM_DIR", folder / "program/");
    EXPECT_EQ(folders.program(), z(folder / "program"));
    EXPECT_FALSE(folders.program().ends_with('\\'));
}

TEST_F(SpecialFoldersTest, WithoutItTheProgramFolderIsTheInstalledOneThenTheBuildTrees)
{
    // This test runs in a build tree, where nothing is installed.
    const std::string build = buildFolder() / "program";
    EXPECT_EQ(folders.program(), fs::is_directory(build) ? z(build) : "");
    const ScopedEnvironment relative("ZORVOBRENDLE_PROGRAM_DIR", "program");
    EXPECT_EQ(folders.program(), fs::is_directory(build) ? z(build) : "");
}

TEST_F(SpecialFoldersTest, TheDocumentsFolderIsTheDesktopsElseTheHomeFolder)
{
    EXPECT_EQ(folders.documents(), z(folder / "home"));
    putFile(folder / "config/user-dirs.dirs", "# XDG_DOCUMENTS_DIR=\"/no\"\nXDG_MUSIC_DIR=\"$HOME/Music\"\n"
                                              "XDG_DOCUMENTS_DIR=\"$HOME/My Documents\"\n");
    EXPECT_EQ(folders.documents(), z(folder / "home/My Documents"));
    putFile(folder / "config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/srv/papers\"\n");
    EXPECT_EQ(folders.documents(), "Z:\\srv\\papers");
    EXPECT_EQ(folders.special(SpecialFolders::kDocuments), "Z:\\srv\\papers");
    putFile(folder / "config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"relative\"\n");
    EXPECT_EQ(folders.documents(), z(folder / "home"));
    putFile(folder / "config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/cut");
    EXPECT_EQ(folders.documents(), z(folder / "home"));
    putFile(folder / "config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/srv/papers\"\n");
    const ScopedEnvironment ofTheSession("XDG_DOCUMENTS_DIR", "/srv/now");
    EXPECT_EQ(folders.documents(), "Z:\\srv\\now");
}

TEST_F(SpecialFoldersTest, ADriveShowsInThePaths)
{
    const ScopedEnvironment inDrive("HOME", folder / "data/drive_c/users/me");
    EXPECT_EQ(folders.documents(), "C:\\users\\me");
}

TEST_F(SpecialFoldersTest, TheRefusedFoldersAlwaysHaveAPath)
{
    EXPECT_EQ(folders.special(SpecialFolders::kInternetCache), z(folder / "home/.cache"));
    EXPECT_EQ(folders.special(SpecialFolders::kNetworkNeighbourhood), z(folder / "home/.gvfs"));
    const ScopedEnvironment session("XDG_RUNTIME_DIR", folder / "run");
    EXPECT_EQ(folders.special(SpecialFolders::kNetworkNeighbourhood), z(folder / "run/gvfs"));
    EXPECT_EQ(folders.special(77), "");
}

TEST_F(SpecialFoldersTest, TheTemporaryFolderIsTheSessionsOwn)
{
    const ScopedEnvironment session("XDG_RUNTIME_DIR", folder / "run");
    fs::create_directories(folder / "run");
    EXPECT_EQ(folders.temporary(), z(folder / "run/zorvobrendle") + "\\");
    EXPECT_EQ(modeOf(folder / "run/zorvobrendle"), 0700U);
    EXPECT_EQ(folders.temporary(), z(folder / "run/zorvobrendle") + "\\");
}

TEST_F(SpecialFoldersTest, WithoutASessionItLiesBelowTheSystemsTemporaryFolder)
{
    fs::create_directories(folder / "tmp");
    const std::string own = folder / "tmp/zorvobrendle-" + std::to_string(geteuid());
    EXPECT_EQ(folders.temporary(), z(own) + "\\");
    EXPECT_EQ(modeOf(own), 0700U);
}

TEST_F(SpecialFoldersTest, AFolderThatSomebodyElsePreparedIsNotUsed)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can prepare another user's folder";
    fs::create_directories(folder / "tmp");
    const std::string foreign = folder / "tmp/zorvobrendle-0";
    fs::create_directory(foreign);
    ASSERT_EQ(chown(foreign.c_str(), 65534, 65534), 0);
    chmod(foreign.c_str(), 0700);
    const std::string made = paths.toNative(folders.temporary());
    EXPECT_NE(made, foreign + "/");
    EXPECT_EQ(modeOf(made), 0700U);
    EXPECT_EQ(paths.toNative(folders.temporary()), made); // the same one all the session
}

TEST_F(SpecialFoldersTest, ALinkOrAnOpenFolderInItsPlaceIsNotUsed)
{
    fs::create_directories(folder / "tmp");
    fs::create_directories(folder / "trap");
    chmod((folder / "trap").c_str(), 0700);
    const std::string own = folder / "tmp/zorvobrendle-" + std::to_string(geteuid());
    fs::create_directory_symlink(folder / "trap", own);
    EXPECT_NE(paths.toNative(folders.temporary()), own + "/");
    EXPECT_TRUE(fs::is_empty(folder / "trap"));

    fs::remove(own);
    fs::create_directory(own);
    chmod(own.c_str(), 0777);
    EXPECT_NE(paths.toNative(LinuxSpecialFolders(paths).temporary()), own + "/");
}

TEST_F(SpecialFoldersTest, BelowAFolderWhereOthersMoveThingsThereIsNone)
{
    fs::create_directories(folder / "tmp");
    chmod((folder / "tmp").c_str(), 0777); // no sticky bit
    EXPECT_THROW(folders.temporary(), RunTimeError);
    chmod((folder / "tmp").c_str(), 01777);
    EXPECT_NE(folders.temporary(), "");
    const ScopedEnvironment none("TMPDIR", folder / "missing");
    EXPECT_THROW(LinuxSpecialFolders(paths).temporary(), RunTimeError);
}

TEST_F(SpecialFoldersTest, TheFirstStartWritesTheApplicationDataFolder)
{
    FakeRegistry registry;
    LinuxFiles files(paths);
    EXPECT_TRUE(writeAppDataFolder(registry, files));
    EXPECT_EQ(registry.text(HKEY_CURRENT_USER, kShellFolders, "AppData"), z(folder / "config"));
    EXPECT_EQ(registry.type(HKEY_CURRENT_USER, kShellFolders, "AppData"), RegistryType::string);
}

TEST_F(SpecialFoldersTest, LaterStartsLeaveTheKeyAsItIs)
{
    FakeRegistry registry;
    LinuxFiles files(paths);
    registry.addKey(HKEY_CURRENT_USER, kShellFolders);
    EXPECT_TRUE(writeAppDataFolder(registry, files));
    EXPECT_FALSE(registry.text(HKEY_CURRENT_USER, kShellFolders, "AppData"));
}

TEST_F(SpecialFoldersTest, ARegistryThatCannotBeWrittenIsTold)
{
    FakeRegistry registry;
    LinuxFiles files(paths);
    registry.failWrites(kRegistryAccessDenied);
    EXPECT_FALSE(writeAppDataFolder(registry, files));
}

} // namespace
} // namespace zorvo
