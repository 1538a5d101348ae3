#include "dao/databaseFile.h"

#include "dao/bookkeeping.h"
#include "dao/connection.h"
#include "dao/engineError.h"
#include "dao/fleetingFile.h"
#include "dao/jetCorrections.h"
#include "dao/oldFile.h"
#include "platform/paths.h"

#include <filesystem>

namespace dao {

namespace {

namespace fs = std::filesystem;

// What SQLite leaves beside a database file until a transaction or its last connection has ended.
void removeCompanions(const fs::path& database)
{
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        std::error_code failure;
        fs::remove(fs::path(database) += suffix, failure);
        if (failure)
            platform::raise(platform::errPermissionDenied);
    }
}

void replaceFile(const fs::path& source, const fs::path& target)
{
    // The journal goes first: one that is left beside the new file would be rolled into it.
    removeCompanions(target);
    const FleetingFile fresh(fs::path(target) += ".new");
    std::error_code failure;
    fs::copy_file(source, fresh.path(), fs::copy_options::overwrite_existing, failure);
    if (!failure)
        fs::permissions(fresh.path(), fs::perms::owner_write, fs::perm_options::add, failure);
    if (!failure) {
        platform::flushToDisk(fresh.path());
        fs::rename(fresh.path(), target, failure);
    }
    if (failure)
        platform::raise(failure == std::errc::no_space_on_device ? platform::errDiskFull
                                                                 : platform::errPathFileAccess);
}

// Through the engine, under the engine's locks, as one transaction on the target. False when the target is no
// file that the engine can take a lock on.
bool replaceThroughEngine(const fs::path& source, const fs::path& target)
{
    const auto from = openAnyFile(platform::utf8Path(source), SQLITE_OPEN_READWRITE);
    const auto onto = openAnyFile(platform::utf8Path(target), SQLITE_OPEN_READWRITE);
    sqlite3_db_config(onto.get(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    const int result = sqlite3_exec(onto.get(), "BEGIN IMMEDIATE; ROLLBACK", nullptr, nullptr, nullptr);
    if ((result & 0xff) == SQLITE_BUSY)
        throw engineFailure(result, onto.get(), target.string());
    if (result != SQLITE_OK)
        return false;
    // What was written ahead goes into the file, and the copy is a single file as the master is.
    sqlite3_exec(onto.get(), "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    copyContent(from.get(), onto.get(), target.string());
    return true;
}

// What stands over a cache or over corrections alone is left out.
void writeOwnFile(const std::string& source, const fs::path& target)
{
    const auto content = openConnection(contentOf(source), true);
    writeContent(content.get(), platform::utf8Path(target), [](sqlite3* own) {
        execute(own, "DROP TABLE IF EXISTS zeph_source; DROP TABLE IF EXISTS zeph_original; VACUUM");
    });
}

void replace(const fs::path& source, const fs::path& target)
{
    std::error_code ignored;
    if (!fs::is_regular_file(target, ignored) || !replaceThroughEngine(source, target))
        replaceFile(source, target);
}

bool sameFile(const fs::path& left, const fs::path& right)
{
    std::error_code ignored;
    return fs::equivalent(left, right, ignored);
}

} // namespace

void createDatabaseFile(const std::string& path, std::string_view script)
{
    fs::remove(path);
    const auto connection = openAnyFile(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    execute(connection.get(), std::string(script).c_str());
    noteAllTables(connection.get());
    execute(connection.get(),
            ("PRAGMA application_id=" + std::to_string(applicationId) + "; VACUUM").c_str());
}

void copyDatabaseFile(const std::string& source, const std::string& target)
{
    const auto from = platform::hostPath(source);
    const auto onto = platform::hostPath(target);
    std::error_code ignored;
    if (!fs::is_regular_file(from, ignored))
        platform::raise(platform::errFileNotFound);
    if (sameFile(from, onto))
        platform::raise(platform::errPermissionDenied);
    if (OldFile::isAt(source)) {
        const FleetingFile own(fs::path(onto) += ".own");
        writeOwnFile(source, own.path());
        replace(own.path(), onto);
    } else {
        replace(from, onto);
    }
    removeCorrection(target); // of what lay there before
}

void compactDatabaseFile(const std::string& source, const std::string& target)
{
    const auto onto = platform::hostPath(target);
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(onto, ignored)))
        raiseEngineError(errDatabaseExists);
    writeOwnFile(source, onto);
}

void linkTable(const std::string& databasePath, const std::string& name, const std::string& file,
               const std::string& table)
{
    const auto connection = openConnection(databasePath, false);
    // Without a commit the transaction ends with the connection.
    execute(connection.get(), "BEGIN IMMEDIATE");
    noteLink(connection.get(), {name, file, table});
    execute(connection.get(), "COMMIT");
}

} // namespace dao
