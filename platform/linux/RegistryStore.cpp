#include "platform/linux/RegistryStore.h"

#include "platform/linux/RegistryFailure.h"
#include "platform/linux/environmentFolders.h"
#include "platform/registryNames.h"

#include <algorithm>

namespace zorvo {

namespace {

constexpr std::uint32_t kAllAccess = kKeyReadAccess | kKeySetValue;

/// The status of a call: that of the failure it threw, or its own.
template <typename Call>
std::int32_t statusOf(Call call)
{
    try {
        return call();
    } catch (const RegistryFailure& failure) {
        return failure.status();
    }
}

class StoredKey : public RegistryKey {
public:
    StoredKey(std::shared_ptr<RegistryDatabase> database, RegistryDatabase::KeyId id, std::uint32_t access)
        : database_(std::move(database))
        , id_(id)
        , access_(access)
    {
    }

    std::int32_t enumKey(std::size_t index, std::size_t capacity, std::string& name) override
    {
        name.clear();
        if ((access_ & kKeyEnumerate) == 0)
            return kRegistryAccessDenied;
        return statusOf([&]() -> std::int32_t {
            if (!listing_) {
                // A listing that fails is told once and then empty, so that a walk that ends at the last item
                // alone has an end.
                listing_.emplace();
                *listing_ = database_->subKeys(id_);
            }
            if (index >= listing_->size())
                return kRegistryNoMoreItems;
            if ((*listing_)[index].size() >= capacity)
                return kRegistryMoreData;
            name = (*listing_)[index];
            return kRegistrySuccess;
        });
    }

    std::int32_t queryValue(const std::string& name, std::size_t capacity, std::string& data,
                            RegistryType& type) override
    {
        data.clear();
        type = RegistryType::none;
        if ((access_ & kKeyQueryValue) == 0)
            return kRegistryAccessDenied;
        return statusOf([&]() -> std::int32_t {
            auto found = database_->value(id_, name, capacity);
            if (!found)
                return kRegistryFileNotFound;
            if (found->bTooBig)
                return kRegistryMoreData;
            data = std::move(found->value.sData);
            type = found->value.type;
            return kRegistrySuccess;
        });
    }

