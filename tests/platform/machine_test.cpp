#include "platform/linux/LinuxMachine.h"

#include "platform/linux/LinuxLibraryLoader.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <dlfcn.h>

#include <chrono>
#include <ctime>
#include <filesystem>

namespace zorvo {
namespace {

class MachineTest : public testing::Test {
protected:
    MachineTest()
    {
        for (const char* name : {"DISPLAY", "SSH_CONNECTION", "XRDP_SESSION", "X2GO_SESSION", "VNCDESKTOP"})
            cleared.push_back(std::make_unique<ScopedEnvironment>(name, std::nullopt));
    }

    std::vector<std::unique_ptr<ScopedEnvironment>> cleared;
    LinuxMachine machine;
    const Machine::LocalTime time{.year = 2024, .month = 3, .day = 5, .hour = 14, .minute = 7, .second = 9};
};

TEST_F(MachineTest, NowIsTheLocalTime)
{
    const std::time_t seconds = std::time(nullptr);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    const Machine::LocalTime now = machine.now();
    std::tm got{};
    got.tm_year = now.year - 1900;
    got.tm_mon = now.month - 1;
    got.tm_mday = now.day;
    got.tm_hour = now.hour;
    got.tm_min = now.minute;
    got.tm_sec = now.second;
    got.tm_isdst = parts.tm_isdst;
    EXPECT_LE(std::difftime(std::mktime(&got), seconds), 2);
    EXPECT_GE(std::difftime(std::mktime(&got), seconds), 0);
}

TEST_F(MachineTest, DateAndTimeFollowTheUsersLocale)
{
    const ScopedEnvironment all("LC_ALL", "C");
    EXPECT_EQ(machine.shortDate(time), "03/05/24");
    EXPECT_EQ(machine.timeOfDay(time), "14:07:09");
}

TEST_F(MachineTest, TheDateInWordsNamesDayAndMonthAndPadsNothing)
{
    const ScopedEnvironment all("LC_ALL", "C");
    EXPECT_EQ(machine.dateInWords(time), "Tuesday, Mar 5 2024");
}

TEST_F(MachineTest, ALocaleThatTheMachineDoesNotHaveIsThePlainOne)
{
    const ScopedEnvironment all("LC_ALL", "xx_NONE.UTF-8");
    EXPECT_EQ(machine.shortDate(time), "03/05/24");
    EXPECT_EQ(machine.timeOfDay(time), "14:07:09");
}

TEST_F(MachineTest, ASessionIsRemoteWhenItsScreenIsElsewhere)
{
    EXPECT_FALSE(machine.isRemoteSession());
    for (const char* display : {":0", ":0.0", "unix:0", "/tmp/launch/x:0"}) {
        const ScopedEnvironment here("DISPLAY", display);
        EXPECT_FALSE(machine.isRemoteSession()) << display;
    }
    const ScopedEnvironment away("DISPLAY", "terminal.example:0");
    EXPECT_TRUE(machine.isRemoteSession());
}

TEST_F(MachineTest, AForwardedDisplayIsRemoteAndALoginAloneIsNot)
{
    const ScopedEnvironment login("SSH_CONNECTION", "10.0.0.1 5000 10.0.0.2 22");
    {
        const ScopedEnvironment own("DISPLAY", ":0");
        EXPECT_FALSE(machine.isRemoteSession());
    }
    const ScopedEnvironment forwarded("DISPLAY", "localhost:10.0");
    EXPECT_TRUE(machine.isRemoteSession());
    const ScopedEnvironment none("SSH_CONNECTION", std::nullopt);
    EXPECT_FALSE(machine.isRemoteSession());
}

TEST_F(MachineTest, ARemoteDesktopServersSessionIsRemote)
{
    const ScopedEnvironment display("DISPLAY", ":10");
    for (const char* name : {"XRDP_SESSION", "X2GO_SESSION", "VNCDESKTOP"}) {
        const ScopedEnvironment session(name, "1");
        EXPECT_TRUE(machine.isRemoteSession()) << name;
    }
}

TEST_F(MachineTest, ACountOfKernelsIsNoSystemVersion)
{
    EXPECT_EQ(LinuxMachine().systemVersion(), 0);
}

TEST_F(MachineTest, SleepingTakesItsTime)
{
    const auto begin = std::chrono::steady_clock::now();
    machine.sleep(30);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(30));
    machine.sleep(-1);
}

TEST(LibraryLoader, ALibraryIsTheFileThatThePathNames)
{
    Dl_info self{};
    ASSERT_NE(dladdr(dlsym(RTLD_DEFAULT, "sqlite3_libversion"), &self), 0);
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "data/drive_c/Zorvo");
    std::filesystem::copy_file(self.dli_fname, folder / "data/drive_c/Zorvo/TreeOrderXmlServer.dll");
    LinuxLibraryLoader loader{DosPaths(folder / "data")};
    const auto library = loader.load("C:\\ZORVO\\TreeOrderXmlServer.DLL");
    ASSERT_NE(library, nullptr);
    void* symbol = library->symbol("sqlite3_libversion");
    ASSERT_NE(symbol, nullptr);
    EXPECT_STREQ(reinterpret_cast<const char* (*)()>(symbol)(), sqlite3_libversion());
    EXPECT_EQ(library->symbol("GetXmlLength"), nullptr);
}

TEST(LibraryLoader, WhatIsNoLibraryIsNotLoaded)
{
    const TemporaryFolder folder;
    putFile(folder / "data/drive_c/text.dll", "MZ no library");
    std::filesystem::create_directories(folder / "data/drive_c/folder.dll");
    LinuxLibraryLoader loader{DosPaths(folder / "data")};
    for (const char* path :
         {"C:\\text.dll", "C:\\folder.dll", "C:\\none.dll", "", "libsqlite3.so.0", "Q:\\x.dll"})
        EXPECT_EQ(loader.load(path), nullptr) << path;
}

} // namespace
} // namespace zorvo
