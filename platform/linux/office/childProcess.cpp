#include "platform/linux/office/childProcess.h"

#include "base/RunTimeError.h"
#include "platform/linux/nativeFiles.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace zorvo {

namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Made ready ahead of the fork: after it only calls that are safe in a copy of a process with threads.
struct Launch {
    char* const* arguments;
    char* const* environment;
    int nullDevice;
    pid_t parent;
    ChildLife life;
};

[[noreturn]] void becomeProgram(const Launch& launch)
{
    if (launch.life == ChildLife::withStarter) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != launch.parent)
            _exit(1); // the parent was quicker to go than we to say so
    } else {
        setsid();
    }
    for (int stream = 0; stream < 3; ++stream)
        dup2(launch.nullDevice, stream);
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
    struct sigaction byDefault {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(SIGPIPE, &byDefault, nullptr);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    execve(launch.arguments[0], launch.arguments, launch.environment);
    _exit(127);
}

} // namespace

pid_t startChild(std::vector<std::string> arguments, std::vector<std::string> environment, ChildLife life)
{
    const std::vector<char*> argumentPointers = pointersTo(arguments);
    const std::vector<char*> environmentPointers = pointersTo(environment);
    const FileDescriptor nullDevice(open("/dev/null", O_RDWR | O_CLOEXEC));
    const Launch launch{argumentPointers.data(), environmentPointers.data(), nullDevice.get(), getpid(),
                        life};
    const pid_t child = fork();
    if (child < 0)
        throw RunTimeError(kCannotCreateObject, "LibreOffice can't be started: no process can be made.");
    if (child == 0)
        becomeProgram(launch);
    return child;
}

std::vector<std::string> ownEnvironment()
{
    std::vector<std::string> result;
    for (char** entry = environ; *entry != nullptr; ++entry)
        result.emplace_back(*entry);
    return result;
}

int exitCodeOf(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace zorvo
