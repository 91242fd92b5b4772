#include "platform/linux/filesearch/SearchCache.h"

#include "platform/Registry.h"
#include "platform/byteNumbers.h"
#include "platform/linux/RegistryFailure.h"
#include "platform/linux/SqliteConnection.h"
#include "platform/linux/nativeFiles.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <optional>

namespace zorvo {

namespace {

constexpr std::chrono::milliseconds kPatience{2000};
/// Of the tables and of what stands in them.
constexpr std::int64_t kFormat = 1;
constexpr std::int64_t kSecondsOfDay = 86'400;

/// Found out by a sum: what stands in a file may be damaged without the file being so.
std::int64_t sumOf(std::string_view files, std::string_view words)
{
    std::uint64_t sum = kFormat;
    for (std::string_view bytes : {files, words}) {
        for (; bytes.size() >= sizeof sum; bytes.remove_prefix(sizeof sum)) {
            std::uint64_t part = 0;
            bytes.copy(reinterpret_cast<char*>(&part), sizeof part);
            sum = (sum ^ part) * 0x9E3779B97F4A7C15U;
            sum ^= sum >> 29U;
        }
        for (const char byte : bytes)
            sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    return static_cast<std::int64_t>(sum);
}

std::string bytesOf(const std::vector<SearchedFile>& files)
{
    std::string bytes;
    appendNumber(bytes, files.size());
    for (const SearchedFile& one : files) {
        appendText(bytes, one.file.sName);
        appendNumber(bytes, one.file.nSize);
        appendNumber(bytes, static_cast<std::uint64_t>(one.file.nModified));
        appendNumber(bytes, static_cast<std::uint64_t>(one.kind));
    }
    return bytes;
}

std::optional<std::vector<SearchedFile>> filesFrom(std::string_view bytes)
{
    ByteCursor cursor(bytes);
    std::vector<SearchedFile> files;
    for (std::uint64_t nLeft = cursor.number(); nLeft > 0 && !cursor.hasFailed(); --nLeft) {
        SearchedFile one;
        one.file.sName = cursor.text();
        one.file.nSize = cursor.number();
        one.file.nModified = static_cast<std::int64_t>(cursor.number());
        const std::uint64_t nKind = cursor.number();
        if (nKind > static_cast<std::uint64_t>(SearchedFile::Kind::last))
            return std::nullopt;
        one.kind = static_cast<SearchedFile::Kind>(nKind);
        files.push_back(std::move(one));
    }
    if (cursor.hasFailed() || !cursor.atEnd())
        return std::nullopt;
    return files;
}

std::int64_t secondsNow()
{
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::int64_t oneNumber(const SqliteConnection& connection, const char* sql)
{
    const SqliteStatement statement = connection.prepare(sql);
    StatementRun run(statement);
    return run.step() ? run.numberAt(0) : 0;
}

/// Brings the tables in place. A file of another format is as good as a damaged one.
void prepareTables(const SqliteConnection& connection)
{
    // What a power failure takes away can be made again.
    connection.execute("PRAGMA page_size=32768; PRAGMA synchronous=OFF");
    if (oneNumber(connection, "PRAGMA user_version") == kFormat)
        return;
    SqliteTransaction transaction(connection, SqliteTransaction::Kind::write);
    const std::int64_t nFormat = oneNumber(connection, "PRAGMA user_version");
    if (nFormat != 0 && nFormat != kFormat)
        throw RegistryFailure(kPathOrFileAccess, kRegistryCorrupt, "The search cache is of another format.");
    if (nFormat == 0)
        connection.execute("CREATE TABLE packs(id INTEGER PRIMARY KEY AUTOINCREMENT, key BLOB NOT NULL,"
                           " used INTEGER NOT NULL, bytes INTEGER NOT NULL, sum INTEGER NOT NULL,"
                           " files BLOB NOT NULL, words BLOB NOT NULL);"
                           "CREATE INDEX packs_of_key ON packs(key);"
                           "PRAGMA user_version=1");
    transaction.commit();
}

void removePacks(const SqliteConnection& connection, const std::vector<std::int64_t>& ids)
{
    const SqliteStatement statement = connection.prepare("DELETE FROM packs WHERE id=?");
    for (const std::int64_t nId : ids)
        StatementRun(statement).number(0, nId).finish();
}

void addPack(const SqliteConnection& connection, const std::string& sKey, const SearchPack& pack)
{
    const SqliteStatement statement =
        connection.prepare("INSERT INTO packs(key, used, bytes, sum, files, words) VALUES(?, ?, ?, ?, ?, ?)");
    const std::string sFiles = bytesOf(pack.files);
    const auto nBytes = static_cast<std::int64_t>(sKey.size() + sFiles.size() + pack.sWords.size());
    StatementRun(statement)
        .bytes(0, sKey)
        .number(1, secondsNow())
        .number(2, nBytes)
        .number(3, sumOf(sFiles, pack.sWords))
        .bytes(4, sFiles)
        .bytes(5, pack.sWords)
        .finish();
}

void makeRoom(const SqliteConnection& connection, std::int64_t nMostBytes)
{
    std::int64_t nBytes = oneNumber(connection, "SELECT sum(bytes) FROM packs");
    std::vector<std::int64_t> ids;
    {
        const SqliteStatement statement = connection.prepare("SELECT id, bytes FROM packs ORDER BY used, id");
        for (StatementRun run(statement); nBytes > nMostBytes && run.step();) {
            ids.push_back(run.numberAt(0));
            nBytes -= run.numberAt(1);
        }
    }
    removePacks(connection, ids);
}

} // namespace

SearchCache::SearchCache(std::string sFile, std::int64_t nMostBytes)
    : sFile_(std::move(sFile))
    , nMostBytes_(nMostBytes)
{
}

/// A second attempt is made with a new file, after one that is damaged.
void SearchCache::attempt(const std::function<void(const SqliteConnection&)>& work) const
{
    for (int nAttempt = 0; nAttempt < 2; ++nAttempt) {
        try {
            makeFolders(sFile_.substr(0, sFile_.rfind('/')), 0700);
            const SqliteConnection connection(sFile_, SqliteConnection::Mode::createIfMissing, kPatience);
            prepareTables(connection);
            work(connection);
            return;
        } catch (const RegistryFailure& failure) {
            if (failure.status() != kRegistryCorrupt)
                return;
            unlink(sFile_.c_str());
            unlink((sFile_ + "-journal").c_str());
        } catch (const RunTimeError&) { // a folder that can't be made
            return;
        }
    }
}

std::vector<SearchPack> SearchCache::load(const std::string& sKey) const
{
    std::vector<SearchPack> packs;
    attempt([&](const SqliteConnection& connection) {
        packs.clear();
        std::vector<std::int64_t> damaged;
        std::int64_t nOldestUse = secondsNow();
        {
            const SqliteStatement statement =
                connection.prepare("SELECT id, sum, files, words, used FROM packs WHERE key=?");
            StatementRun run(statement);
            run.bytes(0, sKey);
            while (run.step()) {
                SearchPack pack{run.numberAt(0), {}, run.bytesAt(3)};
                const std::string sFiles = run.bytesAt(2);
                std::optional<std::vector<SearchedFile>> files = filesFrom(sFiles);
                nOldestUse = std::min(nOldestUse, run.numberAt(4));
                if (!files || sumOf(sFiles, pack.sWords) != run.numberAt(1)) {
                    damaged.push_back(pack.nId);
                    continue;
                }
                pack.files = std::move(*files);
                packs.push_back(std::move(pack));
            }
        }
        removePacks(connection, damaged);
        if (nOldestUse + kSecondsOfDay < secondsNow()) {
            const SqliteStatement statement = connection.prepare("UPDATE packs SET used=? WHERE key=?");
            StatementRun(statement).number(0, secondsNow()).bytes(1, sKey).finish();
        }
    });
    return packs;
}

void SearchCache::change(const std::string& sKey, const std::vector<std::int64_t>& outdated,
                         const std::vector<SearchPack>& made) const
{
    if (outdated.empty() && made.empty())
        return;
    attempt([&](const SqliteConnection& connection) {
        SqliteTransaction transaction(connection, SqliteTransaction::Kind::write);
        removePacks(connection, outdated);
        for (const SearchPack& pack : made)
            addPack(connection, sKey, pack);
        makeRoom(connection, nMostBytes_);
        transaction.commit();
    });
}

} // namespace zorvo
