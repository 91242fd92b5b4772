#include "platform/linux/office/UserOffice.h"

#include "base/RunTimeError.h"
#include "platform/linux/office/OfficeLibrary.h"
#include "platform/linux/office/childProcess.h"
#include "platform/linux/office/screen.h"

#include <sys/wait.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>

namespace zorvo {

namespace {

constexpr std::chrono::milliseconds kPause{10};

/// One office runs per settings folder, whoever started it; one name for it, so that a later run finds it
/// listening and doesn't make it listen once more.
std::string pipeNameFor(const std::string& folder)
{
    std::uint64_t hash = 14695981039346656037U;
    for (const char character : folder)
        hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211U;
    return "zorvobrendle-user-" + std::to_string(hash);
}

} // namespace

UserOffice::UserOffice(const OfficeInstallation& office)
    : office_(office)
    , pipe_(pipeNameFor(office.sUserProfile))
{
    // Without one the office would start all the same, and the document be nowhere to be seen.
    if (!hasScreen())
        throw RunTimeError(kCannotCreateObject,
                           "LibreOffice can't show a window: this session has no display.");
}

UserOffice::~UserOffice()
{
    // Nothing of it shall be left in the process table when the user closes it before this program ends.
    if (launcher_ != 0)
        waitpid(launcher_, nullptr, WNOHANG);
}

std::unique_ptr<OfficeConnection> UserOffice::connect()
{
    const OfficeConnector& connector = officeConnector(office_.sProgramFolder);
    auto connection = connector.connect(office_.sProgramFolder, pipe_);
    if (connection)
        return connection;
    launcher_ = startChild({office_.sProgramFolder + "/soffice", "--accept=pipe,name=" + pipe_ + ";urp;",
                            "--nologo", "--nodefault"},
                           ownEnvironment(), ChildLife::ofItsOwn);
    while (!bClosed_) {
        connection = connector.connect(office_.sProgramFolder, pipe_);
        if (connection)
            return connection;
        mindLauncher();
        std::this_thread::sleep_for(kPause);
    }
    throw RunTimeError(kCannotCreateObject,
                       "LibreOffice didn't start in time. Please look whether it waits for an answer.");
}

void UserOffice::mindLauncher()
{
    int status = 0;
    if (launcher_ == 0 || waitpid(launcher_, &status, WNOHANG) != launcher_)
        return;
    launcher_ = 0;
    const int nCode = exitCodeOf(status);
    if (nCode != 0)
        throw RunTimeError(kCannotCreateObject,
                           "LibreOffice can't be started: it ended with code " + std::to_string(nCode) + ".");
}

std::string UserOffice::crashText() const
{
    return "LibreOffice has been closed or has ended unexpectedly.";
}

std::string UserOffice::hangText() const
{
    return "LibreOffice doesn't answer. Please look whether it waits for an answer in a window of its own.";
}

} // namespace zorvo
