#pragma once

#include "platform/Office.h"
#include "platform/linux/LibreOffice.h"
#include "platform/linux/office/processSockets.h"
#include "tests/office/TestDesk.h"
#include "tests/office/officeProcesses.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// A display server on a number that nobody uses.
class TestScreen {
public:
    TestScreen()
    {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        server_ = fork();
        if (server_ == 0) {
            const std::string number = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1280x900x24", "-noreset",
                   "-nolisten", "tcp", nullptr);
            _exit(1);
        }
        close(ends[1]);
        char text[16] = {};
        if (read(ends[0], text, sizeof text - 1) > 0)
            sDisplay_ = ":" + std::to_string(std::atoi(text));
        close(ends[0]);
    }
    ~TestScreen()
    {
        kill(server_, SIGTERM);
        waitpid(server_, nullptr, 0);
    }
    TestScreen(const TestScreen&) = delete;
    TestScreen& operator=(const TestScreen&) = delete;

    const std::string& display() const { return sDisplay_; }

    /// A window with that in its title is on the screen.
    bool shows(const std::string& title) const
    {
        const std::string display = "DISPLAY=" + sDisplay_ + " ";
        return !outputOf("for id in $(" + display + "xwininfo -root -tree 2>/dev/null | grep -F '" + title +
                         "' | grep -o '^ *0x[0-9a-f]*'); do " + display +
                         "xwininfo -id $id 2>/dev/null | grep IsViewable; done")
                    .empty();
    }

    /// The titles of the windows, as a window manager would see them.
    std::string windows() const
    {
        return outputOf("DISPLAY=" + sDisplay_ + " xwininfo -root -tree 2>/dev/null");
    }

private:
    static std::string outputOf(const std::string& command)
    {
        std::string text;
        FILE* stream = popen(command.c_str(), "r");
        for (int character = std::fgetc(stream); character != EOF; character = std::fgetc(stream))
            text += static_cast<char>(character);
        pclose(stream);
        return text;
    }

    pid_t server_ = 0;
    std::string sDisplay_;
};

/// An office of a user's own on a screen of the test's own, ended with the test.
class UserOfficeTest : public testing::Test {
protected:
    TestDesk& desk = TestDesk::instance();
    const std::filesystem::path folder = desk.newFolder();
    TestScreen screen;
    ScopedVariable display{"DISPLAY", screen.display()};
    // Its settings lie in a folder of each test's own, so that the offices of two tests never meet. The
    // office goes by a folder that is there alone; it would take one for all tests in the home folder
    // otherwise.
    const bool bHasSettings = std::filesystem::create_directory(folder / "config");
    ScopedVariable settings{"XDG_CONFIG_HOME", (folder / "config").string()};
    std::shared_ptr<Office> office = makeLibreOffice();

    std::string letter() const { return dos(desk.templates() / "LETTER.DOT"); }
    std::string budget() const { return dos(desk.templates() / "BUDGET.XLT"); }

    std::vector<pid_t> usersOffices() const
    {
        std::vector<pid_t> offices;
        for (const pid_t process : processesWith("soffice.bin"))
            if (environmentOf(process).find((folder / "config").string()) != std::string::npos &&
                commandLineHasNo(process, "UserInstallation"))
                offices.push_back(process);
        return offices;
    }

    void TearDown() override
    {
        office.reset();
        for (const pid_t process : usersOffices()) {
            const std::vector<std::string> sockets = socketsOf(process);
            kill(process, SIGKILL);
            for (const std::string& socket : sockets)
                if (socket.find("/OSL_PIPE_") != std::string::npos)
                    std::filesystem::remove(socket);
        }
    }

private:
    static std::string environmentOf(pid_t process)
    {
        return bytesOf("/proc/" + std::to_string(process) + "/environ");
    }
    static bool commandLineHasNo(pid_t process, const std::string& text)
    {
        return bytesOf("/proc/" + std::to_string(process) + "/cmdline").find(text) == std::string::npos;
    }
};

} // namespace zorvo
