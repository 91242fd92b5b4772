#include "platform/linux/office/PrivateOffice.h"

#include "base/RunTimeError.h"
#include "platform/linux/office/OfficeLibrary.h"
#include "platform/linux/office/processSockets.h"

#include <unistd.h>

#include <chrono>
#include <thread>

namespace zorvo {

namespace {

/// With this exit code an office asks to be started again, as it does with settings it hasn't seen before.
constexpr int kStartAgain = 81;
constexpr int kMostStarts = 3;
constexpr std::chrono::milliseconds kPause{5};
constexpr std::chrono::milliseconds kLongestDying{300};
/// An exit code beyond it is this and the number of the signal.
constexpr int kSignals = 128;

std::string newPipeName()
{
    static std::atomic<unsigned> counter{0};
    return "zorvobrendle-" + std::to_string(getpid()) + '-' + std::to_string(counter++);
}

} // namespace

PrivateOffice::PrivateOffice(const OfficeInstallation& office)
    : office_(office)
    , pipe_(newPipeName())
    , profile_(office)
    , process_(office, profile_, pipe_)
{
}

std::unique_ptr<OfficeConnection> PrivateOffice::connect()
{
    const OfficeConnector& connector = officeConnector(office_.sProgramFolder);
    ++nStarts_;
    process_.start();
    while (!bClosed_) {
        if (auto connection = connector.connect(office_.sProgramFolder, pipe_)) {
            profile_.noteSockets(socketsOf(process_.pid()));
            bConnected_ = true;
            return connection;
        }
        mindExit();
        std::this_thread::sleep_for(kPause);
    }
    throw RunTimeError(kCannotCreateObject, "LibreOffice didn't start in time.");
}

void PrivateOffice::mindExit()
{
    const std::optional<int> code = process_.exitCode();
    if (!code)
        return;
    if (*code != kStartAgain || nStarts_ == kMostStarts)
        throw RunTimeError(kCannotCreateObject,
                           "LibreOffice can't be started: it ended with code " + std::to_string(*code) + ".");
    ++nStarts_;
    process_.start();
}

void PrivateOffice::close()
{
    bClosed_ = true;
    process_.kill();
}

std::string PrivateOffice::crashText() const
{
    // The connection goes a little ahead of the process.
    const auto end = std::chrono::steady_clock::now() + kLongestDying;
    std::optional<int> code = process_.exitCode();
    while (!code && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
        code = process_.exitCode();
    }
    std::string sHow;
    if (code)
        sHow = *code > kSignals ? " (signal " + std::to_string(*code - kSignals) + ")"
                                : " (code " + std::to_string(*code) + ")";
    return "LibreOffice has ended unexpectedly" + sHow + ". It will be started again for the next document.";
}

std::string PrivateOffice::hangText() const
{
    return "LibreOffice didn't answer and was ended. It will be started again for the next document.";
}

} // namespace zorvo
