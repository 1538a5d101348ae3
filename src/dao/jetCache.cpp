#include "dao/jetCache.h"

#include "dao/connection.h"
#include "dao/engineError.h"
#include "dao/fileStamp.h"
#include "dao/fleetingFile.h"
#include "dao/jetConversion.h"
#include "dao/jetFailure.h"
#include "dao/sideBySide.h"
#include "jet/jetFile.h"
#include "platform/paths.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <numeric>
#include <vector>

namespace dao {

namespace {

namespace fs = std::filesystem;

// Rises when an old file's content comes to stand otherwise in ours.
constexpr int layout = 1;
constexpr int mostAttempts = 3;
constexpr auto suffix = ".db";

std::uintmax_t limit = usualCacheLimit;
std::function<void()> watcherOfConversions;
ReadingSign usualSign;

// The old file that a cache was made of, as it stood then.
struct Source
{
    std::string path;
    jet::Stamp stamp;
};

// The same for all caches of a path.
std::string beginningOfNames(const Source& source)
{
    return hexadecimal(hashOf(source.path)) + "-";
}

std::string nameOf(const Source& source)
{
    const auto& stamp = source.stamp;
    const auto numbers = std::to_string(layout) + " " + std::to_string(stamp.size) + " " +
                         std::to_string(stamp.modified) + " ";
    return beginningOfNames(source) + hexadecimal(hashOf(commitBytes(stamp), hashOf(numbers))) + suffix;
}

[[noreturn]] void raiseWriteFailure(std::error_code failure, const fs::path& path)
{
    if (failure == std::errc::no_space_on_device)
        raiseEngineError(errNoSpace);
    raiseEngineError(errCannotOpen, platform::utf8Path(path));
}

// Nobody but the user looks into it: old files may be for few eyes.
fs::path readyFolder()
{
    auto folder = platform::userCacheDirectory();
    std::error_code failure;
    if (fs::create_directories(folder, failure))
        fs::permissions(folder, fs::perms::owner_all, failure);
    if (failure)
        raiseWriteFailure(failure, folder);
    return folder;
}

void makePrivateFile(const fs::path& path)
{
    std::error_code failure;
    if (!std::ofstream(path, std::ios::binary))
        raiseWriteFailure(std::make_error_code(std::errc::permission_denied), path);
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, failure);
    if (failure)
        raiseWriteFailure(failure, path);
}

void writeSource(const fs::path& cache, const Source& source)
{
    const auto connection = openAnyFile(platform::utf8Path(cache), SQLITE_OPEN_READWRITE);
    execute(connection.get(),
            "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; CREATE TABLE zeph_source (layout INTEGER, "
            "path TEXT, size INTEGER, modified INTEGER, commit_bytes BLOB)");
    const auto insertion = prepare(connection.get(), "INSERT INTO zeph_source VALUES (?1, ?2, ?3, ?4, ?5)");
    sqlite3_bind_int(insertion.get(), 1, layout);
    bindText(insertion.get(), 2, source.path);
    bindStamp(insertion.get(), 3, source.stamp);
    static_cast<void>(stepToRow(connection.get(), insertion.get()));
}

bool standsIn(sqlite3* connection, const Source& source)
{
    const auto look = prepare(connection, "SELECT 1 FROM zeph_source WHERE layout = ?1 AND path = ?2 "
                                          "AND size = ?3 AND modified = ?4 AND commit_bytes = ?5");
    sqlite3_bind_int(look.get(), 1, layout);
    bindText(look.get(), 2, source.path);
    bindStamp(look.get(), 3, source.stamp);
    return stepToRow(connection, look.get());
}

bool isCacheOf(const fs::path& cache, const Source& source)
{
    std::error_code ignored;
    if (!fs::is_regular_file(cache, ignored))
        return false;
    try {
        return standsIn(openConnection(platform::utf8Path(cache), true).get(), source);
    } catch (const platform::RuntimeError&) {
        return false; // whatever it is, it is made anew
    }
}

// False when the old file was changed meanwhile; what was read of it is then of no use, a failure included.
bool writeUnchanged(const std::string& path, const Source& source, const fs::path& cache)
{
    const auto file = withEngineFailures(path, [&] { return jet::File(platform::hostPath(path)); });
    const auto unchanged = [&] {
        return withEngineFailures(path, [&] { return file.stamp() == source.stamp; });
    };
    if (!unchanged())
        return false;
    try {
        convertJetFile(file, path, platform::utf8Path(cache));
        if (const auto watcher = watcherOfConversions) // a copy: it may set another one
            watcher();
    } catch (const platform::RuntimeError&) {
        if (unchanged())
            throw;
    }
    return unchanged();
}

// The same on another host, and after a crash: under its name a cache is whole.
bool build(const std::string& path, const Source& source, const fs::path& cache)
{
    const FleetingFile unfinished(unfinishedName(cache));
    makePrivateFile(unfinished.path());
    if (!writeUnchanged(path, source, unfinished.path()))
        return false;
    writeSource(unfinished.path(), source);
    flush(unfinished.path());
    std::error_code failure;
    fs::rename(unfinished.path(), cache, failure);
    // Another process may have come first, and have it open.
    if (failure && !isCacheOf(cache, source))
        raiseWriteFailure(failure, cache);
    return true;
}

struct Entry
{
    fs::path path;
    std::uintmax_t size;
    fs::file_time_type lastUse;
};

// Files that others remove meanwhile are passed over, here and below.
std::vector<Entry> entriesOf(const fs::path& folder)
{
    std::vector<Entry> entries;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code gone;
        const auto size = entry->file_size(gone);
        const auto lastUse = gone ? fs::file_time_type{} : entry->last_write_time(gone);
        if (!gone)
            entries.push_back({entry->path(), size, lastUse});
    }
    return entries;
}

