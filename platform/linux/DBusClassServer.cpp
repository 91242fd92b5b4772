#include "platform/linux/DBusClassServer.h"

#include "base/RunTimeError.h"
#include "platform/linux/busCall.h"
#include "platform/linux/busErrors.h"
#include "platform/linux/busReplies.h"
#include "platform/linux/busValues.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <algorithm>

namespace zorvo {

namespace {

const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");
const QString kLocal = QStringLiteral("org.freedesktop.DBus.Local");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kIntrospectable = QStringLiteral("org.freedesktop.DBus.Introspectable");
const QString kPeer = QStringLiteral("org.freedesktop.DBus.Peer");

bool isInterface(const QDBusMessage& message, const QString& name)
{
    // The interface may be left out; then the member alone decides.
    return message.interface().isEmpty() || message.interface() == name;
}

} // namespace

DBusClassServer::DBusClassServer(const QDBusConnection& bus, const QString& busName,
                                 std::vector<ServedClass> classes, Attaching attaching)
    : bus_(bus)
    , busName_(busName)
    , root_(pathOfBusName(busName))
    , attaching_(attaching)
    , objects_(std::move(classes))
{
}

DBusClassServer::~DBusClassServer()
{
    if (bHasName_)
        releaseName();
    bus_.unregisterObject(root_, QDBusConnection::UnregisterTree);
}

bool DBusClassServer::start()
{
    if (!bus_.isConnected())
        return false;
    // All ears are open before the name is taken: the first call may be waiting for it.
    const QStringList onlyVanished{QString(), QString(), QLatin1String("")};
    bus_.connect(kBus, kBusPath, kBus, QStringLiteral("NameOwnerChanged"), onlyVanished, QString(), this,
                 SLOT(onNameOwnerChanged(QString, QString, QString)));
    bus_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"), kLocal,
                 QStringLiteral("Disconnected"), this, SIGNAL(busLost()));
    return bus_.registerVirtualObject(root_, this, QDBusConnection::SubPath) && takeName();
}

void DBusClassServer::releaseName()
{
    bHasName_ = false;
    bus_.unregisterService(busName_);
}

bool DBusClassServer::takeName()
{
    bHasName_ = bHasName_ || bus_.registerService(busName_);
    return bHasName_;
}

bool DBusClassServer::handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/)
{
    if (message.interface() == kPeer)
        return false;
    if (bEnding_)
        send(message,
             message.createErrorReply(QDBusError::ServiceUnknown, QStringLiteral("The process is ending")));
    else if (message.path() == root_)
        handleService(message);
    else
        handleObject(message);
    return true;
}

void DBusClassServer::handleService(const QDBusMessage& message)
{
    const QString member = message.member();
    if (isInterface(message, kIntrospectable) && member == QLatin1String("Introspect"))
        send(message, message.createReply(introspect(root_)));
    else if (message.interface() == kProperties)
        handleProperties(message);
    else if (!isInterface(message, QLatin1String(kServiceInterface)))
        send(message, unknownInterface(message));
    else if (member == QLatin1String("CreateObject"))
        createObject(message);
    else if (member == QLatin1String("ReleaseObject"))
        releaseObject(message);
    else if (member == QLatin1String("GetObject") && attaching_ == Attaching::attachable)
        getObject(message);
    else
        send(message, unknownMember(message));
}

void DBusClassServer::handleProperties(const QDBusMessage& message)
{
    const QString member = message.member();
    const QVariantList arguments = message.arguments();
    const QString interface = arguments.value(0).toString();
    const bool bOurs =
        message.path() == root_ && (interface.isEmpty() || interface == QLatin1String(kServiceInterface));
    if (member == QLatin1String("GetAll") && message.signature() == QLatin1String("s")) {
        QVariantMap all;
        if (bOurs)
            all.insert(QStringLiteral("Classes"), progIds());
        send(message, message.createReply(all));
    } else if (member == QLatin1String("Get") && message.signature() == QLatin1String("ss")) {
        if (bOurs && arguments.value(1).toString() == QLatin1String("Classes"))
            send(message, message.createReply(QVariant::fromValue(QDBusVariant(progIds()))));
        else
            send(message,
                 message.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("No such property")));
    } else if (member == QLatin1String("Set") && message.signature() == QLatin1String("ssv")) {
        send(message,
             message.createErrorReply(QDBusError::PropertyReadOnly, QStringLiteral("Nothing can be set")));
    } else {
        send(message, unknownMember(message));
    }
}

