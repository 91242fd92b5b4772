#include "platform/linux/LinuxInspection.h"

#include "platform/Platform.h"
#include "platform/linux/linuxPlatform.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/childProcess.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>

namespace zorvo {
namespace {

namespace fs = std::filesystem;

/// A home of the test's own that an ordinary user owns: permissions don't bind root.
class LinuxInspectionTest : public testing::Test {
protected:
    LinuxInspectionTest()
    {
        fs::permissions(home.path(), fs::perms::all);
        for (const char* sName : {"Documents", "config", "data", "run", "machine", "program"})
            fs::create_directory(home / sName);
    }

    /// The codes for the folder of that name, asked as an ordinary user who owns everything; by the exit code
    /// of a process of its own.
    bool finds(const std::string& sName, const std::string& sCode)
    {
        give();
        return ChildProcess(
                   [&] {
                       installLinuxPlatformToLookAt();
                       for (const Inspection::Folder& folder : LinuxInspection().folders()) {
                           if (folder.sName != sName)
                               continue;
                           const bool bNone = sCode.empty() && folder.faults.empty();
                           return bNone || (folder.faults.size() == 1 && folder.faults[0].sCode == sCode) ? 0
                                                                                                          : 1;
                       }
                       return 2;
                   },
                   ChildProcess::User::ordinary)
                   .result() == 0;
    }
    bool storeFails(std::size_t nStore)
    {
        give();
        return ChildProcess(
                   [&] {
                       installLinuxPlatformToLookAt();
                       return LinuxInspection().stores()[nStore].faults.size() == 1 ? 0 : 1;
                   },
                   ChildProcess::User::ordinary)
                   .result() == 0;
    }

    void give() const
    {
        if (geteuid() != 0)
            return;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(home.path()))
            EXPECT_EQ(lchown(entry.path().c_str(), 65534, 65534), 0);
    }

    TemporaryFolder home;
    ScopedEnvironment homeVariable{"HOME", home.path()};
    ScopedEnvironment documents{"XDG_DOCUMENTS_DIR", home / "Documents"};
    ScopedEnvironment config{"XDG_CONFIG_HOME", home / "config"};
    ScopedEnvironment data{"XDG_DATA_HOME", home / "data"};
    ScopedEnvironment run{"XDG_RUNTIME_DIR", home / "run"};
    ScopedEnvironment machine{"ZORVOBRENDLE_MACHINE_DIR", home / "machine"};
    ScopedEnvironment program{"ZORVOBRENDLE_PROGRAM_DIR", home / "program"};
    Platform before = platform();
};

TEST_F(LinuxInspectionTest, FindsNothingWrongWithFoldersThatAreThereOrCanBeMade)
{
    for (const char* sName :
         {"program", "documents", "support", "settings", "user data", "machine data", "temporary"})
        EXPECT_TRUE(finds(sName, "")) << sName;
}

TEST_F(LinuxInspectionTest, TellsAFolderThatCantBeWritten)
{
    chmod((home / "Documents").c_str(), 0500);
    EXPECT_TRUE(finds("documents", "folder.notWritable"));
    EXPECT_TRUE(finds("support", "folder.notWritable")) << "it couldn't be made";
    EXPECT_TRUE(finds("temporary", ""));
}

TEST_F(LinuxInspectionTest, TellsAFolderThatCantBeRead)
{
    chmod((home / "program").c_str(), 0300);
    EXPECT_TRUE(finds("program", "folder.notReadable"));
}

TEST_F(LinuxInspectionTest, LetsTheMachinesFoldersBeReadOnly)
{
    chmod((home / "machine").c_str(), 0500);
    chmod((home / "program").c_str(), 0500);
    EXPECT_TRUE(finds("machine data", ""));
    EXPECT_TRUE(finds("program", ""));
}

TEST_F(LinuxInspectionTest, TellsARegistryThatMayNotBeRead)
{
    putFile(home / "machine/registry.db", "");
    chmod((home / "machine/registry.db").c_str(), 0);
    EXPECT_TRUE(storeFails(1));
}

TEST_F(LinuxInspectionTest, MakesNothing)
{
    fs::remove(home / "data");
    ChildProcess([] {
        installLinuxPlatformToLookAt();
        LinuxInspection inspection;
        inspection.folders();
        inspection.stores();
        return 0;
    }).result();
    EXPECT_FALSE(fs::exists(home / "data"));
    EXPECT_TRUE(fs::is_empty(home / "run"));
    EXPECT_TRUE(fs::is_empty(home / "config"));
}

TEST_F(LinuxInspectionTest, KnowsWhatCanServeAClass)
{
    const ScopedEnvironment noBus("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    LinuxInspection inspection;
    EXPECT_FALSE(inspection.canServe("com.zorvo.Nobody", ""));
    EXPECT_FALSE(inspection.canServe("com.zorvo.Nobody", home / "program"));
    putFile(home / "server", "#!/bin/sh\n");
    EXPECT_FALSE(inspection.canServe("com.zorvo.Nobody", home / "server"));
    chmod((home / "server").c_str(), 0755);
    EXPECT_TRUE(inspection.canServe("com.zorvo.Nobody", home / "server"));
}

} // namespace
} // namespace zorvo
