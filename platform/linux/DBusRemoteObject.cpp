#include "platform/linux/DBusRemoteObject.h"

#include "base/RunTimeError.h"
#include "platform/linux/busCall.h"
#include "platform/linux/busErrors.h"
#include "platform/linux/busValues.h"
#include "platform/linux/byReference.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

namespace zorvo {

namespace {

const QString kIntrospectable = QStringLiteral("org.freedesktop.DBus.Introspectable");

constexpr int kCreationTries = 3;

bool isServerGone(const QDBusMessage& reply)
{
    return reply.type() == QDBusMessage::ErrorMessage && failureOf(reply).number() == kServerUnavailable;
}

QString objectIn(const QDBusMessage& reply)
{
    const QVariant first = reply.arguments().value(0);
    if (first.metaType() != QMetaType::fromType<QDBusObjectPath>())
        throw RunTimeError(kCannotCreateObject);
    return first.value<QDBusObjectPath>().path();
}

/// A class that can't be had is 429 whatever stood in the way; only what its own maker says comes through.
RunTimeError creationFailure(const QDBusMessage& errorReply)
{
    if (errorReply.errorName() == QLatin1String(kRunTimeErrorName))
        return failureOf(errorReply);
    return RunTimeError(kCannotCreateObject);
}

QVariantList plainValues(const std::vector<Value>& values)
{
    QVariantList wire;
    for (const Value& value : values)
        wire.append(toBusVariant(value).value<QDBusVariant>().variant());
    return wire;
}

/// What a call that nobody described looked like on the wire.
BusMember memberAsCalled(const QVariantList& arguments, const QVariantList& replies)
{
    BusMember member;
    for (const QVariant& argument : arguments)
        member.in.append({QString(), QLatin1String(argument.metaType().name())});
    for (const QVariant& reply : replies)
        member.out.append({QString(), QLatin1String(reply.metaType().name())});
    return member;
}

} // namespace

DBusRemoteObject::DBusRemoteObject(const QDBusConnection& bus, const QString& busName, const QString& server,
                                   const QString& path, const QString& progId)
    : bus_(bus)
    , busName_(busName)
    , server_(server)
    , path_(path)
    // A class id is no interface name: such an object is called by dispatch id alone.
    , interface_(progId.startsWith(QLatin1Char('{')) ? QString() : progId)
{
}

std::shared_ptr<DBusRemoteObject> DBusRemoteObject::create(const QDBusConnection& bus, const QString& busName,
                                                           const QString& progId)
{
    const QDBusMessage request = methodCall(busName, pathOfBusName(busName), QLatin1String(kServiceInterface),
                                            QStringLiteral("CreateObject"), {progId});
    QDBusMessage reply = callAndServe(bus, request);
    // The server may be ending this very moment. Nothing was made then, and the next one will do.
    for (int nTry = 1; nTry < kCreationTries && isServerGone(reply) && bus.isConnected(); ++nTry)
        reply = callAndServe(bus, request);
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw creationFailure(reply);
    return std::shared_ptr<DBusRemoteObject>(
        new DBusRemoteObject(bus, busName, reply.service(), objectIn(reply), progId));
}

std::shared_ptr<DBusRemoteObject> DBusRemoteObject::attach(const QDBusConnection& bus, const QString& busName,
                                                           const QString& progId)
{
    const QString owner = ownerOf(bus, busName);
    if (owner.isEmpty())
        throw RunTimeError(kCannotCreateObject);
    const QDBusMessage reply =
        callAndServe(bus, methodCall(owner, pathOfBusName(busName), QLatin1String(kServiceInterface),
                                     QStringLiteral("GetObject"), {progId}));
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw RunTimeError(kCannotCreateObject);
    return std::shared_ptr<DBusRemoteObject>(
        new DBusRemoteObject(bus, busName, owner, objectIn(reply), progId));
}

DBusRemoteObject::~DBusRemoteObject()
{
    QDBusMessage release =
        methodCall(server_, pathOfBusName(busName_), QLatin1String(kServiceInterface),
                   QStringLiteral("ReleaseObject"), {QVariant::fromValue(QDBusObjectPath(path_))});
    release.setAutoStartService(false);
    // No answer is waited for: a handle goes at any time, also while the process ends.
    bus_.send(release);
}

QDBusMessage DBusRemoteObject::send(const QString& interface, const QString& member,
                                    const QVariantList& arguments) const
{
    return callAndServe(bus_, methodCall(server_, path_, interface, member, arguments));
}

void DBusRemoteObject::describe()
{
    if (bAsked_)
        return;
    const QDBusMessage reply = send(kIntrospectable, QStringLiteral("Introspect"), {});
    if (reply.type() == QDBusMessage::ReplyMessage) {
        if (auto described = interfaceFromXml(reply.arguments().value(0).toString(), interface_)) {
            interface_ = described->name;
            members_ = std::move(described->members);
        }
    } else if (failureOf(reply).number() == kServerUnavailable) {
        throw failureOf(reply);
    }
    bAsked_ = true;
}

bool DBusRemoteObject::isDescribed()
{
    describe();
    return members_.has_value();
}

std::optional<BusMember> DBusRemoteObject::member(const QString& name)
{
    describe();
    if (!members_)
        return {};
    for (const auto sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive})
        for (const BusMember& each : *members_)
            if (each.name.compare(name, sensitivity) == 0)
                return each;
    return {};
}

Value DBusRemoteObject::invoke(const std::string& member, std::vector<Value>& arguments)
{
    const QString name = QString::fromStdString(member);
    if (interface_.isEmpty())
        throw RunTimeError(kMemberNotFound);
    if (!isDescribed())
        return invokeAsItIs(name, arguments);
    const auto described = this->member(name);
    if (!described)
        throw RunTimeError(kMemberNotFound);
    return invokeDescribed(*described, arguments);
}

std::vector<Value> DBusRemoteObject::allReplies(const BusMember& member, const std::vector<Value>& arguments)
{
    std::vector<Value> values;
    for (const QVariant& reply : replies(member, arguments))
        values.push_back(fromBus(reply));
    return values;
}

QVariantList DBusRemoteObject::replies(const BusMember& member, const std::vector<Value>& arguments)
{
    if (static_cast<qsizetype>(arguments.size()) != member.in.size())
        throw RunTimeError(kTypeMismatch);
    QVariantList wire;
    for (std::size_t index = 0; index < arguments.size(); ++index)
        wire.append(toBus(arguments[index], member.in.at(static_cast<qsizetype>(index)).type));
    const QDBusMessage reply = send(interface_, member.name, wire);
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw failureOf(reply);
    return reply.arguments();
}

Value DBusRemoteObject::invokeDescribed(const BusMember& member, std::vector<Value>& arguments)
{
    return distributeReplies(replies(member, arguments), replyPlaces(member), arguments);
}

Value DBusRemoteObject::invokeAsItIs(const QString& member, std::vector<Value>& arguments)
{
    const QVariantList wire = plainValues(arguments);
    const QDBusMessage reply = send(interface_, member, wire);
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw failureOf(reply);
    return distributeReplies(reply.arguments(), replyPlaces(memberAsCalled(wire, reply.arguments())),
                             arguments);
}

Value DBusRemoteObject::invokeById(int dispatchId, std::vector<Value>& arguments)
{
    const QDBusMessage reply = send(QLatin1String(kDispatchInterface), QStringLiteral("Invoke"),
                                    {dispatchId, QVariant(plainValues(arguments))});
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw failureOf(reply);
    return fromBus(reply.arguments().value(0));
}

} // namespace zorvo
