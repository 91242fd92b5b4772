#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QString>
#include <QVariantList>
#include <functional>

namespace zorvo {

/// A client as others write it: a connection of its own to the bus, objects by path, calls by the server's
/// name. Every wait has an end, so that a reply that never comes fails a test instead of hanging it.
class BusClient {
public:
    explicit BusClient(const QString& address, QString busName = QStringLiteral("com.zorvo.TSelector"));
    ~BusClient();
    BusClient(const BusClient&) = delete;
    BusClient& operator=(const BusClient&) = delete;

    /// Path of a new object; empty on failure.
    QString create(const QString& progId);
    QDBusMessage release(const QString& path);
    QDBusMessage service(const QString& member, const QVariantList& arguments);
    QDBusMessage call(const QString& path, const QString& interface, const QString& member,
                      const QVariantList& arguments = {});
    /// Without waiting.
    QDBusPendingCall start(const QString& path, const QString& interface, const QString& member,
                           const QVariantList& arguments = {});
    QString introspect(const QString& path);

    /// The connection goes, as at the end of a process; nothing is released first.
    void vanish();

    QDBusConnection& connection() { return connection_; }

private:
    QString busName_;
    QString name_;
    QDBusConnection connection_;
};

/// Waits, with the event loop running, until the condition holds; false when it doesn't within the time.
bool waitUntil(const std::function<bool()>& condition, int nMilliseconds = 30000);

/// The server's name has an owner on that bus.
bool isServed(const QString& address, const QString& busName = QStringLiteral("com.zorvo.TSelector"));

/// The reply, or a failure of the test when none comes in time.
QDBusMessage replyOf(const QDBusPendingCall& call);

} // namespace zorvo
