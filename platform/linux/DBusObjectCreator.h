#pragma once

#include "platform/ObjectCreator.h"
#include "platform/Registry.h"

#include <memory>
#include <string>

namespace zorvo {

/// Objects of registered classes, served by other processes on the session bus. A class is registered as
/// `HKEY_CLASSES_ROOT\<ProgID>\CLSID` and `HKEY_CLASSES_ROOT\CLSID\{...}\LocalServer32`, whose default value
/// is the bus name of its server. Where the bus can't start that server by itself, the value
/// `ServerExecutable` of the latter key, a native path, names the program to start.
///
/// Calls take as long as they take, and the thread serves its own calls and timers meanwhile.
class DBusObjectCreator : public ObjectCreator {
public:
    explicit DBusObjectCreator(std::shared_ptr<Registry> registry);

    LateBoundPtr createByProgId(const std::string& progId) override;
    LateBoundPtr createByClassId(const std::string& classId) override;
    LateBoundPtr attach(const std::string& progId) override;

private:
    struct Server {
        std::string sBusName;
        std::string sExecutable;
    };

    std::string classIdOf(const std::string& progId) const;
    Server serverOf(const std::string& classId) const;
    std::string value(const std::string& key, const std::string& name) const;
    static LateBoundPtr create(const Server& server, const std::string& id);

    std::shared_ptr<Registry> registry_;
};

} // namespace zorvo
