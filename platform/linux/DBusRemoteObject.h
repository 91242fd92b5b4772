#pragma once

#include "platform/Automation.h"
#include "platform/linux/busInterface.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <memory>
#include <optional>

namespace zorvo {

/// An object that another process serves. It is released when the handle goes.
///
/// The members are read from the object's introspection at the first call. A server that doesn't describe its
/// object is called with the arguments as they are.
class DBusRemoteObject : public LateBoundObject {
public:
    /// A new object of the class from the server that has the name, started by the bus if need be. Throws
    /// RunTimeError: 429 when the class or its server isn't there, the server's own failure otherwise.
    static std::shared_ptr<DBusRemoteObject> create(const QDBusConnection& bus, const QString& busName,
                                                    const QString& progId);
    /// A running object of a process that has the name already. Throws RunTimeError 429 when there is none.
    static std::shared_ptr<DBusRemoteObject> attach(const QDBusConnection& bus, const QString& busName,
                                                    const QString& progId);
    ~DBusRemoteObject() override;
    DBusRemoteObject(const DBusRemoteObject&) = delete;
    DBusRemoteObject& operator=(const DBusRemoteObject&) = delete;

    Value invoke(const std::string& member, std::vector<Value>& arguments) override;
    Value invokeById(int dispatchId, std::vector<Value>& arguments) override;

    /// Unique name of the serving process: it tells when that process goes.
    const QString& server() const { return server_; }
    /// The member as it is described, matched without regard to case when no exact match exists; nothing when
    /// it isn't. Throws RunTimeError 462 when the server has gone.
    std::optional<BusMember> member(const QString& name);
    /// Calls a described member and gives all that comes back, in the order of the wire. Throws as `invoke`
    /// does.
    std::vector<Value> allReplies(const BusMember& member, const std::vector<Value>& arguments);
    /// Whether the object's interface is described at all. Throws as `member` does.
    bool isDescribed();

private:
    DBusRemoteObject(const QDBusConnection& bus, const QString& busName, const QString& server,
                     const QString& path, const QString& progId);

    QDBusMessage send(const QString& interface, const QString& member, const QVariantList& arguments) const;
    void describe();
    QVariantList replies(const BusMember& member, const std::vector<Value>& arguments);
    Value invokeDescribed(const BusMember& member, std::vector<Value>& arguments);
    Value invokeAsItIs(const QString& member, std::vector<Value>& arguments);

    QDBusConnection bus_;
    QString busName_;
    QString server_;
    QString path_;
    QString interface_;
    bool bAsked_ = false;
    std::optional<QList<BusMember>> members_;
};

} // namespace zorvo
