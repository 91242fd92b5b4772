#pragma once

#include "platform/linux/ServedObjects.h"
#include "platform/linux/busInterface.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <list>

namespace zorvo {

/// Serves classes from a table on the session bus: the object service at the path that goes with the bus
/// name, and below it one object per instance with an interface named as its ProgID. It knows no class by
/// name and has no rule of its own for the end of the process.
///
/// All calls run on the thread that made the server. A call whose operation runs an event loop stays open,
/// and others are served meanwhile, last in first out.
class DBusClassServer : public QDBusVirtualObject {
    Q_OBJECT
public:
    /// `attachable` adds GetObject to the object service.
    enum class Attaching { none, attachable };

    DBusClassServer(const QDBusConnection& bus, const QString& busName, std::vector<ServedClass> classes,
                    Attaching attaching = Attaching::none);
    ~DBusClassServer() override;

    /// Begins to serve. False when another process has the name, or there is no bus.
    bool start();

    /// Gives the name up: who calls now starts another process. What was sent before still arrives.
    void releaseName();
    /// False when another process has taken it meanwhile. A class asked for takes the name again by itself.
    bool takeName();
    bool hasName() const { return bHasName_; }

    /// Neither an object held nor a call running.
    bool isIdle() const { return objects_.count() == 0 && openCalls_.empty(); }
    bool hadClient() const { return bHadClient_; }

    /// The last acts before the process ends: the name goes, all open calls get a success as their reply,
    /// calls that wait unread an error, and all of it has reached the bus when this returns.
    void answerAll();

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString& path) const override;

Q_SIGNALS:
    /// The last object has been released, or the last call without an object has returned.
    void becameIdle();
    /// The connection to the bus is gone.
    void busLost();

private Q_SLOTS:
    void onNameOwnerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);

private:
    /// A call whose operation is running.
    struct OpenCall {
        QDBusMessage message;
        const AutomationOperation* operation;
        std::vector<Value> arguments;
    };

    void handleService(const QDBusMessage& message);
    void handleProperties(const QDBusMessage& message);
    void handleObject(const QDBusMessage& message);
    void createObject(const QDBusMessage& message);
    void getObject(const QDBusMessage& message);
    void releaseObject(const QDBusMessage& message);
    void callOperation(const QDBusMessage& message, const ServedObject& object,
                       const AutomationOperation& operation);
    void callDispatch(const QDBusMessage& message, const ServedObject& object);
    void finishCall(std::list<OpenCall>::iterator call, const QDBusMessage& answer);
    void send(const QDBusMessage& question, const QDBusMessage& answer);
    void noteIdle();

    QStringList progIds() const;
    QList<BusMember> serviceMembers() const;

    QDBusConnection bus_;
    QString busName_;
    QString root_;
    Attaching attaching_;
    ServedObjects objects_;
    std::list<OpenCall> openCalls_;
    bool bHasName_ = false;
    bool bHadClient_ = false;
    bool bEnding_ = false;
};

} // namespace zorvo
