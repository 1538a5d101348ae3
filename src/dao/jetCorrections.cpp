#include "dao/jetCorrections.h"

#include "dao/connection.h"
#include "dao/engineError.h"
#include "dao/fileStamp.h"
#include "dao/fleetingFile.h"
#include "dao/jetFailure.h"
#include "platform/paths.h"
#include "platform/sharedFile.h"

#include <optional>
#include <system_error>

namespace dao {

namespace {

namespace fs = std::filesystem;

constexpr auto suffix = ".corrected";

std::function<void()> watcherOfCorrections;

fs::path correctionPlace(const std::string& path)
{
    return platform::hostPath(path) += suffix;
}

std::uint64_t contentHash(const fs::path& path)
{
    constexpr std::size_t portion = std::size_t{1} << 20U;
    const platform::SharedFile file(path);
    std::string bytes(portion, '\0');
    std::uint64_t hash = emptyHash;
    std::uint64_t place = 0;
    while (const auto length = file.readAt(place, bytes)) {
        hash = hashOf(std::string_view(bytes).substr(0, length), hash);
        place += length;
    }
    return hash;
}

std::uint64_t contentHash(const std::string& path)
{
    try {
        return contentHash(platform::hostPath(path));
    } catch (const std::system_error&) {
        raiseEngineError(errDisk, path);
    }
}

// What the file of the corrections tells of the file that was corrected.
struct Original
{
    bool stampFits = false, timeFits = false;
    std::string contentHash;
};

std::optional<Original> originalIn(sqlite3* correction, const jet::Stamp& stamp)
{
    try {
        const auto look =
            prepare(correction, "SELECT size = ?1 AND commit_bytes = ?3, modified = ?2, content_hash "
                                "FROM main.zeph_original");
        bindStamp(look.get(), 1, stamp);
        if (!stepToRow(correction, look.get()))
            return std::nullopt;
        return Original{sqlite3_column_int(look.get(), 0) != 0, sqlite3_column_int(look.get(), 1) != 0,
                        textAt(look.get(), 2)};
    } catch (const platform::RuntimeError& failure) {
        // A file of the engine without the record, or with another one of that name.
        if (failure.number == errNoSuchTable || failure.number == errTooFewParameters)
            return std::nullopt;
        throw;
    }
}

// A copied folder brings the times of the copying. Its content is not read each time that it is opened.
bool contentFits(const std::string& path, const jet::Stamp& stamp, const Original& original)
{
    static std::optional<std::pair<std::string, jet::Stamp>> last;
    static std::string hashOfLast;
    if (!last || last->first != path || last->second != stamp) {
        hashOfLast = hexadecimal(contentHash(path));
        last.emplace(path, stamp);
    }
    return hashOfLast == original.contentHash;
}

[[noreturn]] void raiseChanged(const std::string& path)
{
    throw platform::RuntimeError(
        errDataChanged, "'" + path + "' was changed after it was corrected.  Its corrections are in '" +
                            correctionPath(path) + "'; nothing of either file was dropped.");
}

[[noreturn]] void raiseNotMade(std::error_code failure)
{
    raiseEngineError(failure == std::errc::no_space_on_device ? errNoSpace : errReadOnly);
}

void requireUnchanged(const std::string& path, const jet::Stamp& stamp)
{
    const auto now = withEngineFailures(path, [&] { return jet::File(platform::hostPath(path)).stamp(); });
    if (now != stamp)
        raiseEngineError(errFileInUse, path);
}

void noteOriginal(sqlite3* correction, const jet::Stamp& stamp, std::uint64_t hash)
{
    execute(correction, "DROP TABLE IF EXISTS zeph_source; CREATE TABLE zeph_original (size INTEGER, "
                        "modified INTEGER, commit_bytes BLOB, content_hash TEXT)");
    const auto insertion = prepare(correction, "INSERT INTO zeph_original VALUES (?1, ?2, ?3, ?4)");
    const auto digits = hexadecimal(hash);
    bindStamp(insertion.get(), 1, stamp);
    bindText(insertion.get(), 4, digits);
    static_cast<void>(stepToRow(correction, insertion.get()));
}

// Of processes that were killed.
void removeLeftovers(const fs::path& target)
{
    const auto beginning = platform::utf8Path(target.filename()) + ".";
    std::error_code failure;
    for (fs::directory_iterator entry(target.has_parent_path() ? target.parent_path() : ".", failure), end;
         !failure && entry != end; entry.increment(failure)) {
        std::error_code gone;
        const auto lastWrite = entry->last_write_time(gone);
        if (!gone && platform::utf8Path(entry->path().filename()).starts_with(beginning) &&
            isLeftover(entry->path(), lastWrite))
            fs::remove(entry->path(), gone);
    }
}

// Fills a file that has not got its name yet.
void fill(const fs::path& unfinished, sqlite3* content, const std::function<void(sqlite3*)>& change)
{
    const auto name = platform::utf8Path(unfinished);
    {
        const auto connection = [&] {
            try {
                return openAnyFile(name, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
            } catch (const platform::RuntimeError&) {
                raiseNotMade(std::make_error_code(std::errc::permission_denied));
            }
        }();
        execute(connection.get(), "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF");
        copyContent(content, connection.get(), pathOf(connection.get()));
        change(connection.get());
    }
    flush(unfinished);
}

} // namespace

std::string correctionPath(const std::string& path)
{
    return path + suffix;
}

bool hasCorrection(const std::string& path)
{
    std::error_code ignored;
    if (!fs::is_regular_file(correctionPlace(path), ignored))
        return false;
    try {
        return originalIn(openConnection(correctionPath(path), true).get(), {}).has_value();
    } catch (const platform::RuntimeError&) {
        return false;
    }
}

std::string correctionOf(const std::string& path)
{
    std::error_code ignored;
    if (!fs::exists(fs::symlink_status(correctionPlace(path), ignored)))
        return {};
    if (!jet::File::hasMark(platform::hostPath(path))) {
        // What is not there, or is of no interest to these corrections, is told of by who opens it.
        if (fs::exists(platform::hostPath(path), ignored) && hasCorrection(path))
            raiseChanged(path);
        return {};
    }
    auto correction = correctionPath(path);
    if (!fs::is_regular_file(correctionPlace(path), ignored))
        raiseEngineError(errUnrecognizedFormat, correction);
    const auto stamp = withEngineFailures(path, [&] { return jet::File(platform::hostPath(path)).stamp(); });
    const auto original = originalIn(openConnection(correction, true).get(), stamp);
    if (!original)
        raiseEngineError(errUnrecognizedFormat, correction);
    if (!original->stampFits || (!original->timeFits && !contentFits(path, stamp, *original)))
        raiseChanged(path);
    return correction;
}

void makeCorrection(const std::string& path, const jet::Stamp& stamp, sqlite3* content)
{
    const auto target = correctionPlace(path);
    removeLeftovers(target);
    requireUnchanged(path, stamp);
    const auto hash = contentHash(path);
    const FleetingFile unfinished(unfinishedName(target));
    fill(unfinished.path(), content, [&](sqlite3* correction) { noteOriginal(correction, stamp, hash); });
    requireUnchanged(path, stamp);
    std::error_code failure;
    fs::permissions(unfinished.path(),
                    fs::status(platform::hostPath(path)).permissions() | fs::perms::owner_write, failure);
    if (const auto watcher = watcherOfCorrections) // a copy: it may set another one
        watcher();
    // A second name fails where a file of that name stands, which a renaming would replace.
    fs::create_hard_link(unfinished.path(), target, failure);
    if (failure == std::errc::file_exists)
        raiseEngineError(errFileInUse, path);
    // There are places that know no second names.
    if (failure && !fs::exists(target))
        fs::rename(unfinished.path(), target, failure);
    if (failure)
        raiseNotMade(failure);
    flush(target);
}

void removeCorrection(const std::string& path)
{
    for (const char* companion : {"", "-journal", "-wal", "-shm"}) {
        std::error_code failure;
        fs::remove(correctionPlace(path) += companion, failure);
        if (failure)
            platform::raise(platform::errPermissionDenied);
    }
}

void writeContent(sqlite3* content, const std::string& target, const std::function<void(sqlite3*)>& change)
{
    const auto place = platform::hostPath(target);
    const FleetingFile unfinished(unfinishedName(place));
    fill(unfinished.path(), content, change);
    std::error_code failure;
    fs::rename(unfinished.path(), place, failure);
    if (failure)
        raiseNotMade(failure);
    flush(place);
}

void setCorrectionWatcher(std::function<void()> watcher)
{
    watcherOfCorrections = std::move(watcher);
}

} // namespace dao
