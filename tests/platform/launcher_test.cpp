#include "platform/linux/LinuxLauncher.h"

#include "base/RunTimeError.h"
#include "platform/linux/detachedProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/childProcess.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

namespace zorvo {
namespace {

namespace fs = std::filesystem;

class LauncherTest : public testing::Test {
protected:
    /// A program that tells, line by line, its arguments, then its folder and parent; it waits first if told
    /// to.
    void putProgram(const std::string& native, const std::string& before = {})
    {
        putFile(native, "#!/bin/sh\n" + before +
                            "\n{ for a in \"$@\"; do printf '<%s>\\n' \"$a\"; done; pwd; echo $PPID; } > " +
                            told + ".part\n/bin/mv " + told + ".part " + told + "\n");
        chmod(native.c_str(), 0755);
    }

    /// What the program told, within ten seconds.
    std::string answer() const
    {
        for (int tries = 0; tries < 1000 && !fs::exists(told); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return fileBytes(told);
    }

    static int startNumber(LinuxLauncher& from, const std::string& line)
    {
        try {
            from.start(line);
            return 0;
        } catch (const RunTimeError& error) {
            return error.number();
        }
    }

    TemporaryFolder folder;
    const ScopedEnvironment path{"PATH", folder / "none:" + (folder / "bin")};
    std::string told = folder / "told";
    LinuxLauncher launcher{DosPaths(folder / "data")};
};

TEST_F(LauncherTest, AnAddressGoesToTheOpenerFoundInPath)
{
    putProgram(folder / "bin/xdg-open");
    fs::create_directories(folder / "data/drive_c/work");
    EXPECT_GT(launcher.open("https://example.org/a b?x=1&y='2'", "1", "C:\\work", Launcher::Show::normal),
              32);
    const std::string text = answer();
    EXPECT_TRUE(
        text.starts_with("<https://example.org/a b?x=1&y='2'>\n" + (folder / "data/drive_c/work") + "\n"))
        << text;
}

TEST_F(LauncherTest, APathGoesInItsNativeForm)
{
    putProgram(folder / "bin/xdg-open");
    putFile(folder / "data/drive_c/Dir/Report.htm", "x");
    EXPECT_GT(launcher.open("c:\\DIR\\\\report.HTM", "0", "", Launcher::Show::maximised), 32);
    EXPECT_TRUE(answer().starts_with("<" + (folder / "data/drive_c/Dir/Report.htm") + ">\n"));
}

TEST_F(LauncherTest, AFileAddressWithABackslashPathGoesInItsNativeForm)
{
    putProgram(folder / "bin/xdg-open");
    putFile(folder / "data/drive_c/HTML/A b.htm", "x");
    EXPECT_GT(launcher.open("file://C:\\html\\a B.htm", "", "", Launcher::Show::normal), 32);
    EXPECT_TRUE(answer().starts_with("<" + (folder / "data/drive_c/HTML/A b.htm") + ">\n"));
    EXPECT_EQ(launcher.open("file://C:\\html\\none.htm", "", "", Launcher::Show::normal), 2);
}

TEST_F(LauncherTest, AnyOtherFileAddressGoesAsItIs)
{
    putProgram(folder / "bin/xdg-open");
    EXPECT_GT(launcher.open("file:///tmp/a%20b.htm", "", "", Launcher::Show::normal), 32);
    EXPECT_TRUE(answer().starts_with("<file:///tmp/a%20b.htm>\n"));
}

TEST_F(LauncherTest, AnEmptyAddressIsPassedOnAndRaisesNothing)
{
    putProgram(folder / "bin/xdg-open");
    EXPECT_GT(launcher.open("", "", "C:\\", Launcher::Show::normal), 32);
    EXPECT_TRUE(answer().starts_with("<>\n"));
}

TEST_F(LauncherTest, WhatCannotBeOpenedGivesACodeOfFailure)
{
    EXPECT_EQ(launcher.open("https://example.org", "", "", Launcher::Show::normal), 31); // no opener
    putProgram(folder / "bin/xdg-open");
    EXPECT_EQ(launcher.open("C:\\none.htm", "", "", Launcher::Show::normal), 2);
    EXPECT_EQ(launcher.open("--version", "", "", Launcher::Show::normal), 2);
    chmod((folder / "bin/xdg-open").c_str(), 0644);
    EXPECT_EQ(launcher.open("https://example.org", "", "", Launcher::Show::normal), 31);
    putFile(folder / "bin/xdg-open", "no program");
    chmod((folder / "bin/xdg-open").c_str(), 0755);
    EXPECT_EQ(launcher.open("https://example.org", "", "", Launcher::Show::normal), 5);
    EXPECT_FALSE(fs::exists(told));
}

TEST_F(LauncherTest, AFolderThatIsNotThereIsPassedOver)
{
    putProgram(folder / "bin/xdg-open");
    EXPECT_GT(launcher.open("https://example.org", "", "C:\\none", Launcher::Show::normal), 32);
    EXPECT_TRUE(answer().starts_with("<https://example.org>\n"));
}

TEST_F(LauncherTest, NothingIsWaitedForAndNoChildIsLeft)
{
    putProgram(folder / "bin/xdg-open", "/bin/sleep 2");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_GT(launcher.open("https://example.org", "", "", Launcher::Show::normal), 32);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1500));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
    EXPECT_EQ(answer().find("\n" + std::to_string(getpid()) + "\n"), std::string::npos);
}

TEST_F(LauncherTest, WhatIsStartedOutlivesUsAndHoldsNoneOfOurStreams)
{
    putProgram(folder / "bin/xdg-open", "/bin/sleep 1");
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ChildProcess child([&] {
        close(ends[0]);
        dup2(ends[1], STDOUT_FILENO);
        return launcher.open("https://example.org", "", "", Launcher::Show::normal) > 32 ? 0 : 1;
    });
    close(ends[1]);
    EXPECT_EQ(child.result(), 0);
    const auto begin = std::chrono::steady_clock::now();
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 0); // the end at once, not when the program ends
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(900));
    close(ends[0]);
    EXPECT_NE(answer(), "");
}

