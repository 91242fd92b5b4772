#include "platform/linux/office/OfficeProcess.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/office/childProcess.h"
#include "platform/linux/office/fileAddress.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

bool isUtf8Locale()
{
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && value[0] != '\0')
            return containsNoCase(value, "UTF-8") || containsNoCase(value, "utf8");
    }
    return false;
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
    for (const std::string& text : ownEnvironment()) {
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
    const std::lock_guard lock(mutex_);
    if (bKilled_)
        throw RunTimeError(kCannotCreateObject);
    process_ = startChild(arguments(), environment(), ChildLife::withStarter);
    exitCode_.reset();
}

std::optional<int> OfficeProcess::exitCode()
{
    const std::lock_guard lock(mutex_);
    int status = 0;
    if (process_ != 0 && !exitCode_ && waitpid(process_, &status, WNOHANG) == process_)
        exitCode_ = exitCodeOf(status);
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

} // namespace zorvo
