#include "tests/bus/BusClient.h"

#include "platform/linux/busCall.h"
#include "platform/linux/busInterface.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

namespace zorvo {

namespace {
constexpr int kLongestWait = 15000;

QString nextName()
{
    static int nCount = 0;
    return QStringLiteral("client%1").arg(++nCount);
}
} // namespace

BusClient::BusClient(const QString& address, QString busName)
    : busName_(std::move(busName))
    , name_(nextName())
    , connection_(QDBusConnection::connectToBus(address, name_))
{
}

BusClient::~BusClient()
{
    vanish();
}

void BusClient::vanish()
{
    connection_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name_);
}

QString BusClient::create(const QString& progId)
{
    const QDBusMessage reply = service(QStringLiteral("CreateObject"), {progId});
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    return reply.arguments().value(0).value<QDBusObjectPath>().path();
}

QDBusMessage BusClient::release(const QString& path)
{
    return service(QStringLiteral("ReleaseObject"), {QVariant::fromValue(QDBusObjectPath(path))});
}

QDBusMessage BusClient::service(const QString& member, const QVariantList& arguments)
{
    return call(pathOfBusName(busName_), QLatin1String(kServiceInterface), member, arguments);
}

QDBusMessage BusClient::call(const QString& path, const QString& interface, const QString& member,
                             const QVariantList& arguments)
{
    return replyOf(start(path, interface, member, arguments));
}

QDBusPendingCall BusClient::start(const QString& path, const QString& interface, const QString& member,
                                  const QVariantList& arguments)
{
    return connection_.asyncCall(methodCall(busName_, path, interface, member, arguments), kNoTimeOut);
}

QString BusClient::introspect(const QString& path)
{
    return call(path, QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"))
        .arguments()
        .value(0)
        .toString();
}

bool waitUntil(const std::function<bool()>& condition, int nMilliseconds)
{
    QElapsedTimer time;
    time.start();
    while (!condition()) {
        if (time.elapsed() > nMilliseconds)
            return false;
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return true;
}

bool isServed(const QString& address, const QString& busName)
{
    const QString name = nextName();
    bool bOwned = false;
    {
        const QDBusConnection connection = QDBusConnection::connectToBus(address, name);
        bOwned = connection.interface() && connection.interface()->isServiceRegistered(busName);
    }
    QDBusConnection::disconnectFromBus(name);
    return bOwned;
}

QDBusMessage replyOf(const QDBusPendingCall& call)
{
    const QDBusPendingCallWatcher watcher(call);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(kLongestWait, &loop, &QEventLoop::quit);
    if (!watcher.isFinished())
        loop.exec();
    if (!watcher.isFinished()) {
        ADD_FAILURE() << "no reply";
        return QDBusMessage::createError(QStringLiteral("test.NoReply"), QStringLiteral("no reply"));
    }
    return call.reply();
}

} // namespace zorvo
