#include "tests/fakes/OddRegistry.h"

#include <utility>

namespace zorvo {

namespace {

class OddKey : public RegistryKey {
public:
    OddKey(std::unique_ptr<RegistryKey> behind, std::vector<OddRegistry::Entry> entries,
           std::size_t& nEnumerations)
        : behind_(std::move(behind))
        , entries_(std::move(entries))
        , nEnumerations_(nEnumerations)
    {
    }

    std::int32_t enumKey(std::size_t index, std::size_t /*capacity*/, std::string& name) override
    {
        ++nEnumerations_;
        if (index >= entries_.size()) {
            name = "left over";
            return kRegistryNoMoreItems;
        }
        name = entries_[index].sName;
        return entries_[index].nStatus;
    }

    std::int32_t queryValue(const std::string& name, std::size_t capacity, std::string& data,
                            RegistryType& type) override
    {
        return behind_->queryValue(name, capacity, data, type);
    }

    std::int32_t setValue(const std::string& name, RegistryType type, const std::string& data) override
    {
        return behind_->setValue(name, type, data);
    }

private:
    std::unique_ptr<RegistryKey> behind_;
    std::vector<OddRegistry::Entry> entries_;
    std::size_t& nEnumerations_;
};

} // namespace

OddRegistry::OddRegistry(std::shared_ptr<Registry> behind)
    : behind_(std::move(behind))
{
}

void OddRegistry::enumerate(Hive hive, const std::string& path, std::vector<Entry> entries)
{
    entries_[{hive, path}] = std::move(entries);
}

std::int32_t OddRegistry::openKey(Hive hive, const std::string& path, std::uint32_t access,
                                  std::unique_ptr<RegistryKey>& key)
{
    accesses.push_back(access);
    const std::int32_t nStatus = behind_->openKey(hive, path, access, key);
    const auto odd = entries_.find({hive, path});
    if (nStatus == kRegistrySuccess && odd != entries_.end())
        key = std::make_unique<OddKey>(std::move(key), odd->second, nEnumerations);
    return nStatus;
}

std::int32_t OddRegistry::createKey(Hive hive, const std::string& path, std::unique_ptr<RegistryKey>& key)
{
    return behind_->createKey(hive, path, key);
}

} // namespace zorvo