void remove(const Entry& entry)
{
    std::error_code inUse; // somewhere else, on hosts where that keeps it
    fs::remove(entry.path, inUse);
}

// The cache of an old file, and whether it was made just now.
struct Cache
{
    Source source;
    fs::path path;
    bool isNew = false;
};

bool isElderOf(const Entry& entry, const Cache& cache)
{
    return entry.path.extension() == suffix && entry.path != cache.path &&
           entry.path.filename().string().starts_with(beginningOfNames(cache.source));
}

void removeOldest(std::vector<Entry> entries, std::uintmax_t total)
{
    std::sort(entries.begin(), entries.end(),
              [](const Entry& left, const Entry& right) { return left.lastUse < right.lastUse; });
    for (const auto& entry : entries) {
        if (total <= limit)
            return;
        remove(entry);
        total -= entry.size;
    }
}

// Leaves nothing but caches: those asked for, and of the others as many as the limit lets stay.
void cleanUp(const fs::path& folder, const std::vector<Cache>& asked)
{
    const auto isOneAskedFor = [&asked](const Entry& entry) {
        return std::any_of(asked.begin(), asked.end(),
                           [&entry](const Cache& cache) { return entry.path == cache.path; });
    };
    const auto isElder = [&asked](const Entry& entry) {
        return std::any_of(asked.begin(), asked.end(),
                           [&entry](const Cache& cache) { return isElderOf(entry, cache); });
    };
    std::vector<Entry> others;
    std::uintmax_t total = 0;
    for (auto& entry : entriesOf(folder)) {
        if (isLeftover(entry.path, entry.lastUse) || isElder(entry)) {
            remove(entry);
        } else if (entry.path.extension() == suffix) {
            total += entry.size;
            if (!isOneAskedFor(entry))
                others.push_back(std::move(entry));
        }
    }
    removeOldest(std::move(others), total);
}

