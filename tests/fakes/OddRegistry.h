#pragma once

#include "platform/Registry.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// A registry that enumerates what it is told to below some keys, for the answers that an orderly store never
/// gives: a failing status in the middle, a name twice. All else goes through to the registry behind it.
class OddRegistry : public Registry {
public:
    struct Entry {
        std::int32_t nStatus = kRegistrySuccess;
        std::string sName;
    };

    explicit OddRegistry(std::shared_ptr<Registry> behind);

    /// What the key at exactly this path enumerates, ahead of the end of the entries.
    void enumerate(Hive hive, const std::string& path, std::vector<Entry> entries);

    std::int32_t openKey(Hive hive, const std::string& path, std::uint32_t access,
                         std::unique_ptr<RegistryKey>& key) override;
    std::int32_t createKey(Hive hive, const std::string& path, std::unique_ptr<RegistryKey>& key) override;

    /// The access mask of every key that was opened.
    std::vector<std::uint32_t> accesses;
    /// How many entries of those keys were asked for.
    std::size_t nEnumerations = 0;

private:
    std::shared_ptr<Registry> behind_;
    std::map<std::pair<Hive, std::string>, std::vector<Entry>> entries_;
};

} // namespace zorvo
