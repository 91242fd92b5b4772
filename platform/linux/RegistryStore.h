#pragma once

#include "platform/Registry.h"
#include "platform/linux/RegistryChange.h"
#include "platform/linux/RegistryDatabase.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace zorvo {

/// The registry in two files: the machine's (HKEY_LOCAL_MACHINE, HKEY_CLASSES_ROOT, HKEY_CURRENT_CONFIG) and
/// the user's (HKEY_CURRENT_USER, HKEY_USERS). A file is made when something is written to it; until then its
/// hives are empty. Safe for several processes at once, not for several threads.
///
/// The port answers with status codes. The operations of the registry tool, below it, throw RunTimeError with
/// a description for people: 5 for a hive or path that is none, 70 without permission or when another process
/// keeps the file, 75 for a damaged file, 61 for a full disk.
class RegistryStore : public Registry {
public:
    /// At the places that the environment names.
    explicit RegistryStore(RegistryDatabase::Use use = RegistryDatabase::Use::readAndWrite);
    RegistryStore(const std::string& sUserFile, const std::string& sMachineFile,
                  std::chrono::milliseconds patience = std::chrono::seconds(10),
                  RegistryDatabase::Use use = RegistryDatabase::Use::readAndWrite);

    std::int32_t openKey(Hive hive, const std::string& path, std::uint32_t access,
                         std::unique_ptr<RegistryKey>& key) override;
    std::int32_t createKey(Hive hive, const std::string& path, std::unique_ptr<RegistryKey>& key) override;

    bool hasKey(Hive hive, const std::string& path);
    /// Ascending by upper-cased name; empty when the key isn't there.
    std::vector<std::string> subKeys(Hive hive, const std::string& path);
    /// The same for values; the default value, if there is one, comes first under the empty name.
    std::vector<RegistryValue> values(Hive hive, const std::string& path);

    /// Makes all the changes or, on any failure, none. A value brings its key with it; deleting what isn't
    /// there is no failure. A hive itself can't be deleted (5).
    void apply(const std::vector<RegistryChange>& changes);

    /// A consistent view for the calls that follow, as long as it lives.
    class Snapshot {
    public:
        explicit Snapshot(RegistryStore& store);

    private:
        std::unique_ptr<SqliteTransaction> user_;
        std::unique_ptr<SqliteTransaction> machine_;
    };

private:
    /// Null for no hive.
    std::shared_ptr<RegistryDatabase> databaseOf(Hive hive) const;
    RegistryDatabase& requiredDatabaseOf(Hive hive) const;
    void applyOne(const RegistryChange& change);

    std::shared_ptr<RegistryDatabase> user_;
    std::shared_ptr<RegistryDatabase> machine_;
};

} // namespace zorvo