Source sourceAt(const std::string& path)
{
    const auto place = platform::hostPath(path);
    std::error_code ignored;
    auto canonical = fs::weakly_canonical(place, ignored);
    const auto file = withEngineFailures(path, [&] { return jet::File(place); });
    return {platform::utf8Path(canonical.empty() ? place : canonical),
            withEngineFailures(path, [&] { return file.stamp(); })};
}

Cache readyCache(const fs::path& folder, const std::string& path)
{
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const auto source = sourceAt(path);
        const auto cache = folder / nameOf(source);
        if (isCacheOf(cache, source)) {
            std::error_code ignored; // it counts as older than it is
            fs::last_write_time(cache, fs::file_time_type::clock::now(), ignored);
            return {source, cache};
        }
        if (build(path, source, cache))
            return {source, cache, true};
    }
    raiseEngineError(errFileInUse, path);
}

std::uintmax_t sizeAt(const std::string& path)
{
    std::error_code ignored;
    return fs::file_size(platform::hostPath(path), ignored);
}

// Whatever takes longest begins first.
std::vector<std::size_t> placesBySize(const std::vector<std::string>& paths)
{
    std::vector<std::uintmax_t> sizes(paths.size());
    std::transform(paths.begin(), paths.end(), sizes.begin(), sizeAt);
    std::vector<std::size_t> places(paths.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(),
                     [&sizes](std::size_t left, std::size_t right) { return sizes[left] > sizes[right]; });
    return places;
}

// Tells that these files are being read once that takes a while.
class Telling
{
public:
    explicit Telling(const std::vector<std::string>& paths) : m_paths(paths), m_sign(usualSign) {}
    ~Telling()
    {
        if (m_isShown)
            m_sign.hide();
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

    std::function<void()> meanwhile()
    {
        return m_sign.show ? [this] { goOn(); } : std::function<void()>();
    }

private:
    void goOn()
    {
        constexpr auto patience = std::chrono::seconds(1);
        if (std::chrono::steady_clock::now() - m_begin < patience)
            return;
        m_isShown = true;
        m_sign.show(m_paths);
    }

    const std::vector<std::string>& m_paths;
    ReadingSign m_sign;
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    bool m_isShown = false;
};

} // namespace

std::vector<std::string> cachesOf(const std::vector<std::string>& paths)
{
    const auto folder = readyFolder();
    const auto places = placesBySize(paths);
    std::vector<Cache> caches(paths.size());
    Telling telling(paths);
    sideBySide(
        paths.size(),
        [&](std::size_t number) { caches[places[number]] = readyCache(folder, paths[places[number]]); },
        telling.meanwhile());
    if (std::any_of(caches.begin(), caches.end(), [](const Cache& cache) { return cache.isNew; }))
        cleanUp(folder, caches);
    std::vector<std::string> files(caches.size());
    std::transform(caches.begin(), caches.end(), files.begin(),
                   [](const Cache& cache) { return platform::utf8Path(cache.path); });
    return files;
}

std::string cacheOf(const std::string& path)
{
    return cachesOf({path}).front();
}

jet::Stamp stampOfCache(sqlite3* cache)
{
    const auto look = prepare(cache, "SELECT size, modified, commit_bytes FROM main.zeph_source");
    jet::Stamp stamp;
    if (!stepToRow(cache, look.get()))
        raiseEngineError(errDamaged, pathOf(cache));
    stamp.size = static_cast<std::uint64_t>(sqlite3_column_int64(look.get(), 0));
    stamp.modified = sqlite3_column_int64(look.get(), 1);
    const auto bytes = textAt(look.get(), 2);
    std::copy_n(bytes.begin(), std::min(bytes.size(), stamp.commitBytes.size()), stamp.commitBytes.begin());
    return stamp;
}

void setCacheLimit(std::uintmax_t bytes)
{
    limit = bytes;
}

void setReadingSign(ReadingSign sign)
{
    usualSign = std::move(sign);
}

void setConversionWatcher(std::function<void()> watcher)
{
    watcherOfConversions = std::move(watcher);
}

} // namespace dao
