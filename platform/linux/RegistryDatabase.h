#pragma once

#include "platform/linux/RegistryChange.h"
#include "platform/linux/SqliteConnection.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvo {

/// One registry file: the keys and values of a scope. Several processes may use the file at once; each call
/// sees what is stored at that moment. A file that isn't there is an empty registry until something is
/// written.
///
/// A key is stored with its whole upper-cased path, so that it is opened by one look-up in an index; its
/// sub-keys are found, in order, by another. The file keeps SQLite's plain journal: with the write-ahead log
/// an ordinary user couldn't read a machine registry that he can't write.
///
/// Every call throws RegistryFailure when the file can't be used.
class RegistryDatabase {
public:
    enum class Readers { owner, everybody };
    /// With `lookAlone` nothing is ever written, and a file that a broken-off change left behind is a
    /// failure.
    enum class Use { readAndWrite, lookAlone };

    /// A key in the file that was open at the time.
    struct KeyId {
        std::int64_t id = 0;
        unsigned generation = 0;
    };

    RegistryDatabase(std::string file, Readers readers, std::chrono::milliseconds patience,
                     Use use = Use::readAndWrite);
    ~RegistryDatabase();
    RegistryDatabase(const RegistryDatabase&) = delete;
    RegistryDatabase& operator=(const RegistryDatabase&) = delete;

    /// `hive` is the hive's name, `path` the key below it.
    std::optional<KeyId> find(const std::string& hive, const std::string& path);
    KeyId make(const std::string& hive, const std::string& path);

    /// Ascending by upper-cased name.
    std::vector<std::string> subKeys(KeyId key);
    /// At most `capacity` bytes of data; with more, `bTooBig` is set and no data given.
    struct Found {
        RegistryValue value;
        bool bTooBig = false;
    };
    std::optional<Found> value(KeyId key, const std::string& name, std::size_t capacity);
    /// Ascending by upper-cased name, so the default value comes first.
    std::vector<RegistryValue> values(KeyId key);
    /// Throws with kRegistryKeyDeleted when the key has gone.
    void setValue(KeyId key, const RegistryValue& value);

    /// False when there is no such key or value.
    bool erase(const std::string& hive, const std::string& path);
    bool eraseValue(KeyId key, const std::string& name);

    /// Whether a write could succeed.
    bool isWritable();

    /// A snapshot to read from, or changes that belong together; the calls in between join it. Undone when it
    /// is destroyed without a commit.
    std::unique_ptr<SqliteTransaction> beginReading();
    std::unique_ptr<SqliteTransaction> beginWriting();
    void flush();

private:
    struct Open;

    Open* openForReading();
    Open& openForWriting();
    void dropWhenReplaced();
    KeyId madeKey(Open& open, const std::string& hive, const std::string& path);

    std::string file_;
    Readers readers_;
    std::chrono::milliseconds patience_;
    Use use_;
    std::unique_ptr<Open> open_;
    unsigned generation_ = 0;
};

} // namespace zorvo
