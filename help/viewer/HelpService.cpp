#include "help/viewer/HelpService.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QFileInfo>

namespace zorvo::help {

namespace {
const QString kName = QStringLiteral("com.zorvo.Help");
const QString kPath = QStringLiteral("/com/zorvo/Help");
constexpr int kAnswerMilliseconds = 30000;
} // namespace

HelpService::HelpService(HelpDesk& desk, QDBusConnection bus, Waits waits)
    : desk_(desk)
    , bus_(std::move(bus))
    , waits_(waits)
{
    end_.setSingleShot(true);
    connect(&end_, &QTimer::timeout, this, &HelpService::considerEnd);
    connect(&desk_, &HelpDesk::becameIdle, this, [this] { end_.start(waits_.idle); });
    end_.start(waits_.first);
}

bool HelpService::start()
{
    if (!bus_.isConnected())
        return false;
    // The object first: a caller may be waiting for the name.
    if (!bus_.registerObject(kPath, this, QDBusConnection::ExportScriptableSlots))
        return false;
    const auto taken = bus_.interface()->registerService(kName, QDBusConnectionInterface::DontQueueService,
                                                         QDBusConnectionInterface::DontAllowReplacement);
    return taken.isValid() && taken.value() == QDBusConnectionInterface::ServiceRegistered;
}

qulonglong HelpService::Show(qulonglong owner, const QString& file, int command, uint data)
{
    const QString client = calledFromDBus() ? message().service() : QString();
    const std::uintptr_t window = desk_.show(owner, file, command, data, client);
    if (!desk_.isBusy())
        end_.start(waits_.idle);
    return window;
}

void HelpService::SetTopMost(qulonglong window, bool top)
{
    desk_.setTopMost(window, top);
}

/// A request may be on its way in the very moment of the end. So the name is given up first, and what was
/// sent to it before is still served.
void HelpService::considerEnd()
{
    if (desk_.isBusy())
        return;
    if (bus_.isConnected())
        bus_.interface()->unregisterService(kName);
    for (int nRound = 0; nRound < 2; ++nRound)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (!desk_.isBusy())
        QCoreApplication::exit(0);
    else if (bus_.isConnected())
        bus_.interface()->registerService(kName);
}

bool showElsewhere(const QDBusConnection& bus, const QString& file, int nCommand, uint nData)
{
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(kName).value())
        return false;
    QDBusMessage call = QDBusMessage::createMethodCall(kName, kPath, kName, QStringLiteral("Show"));
    call.setArguments(
        {QVariant::fromValue(qulonglong{0}), QFileInfo(file).absoluteFilePath(), nCommand, nData});
    const QDBusReply<qulonglong> shown = bus.call(call, QDBus::Block, kAnswerMilliseconds);
    return shown.isValid();
}

} // namespace zorvo::help
