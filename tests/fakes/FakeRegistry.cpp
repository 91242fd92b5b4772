#include "tests/fakes/FakeRegistry.h"

#include "base/text.h"
#include "platform/registryNames.h"

namespace zorvo {

namespace {

class FakeKey : public RegistryKey {
public:
    FakeKey(FakeRegistry& registry, std::shared_ptr<FakeRegistry::Node> node, std::uint32_t access)
        : registry_(registry)
        , node_(std::move(node))
        , access_(access)
    {
    }

    std::int32_t enumKey(std::size_t index, std::size_t capacity, std::string& name) override
    {
        name.clear();
        if ((access_ & kKeyEnumerate) == 0)
            return kRegistryAccessDenied;
        if (const std::int32_t status = takeListing(); status != kRegistrySuccess)
            return status;
        if (index >= listing_.size())
            return kRegistryNoMoreItems;
        if (listing_[index].size() >= capacity)
            return kRegistryMoreData;
        name = listing_[index];
        return kRegistrySuccess;
    }

    std::int32_t queryValue(const std::string& name, std::size_t capacity, std::string& data,
                            RegistryType& type) override
    {
        data.clear();
        type = RegistryType::none;
        if ((access_ & kKeyQueryValue) == 0)
            return kRegistryAccessDenied;
        if (node_->bDeleted)
            return kRegistryKeyDeleted;
        const auto found = node_->values.find(upperCase(name));
        if (found == node_->values.end())
            return kRegistryFileNotFound;
        if (found->second.sData.size() > capacity)
            return kRegistryMoreData;
        data = found->second.sData;
        type = found->second.type;
        return kRegistrySuccess;
    }

    std::int32_t setValue(const std::string& name, RegistryType type, const std::string& data) override
    {
        if ((access_ & kKeySetValue) == 0)
            return kRegistryAccessDenied;
        if (!isRegistryName(name) || data.size() > kLargestRegistryValue)
            return kRegistryInvalidParameter;
        if (node_->bDeleted)
            return kRegistryKeyDeleted;
        if (registry_.writeStatus() != kRegistrySuccess)
            return registry_.writeStatus();
        FakeRegistry::Node::Value& value = node_->values[upperCase(name)];
        if (value.sName.empty())
            value.sName = name;
        value.type = type;
        value.sData = data;
        return kRegistrySuccess;
    }

private:
    std::int32_t takeListing()
    {
        if (bListed_)
            return kRegistrySuccess;
        bListed_ = true;
        ++registry_.listingsTaken;
        if (const std::int32_t status = registry_.listingStatus(*node_); status != kRegistrySuccess)
            return status;
        for (const auto& [folded, child] : node_->children)
            listing_.push_back(child->sName);
        return kRegistrySuccess;
    }

