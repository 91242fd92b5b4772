#include "platform/linux/RegistryDatabase.h"

#include "base/text.h"
#include "platform/linux/RegistryFailure.h"
#include "platform/linux/nativeFiles.h"
#include "platform/registryNames.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zorvo {

namespace {

// Never reused ids: an open key whose row has gone must not come to stand for another one.
constexpr const char* kSchema = R"(
CREATE TABLE registry_key(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER,
    name BLOB NOT NULL,
    folded_name BLOB NOT NULL,
    folded_path BLOB NOT NULL UNIQUE);
CREATE INDEX registry_key_order ON registry_key(parent, folded_name, name);
CREATE TABLE registry_value(
    key INTEGER NOT NULL REFERENCES registry_key(id) ON DELETE CASCADE,
    folded_name BLOB NOT NULL,
    name BLOB NOT NULL,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    PRIMARY KEY(key, folded_name)) WITHOUT ROWID;
PRAGMA user_version = 1;
)";
constexpr std::int64_t kSchemaVersion = 1;

struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;
    bool bThere = false;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

FileIdentity identityOf(const std::string& file)
{
    struct stat status {};
    if (stat(file.c_str(), &status) != 0)
        return {};
    return {status.st_dev, status.st_ino, true};
}

std::string foldedPath(const std::string& hive, const std::string& path)
{
    return path.empty() ? hive : hive + '\\' + upperCase(path);
}

std::int64_t schemaVersion(const SqliteConnection& connection)
{
    const SqliteStatement statement = connection.prepare("PRAGMA user_version");
    StatementRun run(statement);
    return run.step() ? run.numberAt(0) : 0;
}

} // namespace

struct RegistryDatabase::Open {
    Open(const std::string& file, SqliteConnection::Mode mode, std::chrono::milliseconds patience)
        : connection(file, mode, patience)
        , identity(identityOf(file))
    {
        connection.execute("PRAGMA foreign_keys = ON; PRAGMA cache_spill = OFF;");
    }

    /// False while nobody has written a schema yet.
    bool prepareStatements()
    {
        const std::int64_t version = schemaVersion(connection);
        if (version != kSchemaVersion && version != 0)
            throw RegistryFailure(kPathOrFileAccess, kRegistryCorrupt,
                                  "The registry file was made by a later version of this program.");
        if (version == 0)
            return false;
        find = connection.prepare("SELECT id FROM registry_key WHERE folded_path = ?");
        subKeys = connection.prepare("SELECT name FROM registry_key WHERE parent = ? ORDER BY folded_name");
        value = connection.prepare(
            "SELECT name, type, data FROM registry_value WHERE key = ? AND folded_name = ?");
        values = connection.prepare(
            "SELECT name, type, data FROM registry_value WHERE key = ? ORDER BY folded_name");
        make = connection.prepare("INSERT INTO registry_key(parent, name, folded_name, folded_path) "
                                  "VALUES(?, ?, ?, ?) RETURNING id");
        set = connection.prepare(
            "INSERT INTO registry_value(key, folded_name, name, type, data) VALUES(?, ?, ?, ?, ?) "
            "ON CONFLICT(key, folded_name) DO UPDATE SET type = excluded.type, data = excluded.data");
        // All paths below a key lie between "path\" and "path]", the character behind the backslash.
        erase = connection.prepare(
            "DELETE FROM registry_key WHERE folded_path = ?1 OR (folded_path > ?2 AND folded_path < ?3)");
        eraseValue = connection.prepare("DELETE FROM registry_value WHERE key = ? AND folded_name = ?");
        bReady = true;
        return true;
    }

    std::optional<std::int64_t> idOf(const std::string& path) const
    {
        StatementRun run(find);
        run.bytes(0, path);
        return run.step() ? std::optional(run.numberAt(0)) : std::nullopt;
    }

    SqliteConnection connection;
    FileIdentity identity;
    bool bReady = false;
    SqliteStatement find, subKeys, value, values, make, set, erase, eraseValue;
};