TEST_F(LauncherTest, ACommandIsStartedWithItsArguments)
{
    putProgram(folder / "data/drive_c/Program Files/Viewer.exe");
    putFile(folder / "data/drive_c/Doc.txt", "x");
    EXPECT_EQ(
        startNumber(launcher, "\"C:\\program files\\VIEWER.exe\" plain \"with blank\" C:\\doc.txt \\\"q"), 0);
    EXPECT_TRUE(
        answer().starts_with("<plain>\n<with blank>\n<" + (folder / "data/drive_c/Doc.txt") + ">\n<\"q>\n"))
        << answer();
}

TEST_F(LauncherTest, AnUnquotedPathWithBlanksIsFound)
{
    putProgram(folder / "data/drive_c/Program Files/Viewer.exe");
    EXPECT_EQ(startNumber(launcher, " C:\\Program Files\\Viewer.exe /x "), 0);
    EXPECT_TRUE(answer().starts_with("</x>\n"));
}

TEST_F(LauncherTest, ANameIsLookedForInPath)
{
    putProgram(folder / "bin/viewer");
    EXPECT_EQ(startNumber(launcher, "viewer"), 0);
    EXPECT_NE(answer(), "");
}

TEST_F(LauncherTest, ACommandThatIsNoProgramIsToldAsMissing)
{
    putFile(folder / "data/drive_c/plain.txt", "x");
    for (const char* line : {"", "none", "C:\\none.exe", "\"C:\\none.exe", "\"\"", "C:\\plain.txt", "C:\\"})
        EXPECT_EQ(startNumber(launcher, line), kFileNotFound) << line;
}

TEST_F(LauncherTest, SignalsThatWeIgnoreAreOnAgainInWhatIsStarted)
{
    const std::string started = folder / "started";
    putProgram(folder / "bin/xdg-open", "echo x > " + started + "; kill -s PIPE $$");
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    EXPECT_GT(launcher.open("https://example.org", "", "", Launcher::Show::normal), 32);
    std::signal(SIGPIPE, before);
    for (int tries = 0; tries < 1000 && !fs::exists(started); ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(fs::exists(started));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_FALSE(fs::exists(told)); // the signal ended it
}

} // namespace
} // namespace zorvo