void DBusClassServer::createObject(const QDBusMessage& message)
{
    if (message.signature() != QLatin1String("s"))
        return send(message, wrongArguments(message, QStringLiteral("s")));
    const QString progId = message.arguments().at(0).toString();
    const ServedClass* served = objects_.classOf(progId.toStdString());
    if (!served)
        return send(message, classNotRegistered(message, progId));
    // Its further calls come by name: the name must be ours again, also when it was just given up.
    takeName();
    try {
        const QString path = objects_.create(*served, root_, message.service());
        bHadClient_ = true;
        send(message, message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
    } catch (const std::exception& error) {
        send(message, failedCall(message, error));
    }
}

void DBusClassServer::getObject(const QDBusMessage& message)
{
    if (message.signature() != QLatin1String("s"))
        return send(message, wrongArguments(message, QStringLiteral("s")));
    const QString progId = message.arguments().at(0).toString();
    const ServedClass* served = objects_.classOf(progId.toStdString());
    if (!served)
        return send(message, classNotRegistered(message, progId));
    const auto path = objects_.attach(*served, root_, message.service());
    if (!path)
        return send(message, failedCall(message, RunTimeError(kCannotCreateObject)));
    send(message, message.createReply(QVariant::fromValue(QDBusObjectPath(*path))));
}

void DBusClassServer::releaseObject(const QDBusMessage& message)
{
    if (message.signature() != QLatin1String("o"))
        return send(message, wrongArguments(message, QStringLiteral("o")));
    const QString path = message.arguments().at(0).value<QDBusObjectPath>().path();
    const ServedObject* object = objects_.find(path);
    if (!object || object->owner != message.service())
        return send(message, unknownObject(message, path));
    objects_.release(path);
    send(message, message.createReply());
    noteIdle();
}

void DBusClassServer::handleObject(const QDBusMessage& message)
{
    const ServedObject* object = objects_.find(message.path());
    if (!object)
        return send(message, unknownObject(message, message.path()));
    if (isInterface(message, kIntrospectable) && message.member() == QLatin1String("Introspect"))
        return send(message, message.createReply(introspect(message.path())));
    if (message.interface() == kProperties)
        return handleProperties(message);
    const AutomationClass& served = object->served->automation;
    if (message.interface() == QLatin1String(kDispatchInterface) && !object->served->dispatch.empty())
        return callDispatch(message, *object);
    if (!isInterface(message, QString::fromStdString(served.sProgId)))
        return send(message, unknownInterface(message));
    const auto found = std::find_if(served.operations.begin(), served.operations.end(),
                                    [&message](const AutomationOperation& operation) {
                                        return message.member() == QString::fromStdString(operation.sName);
                                    });
    if (found == served.operations.end())
        return send(message, unknownMember(message));
    callOperation(message, *object, *found);
}

void DBusClassServer::callOperation(const QDBusMessage& message, const ServedObject& object,
                                    const AutomationOperation& operation)
{
    const QString expected = busMember(operation).inSignature();
    if (message.signature() != expected)
        return send(message, wrongArguments(message, expected));
    // Held here, so that a client that vanishes doesn't take the instance from under its running call.
    const AutomationObjectPtr instance = object.instance;
    std::vector<Value> arguments;
    try {
        arguments = argumentsOf(operation, message.arguments());
    } catch (const RunTimeError&) { // a variant with something in it that no value can be
        return send(message, wrongArguments(message, expected));
    }
    const auto call = openCalls_.insert(openCalls_.end(), {message, &operation, std::move(arguments)});
    QDBusMessage answer;
    wakeNestedLoops();
    try {
        const Value result = operation.call(*instance, call->arguments);
        answer = successReply(message, operation, result, call->arguments);
    } catch (const std::exception& error) {
        answer = failedCall(message, error);
    }
    finishCall(call, answer);
}

void DBusClassServer::callDispatch(const QDBusMessage& message, const ServedObject& object)
{
    if (message.member() != QLatin1String("Invoke"))
        return send(message, unknownMember(message));
    if (message.signature() != QLatin1String("iav"))
        return send(message, wrongArguments(message, QStringLiteral("iav")));
    const auto found = object.served->dispatch.find(message.arguments().at(0).toInt());
    if (found == object.served->dispatch.end())
        return send(message, failedCall(message, RunTimeError(kMemberNotFound)));
    static const AutomationOperation invoke{
        "Invoke", {{"result", ArgumentKind::variant, ArgumentDirection::result}}, {}};
    const AutomationObjectPtr instance = object.instance;
    const auto call = openCalls_.insert(openCalls_.end(), {message, &invoke, {}});
    QDBusMessage answer;
    wakeNestedLoops();
    try {
        for (const QVariant& argument : busVariants(message.arguments().at(1)))
            call->arguments.push_back(fromBus(argument));
        answer = message.createReply(toBusVariant(found->second(*instance, call->arguments)));
    } catch (const std::exception& error) {
        answer = failedCall(message, error);
    }
    finishCall(call, answer);
}

void DBusClassServer::finishCall(std::list<OpenCall>::iterator call, const QDBusMessage& answer)
{
    const QDBusMessage question = call->message;
    openCalls_.erase(call);
    send(question, answer);
    noteIdle();
}

void DBusClassServer::send(const QDBusMessage& question, const QDBusMessage& answer)
{
    if (question.isReplyRequired())
        bus_.send(answer);
}

void DBusClassServer::noteIdle()
{
    if (isIdle())
        Q_EMIT becameIdle();
}

void DBusClassServer::onNameOwnerChanged(const QString& name, const QString& /*oldOwner*/,
                                         const QString& newOwner)
{
    if (newOwner.isEmpty() && objects_.releaseAllOf(name))
        noteIdle();
}

void DBusClassServer::answerAll()
{
    if (!bus_.isConnected())
        return;
    releaseName();
    bEnding_ = true;
    for (const OpenCall& call : openCalls_)
        send(call.message, emptySuccess(call.message, *call.operation, call.arguments));
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    flushBus(bus_);
}

QString DBusClassServer::introspect(const QString& path) const
{
    if (path == root_)
        return introspectionXml({{QLatin1String(kServiceInterface),
                                  serviceMembers(),
                                  {{QStringLiteral("Classes"), QStringLiteral("as")}}}},
                                objects_.names());
    const ServedObject* object = objects_.find(path);
    if (!object)
        return introspectionXml({}, {});
    QList<BusInterface> interfaces;
    QList<BusMember> members;
    for (const AutomationOperation& operation : object->served->automation.operations)
        members.append(busMember(operation));
    const QString progId = QString::fromStdString(object->served->automation.sProgId);
    // A class that is known by its class id alone has no interface name.
    if (!progId.startsWith(QLatin1Char('{')))
        interfaces.append({progId, members, {}});
    if (!object->served->dispatch.empty())
        interfaces.append({QLatin1String(kDispatchInterface),
                           {{QStringLiteral("Invoke"),
                             {{QStringLiteral("dispid"), QStringLiteral("i")},
                              {QStringLiteral("arguments"), QStringLiteral("av")}},
                             {{QStringLiteral("result"), QStringLiteral("v")}}}},
                           {}});
    return introspectionXml(interfaces, {});
}

QList<BusMember> DBusClassServer::serviceMembers() const
{
    const BusArgument progId{QStringLiteral("progId"), QStringLiteral("s")};
    const BusArgument object{QStringLiteral("object"), QStringLiteral("o")};
    QList<BusMember> members{{QStringLiteral("CreateObject"), {progId}, {object}},
                             {QStringLiteral("ReleaseObject"), {object}, {}}};
    if (attaching_ == Attaching::attachable)
        members.append({QStringLiteral("GetObject"), {progId}, {object}});
    return members;
}

QStringList DBusClassServer::progIds() const
{
    QStringList ids;
    for (const ServedClass& served : objects_.classes())
        ids.append(QString::fromStdString(served.automation.sProgId));
    return ids;
}

} // namespace zorvo