RegistryDatabase::RegistryDatabase(std::string file, Readers readers, std::chrono::milliseconds patience,
                                   Use use)
    : file_(std::move(file))
    , readers_(readers)
    , patience_(patience)
    , use_(use)
{
}

RegistryDatabase::~RegistryDatabase() = default;

std::optional<RegistryDatabase::KeyId> RegistryDatabase::find(const std::string& hive,
                                                              const std::string& path)
{
    const Open* open = openForReading();
    if (open == nullptr)
        return std::nullopt;
    const auto id = open->idOf(foldedPath(hive, path));
    return id ? std::optional(KeyId{*id, generation_}) : std::nullopt;
}

RegistryDatabase::KeyId RegistryDatabase::make(const std::string& hive, const std::string& path)
{
    if (const auto there = find(hive, path))
        return *there;
    Open& open = openForWriting();
    if (open.connection.isInTransaction())
        return madeKey(open, hive, path);
    SqliteTransaction transaction(open.connection, SqliteTransaction::Kind::write);
    const KeyId key = madeKey(open, hive, path);
    transaction.commit();
    return key;
}

std::vector<std::string> RegistryDatabase::subKeys(KeyId key)
{
    std::vector<std::string> names;
    const Open* open = openForReading();
    if (open == nullptr || key.generation != generation_)
        return names;
    StatementRun run(open->subKeys);
    run.number(0, key.id);
    while (run.step())
        names.push_back(run.bytesAt(0));
    return names;
}

std::optional<RegistryDatabase::Found> RegistryDatabase::value(KeyId key, const std::string& name,
                                                               std::size_t capacity)
{
    const Open* open = openForReading();
    if (open == nullptr || key.generation != generation_)
        return std::nullopt;
    const std::string folded = upperCase(name);
    StatementRun run(open->value);
    run.number(0, key.id).bytes(1, folded);
    if (!run.step())
        return std::nullopt;
    Found found;
    found.bTooBig = run.sizeAt(2) > capacity;
    found.value = {run.bytesAt(0), static_cast<RegistryType>(run.numberAt(1)),
                   found.bTooBig ? std::string() : run.bytesAt(2)};
    return found;
}

std::vector<RegistryValue> RegistryDatabase::values(KeyId key)
{
    std::vector<RegistryValue> rows;
    const Open* open = openForReading();
    if (open == nullptr || key.generation != generation_)
        return rows;
    StatementRun run(open->values);
    run.number(0, key.id);
    while (run.step())
        rows.push_back({run.bytesAt(0), static_cast<RegistryType>(run.numberAt(1)), run.bytesAt(2)});
    return rows;
}

void RegistryDatabase::setValue(KeyId key, const RegistryValue& value)
{
    const Open& open = openForWriting();
    if (key.generation != generation_)
        throw RegistryFailure(kPathOrFileAccess, kRegistryKeyDeleted, "The registry key has been deleted.");
    const std::string folded = upperCase(value.sName);
    StatementRun run(open.set);
    run.number(0, key.id).bytes(1, folded).bytes(2, value.sName);
    run.number(3, static_cast<std::int64_t>(value.type)).bytes(4, value.sData).finish();
}

bool RegistryDatabase::erase(const std::string& hive, const std::string& path)
{
    if (!find(hive, path))
        return false;
    const Open& open = openForWriting();
    const std::string folded = foldedPath(hive, path);
    const std::string first = folded + '\\';
    const std::string behind = folded + static_cast<char>('\\' + 1);
    StatementRun(open.erase).bytes(0, folded).bytes(1, first).bytes(2, behind).finish();
    return open.connection.changes() > 0;
}

bool RegistryDatabase::eraseValue(KeyId key, const std::string& name)
{
    if (!value(key, name, 0))
        return false;
    const Open& open = openForWriting();
    const std::string folded = upperCase(name);
    StatementRun(open.eraseValue).number(0, key.id).bytes(1, folded).finish();
    return open.connection.changes() > 0;
}

