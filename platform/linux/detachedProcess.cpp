#include "platform/linux/detachedProcess.h"

#include "platform/linux/nativeFiles.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace zorvo {

namespace {

/// What the new process needs, made ready ahead of the fork: between it and the start of the program only
/// calls that are safe in a copy of a process with threads may be made.
struct Launch {
    const char* program;
    char* const* arguments;
    const char* folder;
    int nullDevice;
    int report;
};

[[noreturn]] void becomeProgram(const Launch& launch)
{
    for (int stream = 0; stream < 3; ++stream)
        dup2(launch.nullDevice, stream);
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
    struct sigaction byDefault {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(SIGPIPE, &byDefault, nullptr);
    sigaction(SIGCHLD, &byDefault, nullptr);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    if (launch.folder[0] != '\0' && chdir(launch.folder) != 0) {
        // the program starts where we are
    }
    execv(launch.program, launch.arguments);
    const int failure = errno;
    const ssize_t ignored = write(launch.report, &failure, sizeof failure);
    _exit(ignored > 0 ? 127 : 126);
}

/// The first of the two forks: it goes at once, so that the second's process is nobody's child.
[[noreturn]] void becomeMiddleman(const Launch& launch)
{
    setsid();
    const pid_t second = fork();
    if (second == 0)
        becomeProgram(launch);
    const int failure = second < 0 ? errno : 0;
    if (failure != 0 && write(launch.report, &failure, sizeof failure) < 0)
        _exit(1);
    _exit(0);
}

bool canRun(const std::string& file)
{
    struct stat status {};
    return stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(file.c_str(), X_OK) == 0;
}

} // namespace

int startDetached(const std::string& program, const std::vector<std::string>& arguments,
                  const std::string& folder)
{
    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);

    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return errno;
    const FileDescriptor answer(ends[0]);
    FileDescriptor report(ends[1]);
    const FileDescriptor nullDevice(open("/dev/null", O_RDWR | O_CLOEXEC));
    if (!nullDevice.isOpen())
        return errno;

    const Launch launch{program.c_str(), pointers.data(), folder.c_str(), nullDevice.get(), report.get()};
    const pid_t middleman = fork();
    if (middleman < 0)
        return errno;
    if (middleman == 0)
        becomeMiddleman(launch);
    report = FileDescriptor();
    while (waitpid(middleman, nullptr, 0) < 0 && errno == EINTR) {
    }
    // The other end closes when the program starts; what comes ahead of that is its failure.
    int failure = 0;
    ssize_t got = 0;
    do
        got = read(answer.get(), &failure, sizeof failure);
    while (got < 0 && errno == EINTR);
    return got == sizeof failure ? failure : 0;
}

std::string findProgram(const std::string& name)
{
    if (name.empty() || name.find('/') != std::string::npos)
        return !name.empty() && canRun(name) ? name : std::string();
    const char* path = std::getenv("PATH");
    const std::string folders = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
    for (std::size_t at = 0; at <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', at), folders.size());
        std::string file = folders.substr(at, end - at) + '/' + name;
        if (file.front() == '/' && end > at && canRun(file))
            return file;
        at = end + 1;
    }
    return {};
}

} // namespace zorvo
