#include "platform/linux/SqliteConnection.h"

#include "platform/Registry.h"
#include "platform/linux/RegistryFailure.h"

#include <sqlite3.h>

#include <thread>

namespace zorvo {

namespace {

std::string fileOf(sqlite3* connection)
{
    const char* name = connection != nullptr ? sqlite3_db_filename(connection, "main") : nullptr;
    return name != nullptr ? name : "";
}

[[noreturn]] void fail(int code, const std::string& file)
{
    const std::string subject = "The registry file " + file;
    if (code == SQLITE_READONLY_ROLLBACK || code == SQLITE_READONLY_RECOVERY)
        throw RegistryFailure(kPathOrFileAccess, kRegistryCorrupt,
                              subject + " was being written when that broke off; the next start mends it.");
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw RegistryFailure(kPermissionDenied, kRegistryBusy, subject + " is in use by another process.");
    case SQLITE_READONLY:
        throw RegistryFailure(kPermissionDenied, kRegistryAccessDenied, subject + " can't be written.");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        throw RegistryFailure(kPermissionDenied, kRegistryAccessDenied, subject + " can't be opened.");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_ERROR: // a file whose tables aren't ours
        throw RegistryFailure(kPathOrFileAccess, kRegistryCorrupt, subject + " is damaged.");
    case SQLITE_FULL:
        throw RegistryFailure(kDiskFull, kRegistryDiskFull,
                              "The disk of the registry file " + file + " is full.");
    case SQLITE_CONSTRAINT:
        throw RegistryFailure(kPathOrFileAccess, kRegistryKeyDeleted, "The registry key has been deleted.");
    default:
        throw RegistryFailure(kPathOrFileAccess, kRegistryInputOutput,
                              subject + " can't be used: " + sqlite3_errstr(code) + ".");
    }
}

void require(int code, sqlite3* connection)
{
    if (code != SQLITE_OK)
        fail(code, fileOf(connection));
}

} // namespace

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(sqlite3* connection, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v3(connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr),
            connection);
    statement_.reset(statement);
}

StatementRun::StatementRun(const SqliteStatement& statement)
    : statement_(statement.statement_.get())
{
}

StatementRun::~StatementRun()
{
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

StatementRun& StatementRun::number(int parameter, std::int64_t value)
{
    require(sqlite3_bind_int64(statement_, parameter + 1, value), sqlite3_db_handle(statement_));
    return *this;
}

StatementRun& StatementRun::bytes(int parameter, std::string_view value)
{
    // A null pointer would be stored as no value at all.
    const char* data = value.data() != nullptr ? value.data() : "";
    require(sqlite3_bind_blob64(statement_, parameter + 1, data, value.size(), SQLITE_STATIC),
            sqlite3_db_handle(statement_));
    return *this;
}

bool StatementRun::step()
{
    const int code = sqlite3_step(statement_);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        fail(code, fileOf(sqlite3_db_handle(statement_)));
    return code == SQLITE_ROW;
}

void StatementRun::finish()
{
    while (step()) {
    }
}

std::int64_t StatementRun::numberAt(int column) const
{
    return sqlite3_column_int64(statement_, column);
}

std::string StatementRun::bytesAt(int column) const
{
    const void* data = sqlite3_column_blob(statement_, column);
    return data != nullptr ? std::string(static_cast<const char*>(data), sizeAt(column)) : std::string();
}

std::size_t StatementRun::sizeAt(int column) const
{
    return static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
}

void SqliteConnection::Close::operator()(sqlite3* connection) const
{
    sqlite3_close_v2(connection);
}

/// Asks again every few milliseconds: the library's own waits grow to a tenth of a second, in which a busy
/// neighbour takes the lock a dozen times.
int SqliteConnection::waitForLock(void* patience, int tries)
{
    constexpr std::chrono::milliseconds kPause(2);
    if (tries * kPause >= *static_cast<const std::chrono::milliseconds*>(patience))
        return 0;
    std::this_thread::sleep_for(kPause);
    return 1;
}

SqliteConnection::SqliteConnection(const std::string& file, Mode mode, std::chrono::milliseconds patience)
    : patience_(std::make_unique<std::chrono::milliseconds>(patience))
{
    const int use = mode == Mode::readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    const int create = mode == Mode::createIfMissing ? SQLITE_OPEN_CREATE : 0;
    sqlite3* connection = nullptr;
    const int code =
        sqlite3_open_v2(file.c_str(), &connection, use | SQLITE_OPEN_EXRESCODE | create, nullptr);
    connection_.reset(connection);
    if (code != SQLITE_OK)
        fail(code, file);
    sqlite3_busy_handler(connection, &SqliteConnection::waitForLock, patience_.get());
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
}

void SqliteConnection::execute(const char* sql) const
{
    require(sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr), connection_.get());
}

bool SqliteConnection::isReadOnly() const
{
    return sqlite3_db_readonly(connection_.get(), "main") != 0;
}

bool SqliteConnection::isInTransaction() const
{
    return sqlite3_get_autocommit(connection_.get()) == 0;
}

int SqliteConnection::changes() const
{
    return sqlite3_changes(connection_.get());
}

void SqliteConnection::flush() const
{
    require(sqlite3_db_cacheflush(connection_.get()), connection_.get());
}

void SqliteTransaction::commit()
{
    connection_.execute("COMMIT");
    bOpen_ = false;
}

SqliteTransaction::SqliteTransaction(const SqliteConnection& connection, Kind kind)
    : connection_(connection)
{
    connection_.execute(kind == Kind::write ? "BEGIN IMMEDIATE" : "BEGIN");
}

SqliteTransaction::~SqliteTransaction()
{
    if (!bOpen_)
        return;
    try {
        connection_.execute("ROLLBACK");
    } catch (const RegistryFailure&) { // a failure such as a full disk has ended the transaction itself
    }
}

} // namespace zorvo