    FakeRegistry& registry_;
    std::shared_ptr<FakeRegistry::Node> node_;
    std::uint32_t access_;
    bool bListed_ = false;
    std::vector<std::string> listing_;
};

std::string fullName(Hive hive, const std::string& path)
{
    const std::string sHive = registryHiveName(hive);
    return path.empty() ? sHive : sHive + "\\" + path;
}

void markDeleted(FakeRegistry::Node& node)
{
    node.bDeleted = true;
    for (const auto& [folded, child] : node.children)
        markDeleted(*child);
    node.children.clear();
}

} // namespace

FakeRegistry::FakeRegistry()
{
    for (const Hive hive :
         {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS, HKEY_CURRENT_CONFIG}) {
        hives_[hive] = std::make_shared<Node>();
        hives_[hive]->sFullName = registryHiveName(hive);
    }
}

std::int32_t FakeRegistry::openKey(Hive hive, const std::string& path, std::uint32_t access,
                                   std::unique_ptr<RegistryKey>& key)
{
    key.reset();
    opened.push_back(fullName(hive, path));
    if (const std::int32_t status = injected(hive, path); status != kRegistrySuccess)
        return status;
    const std::shared_ptr<Node> node = find(hive, path);
    if (!node)
        return kRegistryFileNotFound;
    if ((access & kKeySetValue) != 0 && writeStatus_ != kRegistrySuccess)
        return writeStatus_;
    key = std::make_unique<FakeKey>(*this, node, access);
    return kRegistrySuccess;
}

std::int32_t FakeRegistry::createKey(Hive hive, const std::string& path, std::unique_ptr<RegistryKey>& key)
{
    key.reset();
    if (const std::int32_t status = injected(hive, path); status != kRegistrySuccess)
        return status;
    if (!registryLevels(path) || registryHiveName(hive).empty())
        return kRegistryInvalidParameter;
    if (writeStatus_ != kRegistrySuccess)
        return writeStatus_;
    key = std::make_unique<FakeKey>(*this, make(hive, path), kKeyReadAccess | kKeySetValue);
    return kRegistrySuccess;
}

void FakeRegistry::addKey(Hive hive, const std::string& path)
{
    make(hive, path);
}

void FakeRegistry::setText(Hive hive, const std::string& path, const std::string& name,
                           const std::string& text)
{
    setBytes(hive, path, name, RegistryType::string, text + '\0');
}

void FakeRegistry::setBytes(Hive hive, const std::string& path, const std::string& name, RegistryType type,
                            const std::string& data)
{
    make(hive, path)->values[upperCase(name)] = {name, type, data};
}

void FakeRegistry::removeKey(Hive hive, const std::string& path)
{
    const auto levels = registryLevels(path);
    if (!levels || levels->empty())
        return;
    const std::size_t cut = path.rfind('\\');
    const std::shared_ptr<Node> parent = find(hive, cut == std::string::npos ? "" : path.substr(0, cut));
    if (!parent)
        return;
    const auto child = parent->children.find(upperCase(levels->back()));
    if (child == parent->children.end())
        return;
    markDeleted(*child->second);
    parent->children.erase(child);
}

bool FakeRegistry::hasKey(Hive hive, const std::string& path) const
{
    return find(hive, path) != nullptr;
}

std::optional<std::string> FakeRegistry::text(Hive hive, const std::string& path,
                                              const std::string& name) const
{
    const std::shared_ptr<Node> node = find(hive, path);
    if (!node)
        return std::nullopt;
    const auto value = node->values.find(upperCase(name));
    if (value == node->values.end())
        return std::nullopt;
    return cutAtNull(value->second.sData);
}

std::optional<RegistryType> FakeRegistry::type(Hive hive, const std::string& path,
                                               const std::string& name) const
{
    const std::shared_ptr<Node> node = find(hive, path);
    if (!node)
        return std::nullopt;
    const auto value = node->values.find(upperCase(name));
    if (value == node->values.end())
        return std::nullopt;
    return value->second.type;
}

void FakeRegistry::failOn(Hive hive, const std::string& path, std::int32_t status)
{
    failures_[upperCase(fullName(hive, path))] = status;
}

void FakeRegistry::failListing(Hive hive, const std::string& path, std::int32_t status)
{
    listingFailures_[upperCase(fullName(hive, path))] = status;
}

std::int32_t FakeRegistry::listingStatus(const Node& node) const
{
    const auto found = listingFailures_.find(upperCase(node.sFullName));
    return found == listingFailures_.end() ? kRegistrySuccess : found->second;
}

std::shared_ptr<FakeRegistry::Node> FakeRegistry::find(Hive hive, const std::string& path) const
{
    const auto root = hives_.find(hive);
    const auto levels = registryLevels(path);
    if (root == hives_.end() || !levels)
        return nullptr;
    std::shared_ptr<Node> node = root->second;
    for (const std::string& sLevel : *levels) {
        const auto child = node->children.find(upperCase(sLevel));
        if (child == node->children.end())
            return nullptr;
        node = child->second;
    }
    return node;
}

std::shared_ptr<FakeRegistry::Node> FakeRegistry::make(Hive hive, const std::string& path)
{
    std::shared_ptr<Node> node = hives_.at(hive);
    const auto levels = registryLevels(path);
    for (const std::string& sLevel : levels.value()) {
        std::shared_ptr<Node>& child = node->children[upperCase(sLevel)];
        if (!child) {
            child = std::make_shared<Node>();
            child->sName = sLevel;
            child->sFullName = node->sFullName + "\\" + sLevel;
        }
        node = child;
    }
    return node;
}

std::int32_t FakeRegistry::injected(Hive hive, const std::string& path) const
{
    const auto found = failures_.find(upperCase(fullName(hive, path)));
    return found == failures_.end() ? kRegistrySuccess : found->second;
}

} // namespace zorvo
