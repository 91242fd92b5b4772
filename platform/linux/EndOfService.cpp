#include "platform/linux/EndOfService.h"

#include "platform/linux/busCall.h"

#include <QCoreApplication>

namespace zorvo {

namespace {
constexpr std::chrono::seconds kWindowsMayClose{2};
}

EndOfService::EndOfService(DBusClassServer& server, std::function<bool()> isFormLoaded, Waits waits)
    : server_(server)
    , isFormLoaded_(std::move(isFormLoaded))
    , waits_(waits)
{
    sinceStart_.start();
    wake_.setSingleShot(true);
    connect(&wake_, &QTimer::timeout, this, &EndOfService::consider);
    connect(&server_, &DBusClassServer::becameIdle, this, &EndOfService::considerSoon);
    connect(&server_, &DBusClassServer::busLost, this, &EndOfService::endWithBus);
    wake_.start(waits_.first);
}

void EndOfService::considerSoon()
{
    const auto untilFirst = waits_.first - std::chrono::milliseconds(sinceStart_.elapsed());
    wake_.start(server_.hadClient() ? waits_.idle : std::max(untilFirst, std::chrono::milliseconds(0)));
}

bool EndOfService::mayEnd() const
{
    return server_.isIdle() && !(isFormLoaded_ && isFormLoaded_());
}

void EndOfService::consider()
{
    if (bConsidering_ || !mayEnd())
        return;
    bConsidering_ = true;
    server_.releaseName();
    for (int nRound = 0; nRound < 2; ++nRound) {
        wakeNestedLoops();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    bConsidering_ = false;
    // With the name back, a client of meanwhile has come; it may even have gone, and the next one be on its
    // way.
    if (mayEnd() && !server_.hasName()) {
        QCoreApplication::exit(0);
        return;
    }
    server_.takeName();
    considerSoon();
}

void EndOfService::endWithBus()
{
    // As at the user's own close, so that settings and geometry are kept; a window that stays doesn't hold
    // us.
    QTimer::singleShot(kWindowsMayClose, [] { QCoreApplication::exit(0); });
    QCoreApplication::quit();
}

} // namespace zorvo
