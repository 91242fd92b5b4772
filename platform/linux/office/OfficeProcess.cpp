#include "platform/linux/office/OfficeProcess.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/office/fileAddress.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Between the fork and the start of the program only calls that are safe in a copy of a process with
/// threads.
[[noreturn]] void becomeOffice(char* const* arguments, char* const* environment, int nullDevice, pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(1); // the parent was quicker to go than we to say so
    for (int stream = 0; stream < 3; ++stream)
        dup2(nullDevice, stream);
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    execve(arguments[0], arguments, environment);
    _exit(127);
}

bool isUtf8Locale()
{
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && value[0] != '\0')
            return containsNoCase(value, "UTF-8") || containsNoCase(value, "utf8");
    }
    return false;
}

/// The socket numbers among the open files of a process.
std::set<std::string> openSockets(pid_t process)
{
    std::set<std::string> numbers;
    std::error_code ignored;
    for (const fs::directory_entry& entry :
         fs::directory_iterator("/proc/" + std::to_string(process) + "/fd", ignored)) {
        const std::string target = fs::read_symlink(entry.path(), ignored).string();
        if (target.starts_with("socket:["))
            numbers.insert(target.substr(8, target.size() - 9));
    }
    return numbers;
}

} // namespace

OfficeProcess::OfficeProcess(OfficeInstallation office, const PrivateProfile& profile, std::string pipe)
    : office_(std::move(office))
    , profile_(profile)
    , pipe_(std::move(pipe))
{
}

OfficeProcess::~OfficeProcess()
{
    kill();
}

std::vector<std::string> OfficeProcess::arguments() const
{
    std::vector<std::string> result = {office_.sProgramFolder + "/soffice.bin",
                                       "--headless",
                                       "--invisible",
                                       "--norestore",
                                       "--nologo",
                                       "--nodefault",
                                       "--accept=pipe,name=" + pipe_ + ";urp;",
                                       "-env:UserInstallation=" + fileAddressOf(profile_.folder())};
    // The products' add-ins are extensions that the user has installed for the office.
    const std::string extensions = office_.sUserProfile + "/user/uno_packages/cache";
    std::error_code ignored;
    if (fs::is_directory(extensions, ignored))
        result.push_back("-env:UNO_USER_PACKAGES_CACHE=" + fileAddressOf(extensions));
    return result;
}

std::vector<std::string> OfficeProcess::environment() const
{
    std::vector<std::string> result;
    const bool bUtf8 = isUtf8Locale();
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const std::string name = text.substr(0, text.find('='));
        if (name != "TMPDIR" && name != "DISPLAY" && name != "WAYLAND_DISPLAY" &&
            name != "SAL_USE_VCLPLUGIN" && (bUtf8 || name != "LC_ALL"))
            result.push_back(text);
    }
    result.push_back("TMPDIR=" + profile_.temporaryFolder());
    result.emplace_back("SAL_USE_VCLPLUGIN=svp");
    // In another character set it finds no file whose name has letters beyond ASCII.
    if (!bUtf8)
        result.emplace_back("LC_ALL=C.UTF-8");
    return result;
}

void OfficeProcess::start()
{
    std::vector<std::string> argumentTexts = arguments();
    std::vector<std::string> environmentTexts = environment();
    const std::vector<char*> argumentPointers = pointersTo(argumentTexts);
    const std::vector<char*> environmentPointers = pointersTo(environmentTexts);
    const FileDescriptor nullDevice(open("/dev/null", O_RDWR | O_CLOEXEC));

    const std::lock_guard lock(mutex_);
    if (bKilled_)
        throw RunTimeError(kCannotCreateObject);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child < 0)
        throw RunTimeError(kCannotCreateObject, "LibreOffice can't be started: no process can be made.");
    if (child == 0)
        becomeOffice(argumentPointers.data(), environmentPointers.data(), nullDevice.get(), parent);
    process_ = child;
    exitCode_.reset();
}

std::optional<int> OfficeProcess::exitCode()
{
    const std::lock_guard lock(mutex_);
    int status = 0;
    if (process_ != 0 && !exitCode_ && waitpid(process_, &status, WNOHANG) == process_)
        exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return exitCode_;
}

void OfficeProcess::kill()
{
    const std::lock_guard lock(mutex_);
    bKilled_ = true;
    if (process_ == 0 || exitCode_)
        return;
    ::kill(process_, SIGKILL);
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    exitCode_ = 128 + SIGKILL;
}

std::uint64_t OfficeProcess::residentMemory() const
{
    std::ifstream figures("/proc/" + std::to_string(process_) + "/statm");
    std::uint64_t total = 0;
    std::uint64_t resident = 0;
    figures >> total >> resident;
    return resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

std::vector<std::string> OfficeProcess::sockets() const
{
    const std::set<std::string> numbers = openSockets(process_);
    std::vector<std::string> paths;
    std::ifstream table("/proc/net/unix");
    std::string line;
    while (std::getline(table, line)) {
        std::istringstream columns(line);
        std::string skipped;
        std::string number;
        std::string path;
        columns >> skipped >> skipped >> skipped >> skipped >> skipped >> skipped >> number;
        std::getline(columns >> std::ws, path);
        if (path.starts_with('/') && numbers.contains(number))
            paths.push_back(path);
    }
    return paths;
}

} // namespace zorvo