    std::int32_t setValue(const std::string& name, RegistryType type, const std::string& data) override
    {
        if ((access_ & kKeySetValue) == 0)
            return kRegistryAccessDenied;
        if (!isRegistryName(name) || data.size() > kLargestRegistryValue)
            return kRegistryInvalidParameter;
        return statusOf([&]() -> std::int32_t {
            database_->setValue(id_, {name, type, data});
            return kRegistrySuccess;
        });
    }

private:
    std::shared_ptr<RegistryDatabase> database_;
    RegistryDatabase::KeyId id_;
    std::uint32_t access_;
    std::optional<std::vector<std::string>> listing_;
};

[[noreturn]] void throwNoKey()
{
    throw RegistryFailure(kInvalidCall, kRegistryInvalidParameter,
                          "That is no registry key or no value of one.");
}

} // namespace

RegistryStore::RegistryStore(RegistryDatabase::Use use)
    : RegistryStore(userDataFolder() + "/registry.db", machineDataFolder() + "/registry.db",
                    std::chrono::seconds(10), use)
{
}

RegistryStore::RegistryStore(const std::string& sUserFile, const std::string& sMachineFile,
                             std::chrono::milliseconds patience, RegistryDatabase::Use use)
    : user_(std::make_shared<RegistryDatabase>(sUserFile, RegistryDatabase::Readers::owner, patience, use))
    , machine_(std::make_shared<RegistryDatabase>(sMachineFile, RegistryDatabase::Readers::everybody,
                                                  patience, use))
{
}

std::int32_t RegistryStore::openKey(Hive hive, const std::string& path, std::uint32_t access,
                                    std::unique_ptr<RegistryKey>& key)
{
    key.reset();
    const std::shared_ptr<RegistryDatabase> database = databaseOf(hive);
    if (!database)
        return kRegistryFileNotFound;
    return statusOf([&]() -> std::int32_t {
        const bool bWrites = (access & kKeySetValue) != 0;
        auto found = database->find(registryHiveName(hive), path);
        if (!found && path.empty()) // a hive is always there, stored or not
            found = bWrites ? database->make(registryHiveName(hive), path) : RegistryDatabase::KeyId{};
        if (!found)
            return kRegistryFileNotFound;
        if (bWrites && !database->isWritable())
            return kRegistryAccessDenied;
        key = std::make_unique<StoredKey>(database, *found, access);
        return kRegistrySuccess;
    });
}

std::int32_t RegistryStore::createKey(Hive hive, const std::string& path, std::unique_ptr<RegistryKey>& key)
{
    key.reset();
    const std::shared_ptr<RegistryDatabase> database = databaseOf(hive);
    if (!database || !registryLevels(path))
        return kRegistryInvalidParameter;
    return statusOf([&]() -> std::int32_t {
        const RegistryDatabase::KeyId made = database->make(registryHiveName(hive), path);
        if (!database->isWritable())
            return kRegistryAccessDenied;
        key = std::make_unique<StoredKey>(database, made, kAllAccess);
        return kRegistrySuccess;
    });
}

bool RegistryStore::hasKey(Hive hive, const std::string& path)
{
    return path.empty() || requiredDatabaseOf(hive).find(registryHiveName(hive), path).has_value();
}

std::vector<std::string> RegistryStore::subKeys(Hive hive, const std::string& path)
{
    RegistryDatabase& database = requiredDatabaseOf(hive);
    const auto key = database.find(registryHiveName(hive), path);
    return key ? database.subKeys(*key) : std::vector<std::string>();
}

std::vector<RegistryValue> RegistryStore::values(Hive hive, const std::string& path)
{
    RegistryDatabase& database = requiredDatabaseOf(hive);
    const auto key = database.find(registryHiveName(hive), path);
    return key ? database.values(*key) : std::vector<RegistryValue>();
}

void RegistryStore::apply(const std::vector<RegistryChange>& changes)
{
    const auto touches = [&](const std::shared_ptr<RegistryDatabase>& database) {
        return std::any_of(changes.begin(), changes.end(),
                           [&](const RegistryChange& change) { return databaseOf(change.hive) == database; });
    };
    std::vector<RegistryDatabase*> touched;
    for (const auto& database : {machine_, user_})
        if (touches(database))
            touched.push_back(database.get());

    std::vector<std::unique_ptr<SqliteTransaction>> transactions;
    transactions.reserve(touched.size());
    for (RegistryDatabase* database : touched)
        transactions.push_back(database->beginWriting());
    for (const RegistryChange& change : changes)
        applyOne(change);
    // With two files, all that may still fail is brought about before the first of them is committed.
    for (RegistryDatabase* database : touched)
        database->flush();
    for (const auto& transaction : transactions)
        transaction->commit();
}

void RegistryStore::applyOne(const RegistryChange& change)
{
    RegistryDatabase& database = requiredDatabaseOf(change.hive);
    const std::string sHive = registryHiveName(change.hive);
    const bool bDeletesHive = change.kind == RegistryChange::Kind::deleteKey && change.sPath.empty();
    const bool bNamed =
        isRegistryName(change.value.sName) && change.value.sData.size() <= kLargestRegistryValue;
    if (!registryLevels(change.sPath) || bDeletesHive || !bNamed)
        throwNoKey();
    switch (change.kind) {
    case RegistryChange::Kind::makeKey:
        database.make(sHive, change.sPath);
        break;
    case RegistryChange::Kind::deleteKey:
        database.erase(sHive, change.sPath);
        break;
    case RegistryChange::Kind::setValue:
        database.setValue(database.make(sHive, change.sPath), change.value);
        break;
    case RegistryChange::Kind::deleteValue:
        if (const auto key = database.find(sHive, change.sPath))
            database.eraseValue(*key, change.value.sName);
        break;
    }
}

RegistryStore::Snapshot::Snapshot(RegistryStore& store)
    : user_(store.user_->beginReading())
    , machine_(store.machine_->beginReading())
{
}

std::shared_ptr<RegistryDatabase> RegistryStore::databaseOf(Hive hive) const
{
    switch (hive) {
    case HKEY_CURRENT_USER:
    case HKEY_USERS:
        return user_;
    case HKEY_LOCAL_MACHINE:
    case HKEY_CLASSES_ROOT:
    case HKEY_CURRENT_CONFIG:
        return machine_;
    default:
        return nullptr;
    }
}

RegistryDatabase& RegistryStore::requiredDatabaseOf(Hive hive) const
{
    const std::shared_ptr<RegistryDatabase> database = databaseOf(hive);
    if (!database)
        throwNoKey();
    return *database;
}

} // namespace zorvo
