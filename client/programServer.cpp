#include "client/programServer.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/DBusObjectCreator.h"
#include "platform/linux/RegistryStore.h"
#include "platform/linux/busCall.h"
#include "platform/linux/busErrors.h"
#include "platform/linux/display.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QFileInfo>

namespace zorvo {

namespace {

const QString kBusName = QStringLiteral("com.zorvo.TSelector");
constexpr std::string_view kOwnPrefix = "ZorvoTSelector.";

/// Without an address the bus of the user's run-time folder is taken, if it is there.
bool hasBusAddress()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFileInfo::exists(folder + QStringLiteral("/bus"));
}

/// With a release that has reached the bus when the handle is gone: `brendle` may end right after it.
std::shared_ptr<DBusRemoteObject> surelyReleased(std::shared_ptr<DBusRemoteObject> object)
{
    DBusRemoteObject* plain = object.get();
    return {plain, [held = std::move(object)](DBusRemoteObject*) mutable {
                held.reset();
                flushBus(QDBusConnection::sessionBus());
            }};
}

} // namespace

QDBusConnection requiredSessionBus()
{
    if (!hasBusAddress())
        throw RunTimeError(kCannotCreateObject,
                           "There is no session bus: DBUS_SESSION_BUS_ADDRESS isn't set.");
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        throw RunTimeError(kCannotCreateObject,
                           "The session bus can't be reached: " + bus.lastError().message().toStdString());
    return bus;
}

std::shared_ptr<DBusRemoteObject> createProgramObject(const std::string& progId)
{
    const QDBusConnection bus = requiredSessionBus();
    try {
        ensureServer(bus, kBusName, QCoreApplication::applicationDirPath() + QStringLiteral("/zorvobrendle"));
        return surelyReleased(DBusRemoteObject::create(bus, kBusName, QString::fromStdString(progId)));
    } catch (const RunTimeError& error) {
        if (error.number() == kCannotCreateObject && !hasDisplay())
            throw RunTimeError(kCannotCreateObject,
                               "There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set.");
        throw;
    }
}

std::shared_ptr<DBusRemoteObject> createAnyObject(const std::string& progId)
{
    if (equalNoCase(progId.substr(0, kOwnPrefix.size()), kOwnPrefix))
        return createProgramObject(progId);
    requiredSessionBus();
    DBusObjectCreator creator(std::make_shared<RegistryStore>());
    return surelyReleased(std::dynamic_pointer_cast<DBusRemoteObject>(creator.createByProgId(progId)));
}

ServerEnd::ServerEnd(const DBusRemoteObject& object)
    : bus_(QDBusConnection::sessionBus())
    , watcher_(object.server(), bus_, QDBusServiceWatcher::WatchForUnregistration)
{
    QObject::connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, &loop_, [this] {
        bEnded_ = true;
        loop_.quit();
    });
    bus_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), &loop_,
                 SLOT(quit()));
}

void ServerEnd::wait()
{
    if (!bEnded_ && bus_.isConnected())
        loop_.exec();
    if (!bEnded_)
        throw RunTimeError(kServerUnavailable, "The session bus has gone.");
}

} // namespace zorvo
