#pragma once

#include "platform/ObjectService.h"

#include <QString>
#include <QStringList>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace zorvo {

/// Who shares an instance of a class: nobody, or all clients while one of them holds it.
enum class Instancing { separate, shared };

struct ServedClass {
    AutomationClass automation;
    Instancing instancing = Instancing::separate;
    /// Operations by dispatch id; all that have one take any number of arguments.
    std::map<int, std::function<Value(AutomationObject& instance, std::vector<Value>& arguments)>> dispatch =
        {};
};

/// An object as one client holds it. Whoever runs a call keeps `instance`: so it lives until its last call
/// has returned, though its path is gone.
struct ServedObject {
    const ServedClass* served = nullptr;
    AutomationObjectPtr instance;
    /// Unique name of the connection that made it.
    QString owner;
};

/// The objects that clients hold, by path.
class ServedObjects {
public:
    explicit ServedObjects(std::vector<ServedClass> classes);

    const std::vector<ServedClass>& classes() const { return classes_; }
    /// Null for an unknown class. Names match without regard to case.
    const ServedClass* classOf(const std::string& progId) const;

    /// Makes an object, or a further hold on the shared one. The path is `root`, a slash and a number that is
    /// never used again. Throws what the class's maker throws.
    QString create(const ServedClass& served, const QString& root, const QString& owner);
    /// A hold on the shared object that lives; nothing when none does.
    std::optional<QString> attach(const ServedClass& served, const QString& root, const QString& owner);

    const ServedObject* find(const QString& path) const;
    /// False when there is none.
    bool release(const QString& path);
    /// False when that connection held nothing.
    bool releaseAllOf(const QString& owner);

    std::size_t count() const { return objects_.size(); }
    /// Last parts of the paths.
    QStringList names() const;

private:
    QString add(const ServedClass& served, AutomationObjectPtr instance, const QString& root,
                const QString& owner);

    std::vector<ServedClass> classes_;
    std::map<QString, ServedObject> objects_;
    std::map<const ServedClass*, std::weak_ptr<AutomationObject>> shared_;
    quint64 nMade_ = 0;
};

} // namespace zorvo
