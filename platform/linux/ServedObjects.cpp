#include "platform/linux/ServedObjects.h"

#include "base/text.h"

#include <algorithm>

namespace zorvo {

ServedObjects::ServedObjects(std::vector<ServedClass> classes)
    : classes_(std::move(classes))
{
}

const ServedClass* ServedObjects::classOf(const std::string& progId) const
{
    const auto found = std::find_if(classes_.begin(), classes_.end(), [&progId](const ServedClass& each) {
        return equalNoCase(each.automation.sProgId, progId);
    });
    return found == classes_.end() ? nullptr : &*found;
}

QString ServedObjects::create(const ServedClass& served, const QString& root, const QString& owner)
{
    if (served.instancing == Instancing::separate)
        return add(served, served.automation.create(), root, owner);
    AutomationObjectPtr instance = shared_[&served].lock();
    if (!instance) {
        instance = served.automation.create();
        shared_[&served] = instance;
    }
    return add(served, std::move(instance), root, owner);
}

std::optional<QString> ServedObjects::attach(const ServedClass& served, const QString& root,
                                             const QString& owner)
{
    const auto found = shared_.find(&served);
    if (found == shared_.end())
        return {};
    AutomationObjectPtr instance = found->second.lock();
    if (!instance)
        return {};
    return add(served, std::move(instance), root, owner);
}

QString ServedObjects::add(const ServedClass& served, AutomationObjectPtr instance, const QString& root,
                           const QString& owner)
{
    QString path = QStringLiteral("%1/%2").arg(root).arg(++nMade_);
    objects_[path] = {&served, std::move(instance), owner};
    return path;
}

const ServedObject* ServedObjects::find(const QString& path) const
{
    const auto found = objects_.find(path);
    return found == objects_.end() ? nullptr : &found->second;
}

bool ServedObjects::release(const QString& path)
{
    // The instance may do anything in its destructor: it goes when the table is in order again.
    return !objects_.extract(path).empty();
}

bool ServedObjects::releaseAllOf(const QString& owner)
{
    std::vector<AutomationObjectPtr> leaving;
    for (auto each = objects_.begin(); each != objects_.end();) {
        if (each->second.owner == owner) {
            leaving.push_back(std::move(each->second.instance));
            each = objects_.erase(each);
        } else {
            ++each;
        }
    }
    return !leaving.empty();
}

QStringList ServedObjects::names() const
{
    QStringList names;
    for (const auto& [path, object] : objects_)
        names.append(path.section(QLatin1Char('/'), -1));
    return names;
}

} // namespace zorvo
