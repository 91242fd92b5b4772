#include "platform/linux/office/OfficeProcess.h"

#include "base/RunTimeError.h"
#include "platform/linux/office/childProcess.h"
#include "platform/linux/office/fileAddress.h"
#include "platform/linux/office/officeEnvironment.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

namespace zorvo {

namespace {

namespace fs = std::filesystem;

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

void OfficeProcess::start()
{
    const std::lock_guard lock(mutex_);
    if (bKilled_)
        throw RunTimeError(kCannotCreateObject);
    process_ = startChild(arguments(), officeEnvironment(profile_), ChildLife::withStarter);
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
