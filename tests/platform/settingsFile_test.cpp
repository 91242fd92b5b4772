#include "platform/linux/SettingsFile.h"

#include "base/RunTimeError.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/childProcess.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace zorvo {
namespace {

namespace fs = std::filesystem;

class SettingsFileTest : public testing::Test {
protected:
    SettingsFileTest() { chmod(folder.path().c_str(), 0755); }

    int setNumber(SettingsStore& store, const std::string& application = "App")
    {
        try {
            store.set(application, "S", "Key", std::string(20000, 'x'));
            return 0;
        } catch (const RunTimeError& error) {
            return error.number();
        }
    }

    static mode_t modeOf(const std::string& native)
    {
        struct stat status {};
        return stat(native.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }

    TemporaryFolder folder;
    std::string home = folder / "config";
    std::string file = home + "/App/settings.ini";
    SettingsFile settings{home};
};

TEST_F(SettingsFileTest, TheFileIsPlainTextWithASectionPerSection)
{
    settings.set("App", "Settings", "DocumentFolder", "C:\\new");
    settings.set("App", "Other", "a=b", " x\n");
    settings.set("App", "Settings", "MainState", "2");
    EXPECT_EQ(fileBytes(file), "[Settings]\nDocumentFolder=C:\\new\nMainState=2\n[Other]\na%3Db=%20x%0A\n");
}

TEST_F(SettingsFileTest, TheEnvironmentNamesTheFolder)
{
    const ScopedEnvironment config("XDG_CONFIG_HOME", home);
    SettingsFile().set("App", "S", "Key", "1");
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(SettingsFileTest, WhatAnotherProcessWroteIsReadAtOnce)
{
    settings.set("App", "S", "Key", "1");
    SettingsFile(home).set("App", "S", "Key", "2");
    EXPECT_EQ(settings.get("App", "S", "Key"), "2");
    fs::remove(file);
    EXPECT_FALSE(settings.get("App", "S", "Key"));
}

TEST_F(SettingsFileTest, WhatWasWrittenByHandIsKept)
{
    putFile(file,
            "\xEF\xBB\xBF; of mine\r\n\r\n[Settings]\r\n  Key = 1  \r\n# two\r\nnonsense\r\nKey=again\r\n\n"
            "[settings]\nMore=50%\n\n[Other]\nx=1\n");
    EXPECT_EQ(settings.get("App", "Settings", "Key"), "1");
    EXPECT_EQ(settings.get("App", "Settings", "More"), "50%");
    settings.set("App", "Settings", "Key", "2");
    settings.set("App", "Settings", "New", "3");
    EXPECT_EQ(fileBytes(file),
              "; of mine\n\n[Settings]\nKey=2\n# two\nnonsense\nKey=again\n\n[settings]\nMore=50%\n"
              "New=3\n\n[Other]\nx=1\n");
}

TEST_F(SettingsFileTest, ALastLineWithoutItsEndIsReadAndKept)
{
    putFile(file, "[Settings]\nKey=1\nLast=2");
    EXPECT_EQ(settings.get("App", "Settings", "Last"), "2");
    settings.set("App", "Settings", "Key", "3");
    EXPECT_EQ(fileBytes(file), "[Settings]\nKey=3\nLast=2\n");
    putFile(file, "[Other]\nx=1\n[Settings]");
    settings.set("App", "Settings", "Key", "3");
    EXPECT_EQ(fileBytes(file), "[Other]\nx=1\n[Settings]\nKey=3\n");
}

TEST_F(SettingsFileTest, AFileCutInHalfGivesItsWholeLinesAndIsMendedByTheNextWrite)
{
    std::string whole = "[S]\n";
    for (int row = 0; row < 10; ++row)
        whole += "key" + std::to_string(row) + "=" + std::to_string(row * 111) + "\n";
    for (std::size_t length = 4; length < whole.size(); ++length) {
        putFile(file, whole.substr(0, length));
        const auto lines =
            std::count(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length), '\n') - 1;
        auto rows = settings.list("App", "S");
        ASSERT_GE(rows.size(), static_cast<std::size_t>(lines)) << length;
        for (std::size_t row = 0; row < static_cast<std::size_t>(lines); ++row)
            ASSERT_EQ(rows[row].second, std::to_string(row * 111));
        settings.set("App", "S", "new", "1");
        rows.emplace_back("new", "1");
        ASSERT_EQ(settings.list("App", "S"), rows);
        ASSERT_TRUE(fileBytes(file).ends_with("\nnew=1\n"));
    }
}

TEST_F(SettingsFileTest, NewFilesAreTheUsersOwnAndAModeOfHisStays)
{
    const mode_t before = umask(0);
    settings.set("App", "S", "Key", "1");
    umask(before);
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(modeOf(home + "/App"), 0700U);
    chmod(file.c_str(), 0644);
    settings.set("App", "S", "Key", "2");
    EXPECT_EQ(modeOf(file), 0644U);
}

TEST_F(SettingsFileTest, ALinkToAFileElsewhereStaysALink)
{
    putFile(folder / "dotfiles/settings", "[S]\nKey=1\n");
    fs::create_directories(home + "/App");
    fs::create_symlink(folder / "dotfiles/settings", file);
    settings.set("App", "S", "Key", "2");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(fileBytes(folder / "dotfiles/settings"), "[S]\nKey=2\n");
}

TEST_F(SettingsFileTest, AFolderThatCannotBeWrittenFailsTheWriteAndKeepsTheFile)
{
    putFile(file, "[S]\nKey=1\n");
    fs::create_directories(home + "/Empty");
    for (const char* name : {"/App", "/Empty", ""})
        chmod((home + name).c_str(), 0555);
    ChildProcess child(
        [&] {
            if (setNumber(settings) != kPathOrFileAccess)
                return 1;
            if (setNumber(settings, "Empty") != kPathOrFileAccess)
                return 2;
            if (setNumber(settings, "New") != kPathOrFileAccess)
                return 3;
            return settings.get("App", "S", "Key") == "1" ? 0 : 4;
        },
        ChildProcess::User::ordinary);
    EXPECT_EQ(child.result(), 0);
    EXPECT_EQ(fileBytes(file), "[S]\nKey=1\n");
}

TEST_F(SettingsFileTest, AFullDiskFailsTheWriteAndKeepsTheFile)
{
    settings.set("App", "S", "Key", "1");
    ChildProcess child([&] {
        std::signal(SIGXFSZ, SIG_IGN); // a limit on the size of files stands in for the end of the disk
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        return setNumber(settings) == kDiskFull ? 0 : 1;
    });
    EXPECT_EQ(child.result(), 0);
    EXPECT_EQ(fileBytes(file), "[S]\nKey=1\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(home + "/App"), {}), 2); // the file and its lock
}

TEST_F(SettingsFileTest, AFileThatCannotBeReadHasNoSettingsAndIsNotOverwritten)
{
    putFile(file, "[S]\nKey=1\n");
    chmod(file.c_str(), 0);
    chmod(home.c_str(), 0777);
    chmod((home + "/App").c_str(), 0777);
    ChildProcess child(
        [&] {
            if (settings.get("App", "S", "Key") || !settings.list("App", "S").empty())
                return 1;
            if (setNumber(settings) != kPathOrFileAccess)
                return 2;
            try {
                settings.requireReadable("App");
                return 3;
            } catch (const RunTimeError& error) {
                return error.number() == kPathOrFileAccess ? 0 : 4;
            }
        },
        ChildProcess::User::ordinary);
    EXPECT_EQ(child.result(), 0);
    EXPECT_EQ(fileBytes(file), "[S]\nKey=1\n");
    settings.requireReadable("Nothing there");
}

TEST_F(SettingsFileTest, AFolderOrAFloodInItsPlaceIsBorne)
{
    fs::create_directories(file);
    EXPECT_FALSE(settings.get("App", "S", "Key"));
    EXPECT_EQ(setNumber(settings), kPathOrFileAccess);
    putFile(home + "/Flood/settings.ini", std::string(17U << 20U, 'x'));
    EXPECT_FALSE(settings.get("Flood", "S", "Key"));
    EXPECT_EQ(setNumber(settings, "Flood"), kPathOrFileAccess);
}

TEST_F(SettingsFileTest, AnApplicationNameThatIsNoFolderNameIsRefused)
{
    for (const char* name : {"", ".", "..", "a/b", "../x"})
        EXPECT_EQ(setNumber(settings, name), kInvalidCall) << name;
}

TEST_F(SettingsFileTest, AWriterThatHoldsTheLockForGoodIsGivenUpOn)
{
    settings.set("App", "S", "Key", "1");
    const int lock = open((file + ".lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    SettingsFile hasty(home, std::chrono::milliseconds(20));
    EXPECT_EQ(setNumber(hasty), kPathOrFileAccess);
    EXPECT_EQ(hasty.get("App", "S", "Key"), "1"); // readers need no lock
    close(lock);
    EXPECT_EQ(setNumber(hasty), 0);
}

TEST_F(SettingsFileTest, TwoProcessesWriteAThousandSettingsEachAndLoseNone)
{
    constexpr int kSettings = 1000;
    const TemporaryFolder memory(TemporaryFolder::Place::memory);
    const auto writeAll = [&](const std::string& prefix) {
        SettingsFile own(memory.path(), std::chrono::seconds(60));
        for (int row = 0; row < kSettings; ++row)
            own.set("App", "S", prefix + std::to_string(row), std::to_string(row));
        return 0;
    };
    ChildProcess first([&] { return writeAll("a"); });
    ChildProcess second([&] { return writeAll("b"); });
    EXPECT_EQ(first.result(), 0);
    EXPECT_EQ(second.result(), 0);
    SettingsFile written(memory.path());
    EXPECT_EQ(written.list("App", "S").size(), 2U * kSettings);
    for (const char* prefix : {"a", "b"})
        for (int row = 0; row < kSettings; row += 37)
            EXPECT_EQ(written.get("App", "S", prefix + std::to_string(row)), std::to_string(row));
}

} // namespace
} // namespace zorvo
