#include "platform/linux/busCall.h"

#include "base/RunTimeError.h"

#include <QAbstractEventDispatcher>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <chrono>

namespace zorvo {

namespace {

constexpr int kFlushMilliseconds = 5000;
constexpr std::chrono::seconds kServerMayStart{20};
constexpr std::chrono::milliseconds kLookAtProcess{50};

bool isActivatable(const QDBusConnection& bus, const QString& busName)
{
    const QDBusReply<QStringList> names = bus.interface()->activatableServiceNames();
    return names.isValid() && names.value().contains(busName);
}

/// A process of its own, whose pid tells when it gives up; 0 when it can't be started.
qint64 startServer(const QString& executable)
{
    QProcess process;
    process.setProgram(executable);
    // A caller that reads our output to its end must not wait for the server's.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    qint64 nPid = 0;
    return process.startDetached(&nPid) ? nPid : 0;
}

/// It has ended; who should have taken its exit code may not have done so yet.
bool isGone(qint64 nPid)
{
    QFile status(QStringLiteral("/proc/%1/stat").arg(nPid));
    if (!status.open(QIODevice::ReadOnly))
        return true;
    const QByteArray text = status.readAll();
    return text.mid(text.lastIndexOf(')') + 2, 1) == "Z";
}

/// False when the process ended first or the time is up.
bool waitForName(const QDBusConnection& bus, const QString& busName, qint64 nPid)
{
    QEventLoop loop;
    QDBusServiceWatcher watcher(busName, bus, QDBusServiceWatcher::WatchForRegistration);
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &loop, &QEventLoop::quit);
    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, &loop, &QEventLoop::quit);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&loop, nPid] {
        if (isGone(nPid))
            loop.quit();
    });
    if (ownerOf(bus, busName).isEmpty()) {
        deadline.start(kServerMayStart);
        look.start(kLookAtProcess);
        wakeNestedLoops();
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    // A process that yields to another one has ended too, but the name is there.
    return !ownerOf(bus, busName).isEmpty();
}

} // namespace

QDBusMessage callAndServe(const QDBusConnection& bus, const QDBusMessage& call, int nMilliseconds)
{
    const QDBusPendingCall pending = bus.asyncCall(call, nMilliseconds);
    const QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    wakeNestedLoops();
    if (!watcher.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!watcher.isFinished())
        return QDBusMessage::createError(QDBusError::Disconnected, QStringLiteral("The process is ending"));
    return pending.reply();
}

void wakeNestedLoops()
{
    if (QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance())
        dispatcher->wakeUp();
}

QDBusMessage methodCall(const QString& service, const QString& path, const QString& interface,
                        const QString& member, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, member);
    call.setArguments(arguments);
    return call;
}

void flushBus(const QDBusConnection& bus)
{
    // The bus takes messages in order: when it answers this one, it has those before.
    const QString name = QStringLiteral("org.freedesktop.DBus");
    const QDBusMessage ping = QDBusMessage::createMethodCall(name, QStringLiteral("/org/freedesktop/DBus"),
                                                             name, QStringLiteral("GetId"));
    bus.call(ping, QDBus::Block, kFlushMilliseconds);
}

QString ownerOf(const QDBusConnection& bus, const QString& busName)
{
    if (!bus.interface())
        return {};
    const QDBusReply<QString> owner = bus.interface()->serviceOwner(busName);
    return owner.isValid() ? owner.value() : QString();
}

void ensureServer(const QDBusConnection& bus, const QString& busName, const QString& executable)
{
    if (!bus.isConnected() || !bus.interface())
        throw RunTimeError(kCannotCreateObject, "There is no session bus");
    if (!ownerOf(bus, busName).isEmpty() || isActivatable(bus, busName))
        return;
    const QFileInfo program(executable);
    if (executable.isEmpty() || !program.isFile() || !program.isExecutable())
        throw RunTimeError(kCannotCreateObject);
    const qint64 nPid = startServer(executable);
    if (nPid == 0 || !waitForName(bus, busName, nPid))
        throw RunTimeError(kCannotCreateObject);
}

} // namespace zorvo