bool RegistryDatabase::isWritable()
{
    const Open* open = openForReading();
    const std::string folder = file_.substr(0, file_.rfind('/'));
    return open != nullptr && !open->connection.isReadOnly() && access(folder.c_str(), W_OK) == 0;
}

std::unique_ptr<SqliteTransaction> RegistryDatabase::beginReading()
{
    const Open* open = openForReading();
    if (open == nullptr)
        return nullptr;
    return std::make_unique<SqliteTransaction>(open->connection, SqliteTransaction::Kind::read);
}

std::unique_ptr<SqliteTransaction> RegistryDatabase::beginWriting()
{
    return std::make_unique<SqliteTransaction>(openForWriting().connection, SqliteTransaction::Kind::write);
}

void RegistryDatabase::flush()
{
    openForWriting().connection.flush();
}

void RegistryDatabase::dropWhenReplaced()
{
    if (!open_ || open_->connection.isInTransaction() || open_->identity == identityOf(file_))
        return;
    open_.reset();
    ++generation_;
}

RegistryDatabase::Open* RegistryDatabase::openForReading()
{
    dropWhenReplaced();
    if (!open_) {
        if (!identityOf(file_).bThere)
            return nullptr;
        const auto mode =
            use_ == Use::lookAlone ? SqliteConnection::Mode::readOnly : SqliteConnection::Mode::existing;
        auto open = std::make_unique<Open>(file_, mode, patience_);
        open_ = std::move(open);
    }
    return open_->bReady || open_->prepareStatements() ? open_.get() : nullptr;
}

RegistryDatabase::Open& RegistryDatabase::openForWriting()
{
    if (use_ == Use::lookAlone)
        throw RegistryFailure(kPermissionDenied, kRegistryAccessDenied, "The registry is only looked at.");
    if (Open* open = openForReading())
        return *open;
    const std::string folder = file_.substr(0, file_.rfind('/'));
    const bool bNew = !identityOf(file_).bThere;
    const bool bNewFolder = !identityOf(folder).bThere;
    const bool bShared = readers_ == Readers::everybody;
    try {
        makeFolders(folder, bShared ? 0755 : 0700);
    } catch (const RunTimeError& error) {
        throw RegistryFailure(error.number(), kRegistryAccessDenied,
                              "The folder of the registry file " + file_ + " can't be made.");
    }
    if (!open_)
        open_ = std::make_unique<Open>(file_, SqliteConnection::Mode::createIfMissing, patience_);
    SqliteTransaction transaction(open_->connection, SqliteTransaction::Kind::write);
    if (schemaVersion(open_->connection) == 0)
        open_->connection.execute(kSchema);
    transaction.commit();
    // Whatever the installer's mask was, everybody may read the machine's products.
    if (bNewFolder && bShared)
        chmod(folder.c_str(), 0755);
    if (bNew)
        chmod(file_.c_str(), bShared ? 0644 : 0600);
    open_->identity = identityOf(file_);
    if (!open_->prepareStatements())
        throw RegistryFailure(kPathOrFileAccess, kRegistryCorrupt,
                              "The registry file " + file_ + " is damaged.");
    return *open_;
}

RegistryDatabase::KeyId RegistryDatabase::madeKey(Open& open, const std::string& hive,
                                                  const std::string& path)
{
    std::optional<std::int64_t> parent;
    std::string upToHere = hive;
    std::vector<std::string> names{hive};
    const auto levels = registryLevels(path).value_or(std::vector<std::string>());
    names.insert(names.end(), levels.begin(), levels.end());
    for (std::size_t level = 0; level < names.size(); ++level) {
        const std::string folded = upperCase(names[level]);
        if (level > 0)
            upToHere.append("\\").append(folded);
        auto id = open.idOf(upToHere);
        if (!id) {
            StatementRun run(open.make);
            run.number(0, parent.value_or(0)).bytes(1, names[level]).bytes(2, folded).bytes(3, upToHere);
            run.step();
            id = run.numberAt(0);
        }
        parent = id;
    }
    return {*parent, generation_};
}

} // namespace zorvo
