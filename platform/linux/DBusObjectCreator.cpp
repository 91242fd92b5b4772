#include "platform/linux/DBusObjectCreator.h"

#include "base/RunTimeError.h"
#include "base/text.h"
#include "platform/linux/DBusRemoteObject.h"
#include "platform/linux/busCall.h"

namespace zorvo {

namespace {
constexpr std::size_t kValueCapacity = 4096;
}

DBusObjectCreator::DBusObjectCreator(std::shared_ptr<Registry> registry)
    : registry_(std::move(registry))
{
}

LateBoundPtr DBusObjectCreator::createByProgId(const std::string& progId)
{
    return create(serverOf(classIdOf(progId)), progId);
}

LateBoundPtr DBusObjectCreator::createByClassId(const std::string& classId)
{
    return create(serverOf(classId), classId);
}

LateBoundPtr DBusObjectCreator::attach(const std::string& progId)
{
    const Server server = serverOf(classIdOf(progId));
    return DBusRemoteObject::attach(QDBusConnection::sessionBus(), QString::fromStdString(server.sBusName),
                                    QString::fromStdString(progId));
}

LateBoundPtr DBusObjectCreator::create(const Server& server, const std::string& id)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    const QString busName = QString::fromStdString(server.sBusName);
    ensureServer(bus, busName, QString::fromStdString(server.sExecutable));
    return DBusRemoteObject::create(bus, busName, QString::fromStdString(id));
}

std::string DBusObjectCreator::classIdOf(const std::string& progId) const
{
    return progId.empty() ? std::string() : value(progId + "\\CLSID", {});
}

DBusObjectCreator::Server DBusObjectCreator::serverOf(const std::string& classId) const
{
    if (classId.empty())
        throw RunTimeError(kCannotCreateObject);
    const std::string sKey = "CLSID\\" + classId + "\\LocalServer32";
    Server server{value(sKey, {}), value(sKey, "ServerExecutable")};
    if (server.sBusName.empty())
        throw RunTimeError(kCannotCreateObject);
    return server;
}

std::string DBusObjectCreator::value(const std::string& key, const std::string& name) const
{
    std::unique_ptr<RegistryKey> opened;
    if (registry_->openKey(HKEY_CLASSES_ROOT, key, kKeyQueryValue, opened) != kRegistrySuccess)
        return {};
    std::string sData;
    RegistryType type{};
    if (opened->queryValue(name, kValueCapacity, sData, type) != kRegistrySuccess)
        return {};
    return cutAtNull(sData);
}

} // namespace zorvo
