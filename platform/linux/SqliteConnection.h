#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace zorvo {

/// A prepared statement. Every run of it ends in `reset`, which gives up the file's lock; StatementRun does
/// that.
class SqliteStatement {
public:
    SqliteStatement() = default;
    SqliteStatement(sqlite3* connection, const char* sql);

private:
    friend class StatementRun;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// One run of a statement: bind, step, read. Parameters and columns count from 0. The bound texts must live
/// as long as the run. Throws RegistryFailure.
class StatementRun {
public:
    explicit StatementRun(const SqliteStatement& statement);
    ~StatementRun();
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

    StatementRun& number(int parameter, std::int64_t value);
    StatementRun& bytes(int parameter, std::string_view value);

    /// True while there is a row.
    bool step();
    /// Runs it to its end; for statements that give no rows.
    void finish();

    std::int64_t numberAt(int column) const;
    std::string bytesAt(int column) const;
    std::size_t sizeAt(int column) const;

private:
    sqlite3_stmt* statement_;
};

/// An open database file.
class SqliteConnection {
public:
    /// `readOnly` leaves the file as it is whatever state it is in: what a broken-off change left behind
    /// isn't undone but told as a failure.
    enum class Mode { readOnly, existing, createIfMissing };

    /// Waits for other processes' locks up to `patience`. Throws RegistryFailure when it can't be opened.
    SqliteConnection(const std::string& file, Mode mode, std::chrono::milliseconds patience);

    SqliteStatement prepare(const char* sql) const { return {connection_.get(), sql}; }
    void execute(const char* sql) const;
    bool isReadOnly() const;
    bool isInTransaction() const;
    int changes() const;
    /// Brings what the transaction has changed so far to the disk, so that a full disk shows ahead of the
    /// commit.
    void flush() const;

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };
    static int waitForLock(void* patience, int tries);

    std::unique_ptr<std::chrono::milliseconds> patience_; // at one place, where the library finds it
    std::unique_ptr<sqlite3, Close> connection_;
};

/// A transaction that is undone unless it is committed.
class SqliteTransaction {
public:
    enum class Kind { read, write };

    SqliteTransaction(const SqliteConnection& connection, Kind kind);
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    void commit();

private:
    const SqliteConnection& connection_;
    bool bOpen_ = true;
};

} // namespace zorvo
