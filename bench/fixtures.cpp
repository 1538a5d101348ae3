#include "fixtures.h"

#include "bare.h"
#include "db/MainModule.h"
#include "load/checkTarget.h"
#include "load/readNtcAndWriteToDB.h"
#include "load/refDatabases.h"
#include "model/session.h"
#include "platform/paths.h"

#include "progress.h"
#include "tools/jetReference.h"
#include "tools/referenceSet.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>

namespace fixtures {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t seed = 2026;

// Counts what the operator would be told; a message is a failure.
class CountingHost : public platform::Host
{
public:
    CountingHost() { platform::setHost(this); }
    ~CountingHost() override { platform::setHost(nullptr); }
    CountingHost(const CountingHost&) = delete;
    CountingHost& operator=(const CountingHost&) = delete;

    platform::Answer msgBox(const std::string& text, platform::Buttons, platform::Icon,
                            const std::string&) override
    {
        throw std::runtime_error(text);
    }
    void beep() override {}
    void setPointer(int) override {}
    std::optional<std::string> openFile(const platform::FileChoice&) override { return std::nullopt; }
    void print(const platform::Picture&) override {}
    void clearErrorLines() override { lines = 0; }
    void addErrorLine(const std::string& line) override
    {
        if (!line.starts_with("Notice"))
            return;
        ++lines;
        progress::tell(std::atoi(line.c_str() + line.find(':') + 1)); // "Notice No: 7 is ..."
    }

    void openCheck(const platform::CheckStart&) override { lines = 0; }
    void appendCheckText(const std::string&) override {}
    void selectErrorLine(int) override {}
    void endCheck() override {}
    void showWaiting() override { throw std::runtime_error("an index is missing"); }
    void paintWaiting() override {}
    void closeWaiting() override {}

    int lines = 0;
};

CountingHost& host()
{
    static CountingHost counting;
    return counting;
}

const fs::path& folder()
{
    static const auto made = [] {
        std::random_device number;
        auto path = fs::temp_directory_path() / ("zeph-bench-" + std::to_string(number()));
        fs::create_directory(path);
        return path;
    }();
    return made;
}

std::string masterDatabase()
{
    return platform::programDirectory() + "/" + MainModule::masterFileName;
}

std::string bytesOf(const std::string& file)
{
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return std::move(bytes).str();
}

const char* nameOf(Shape shape)
{
    switch (shape) {
    case Shape::OneFrequency:
        return "oneFrequency";
    case Shape::OnePosition:
        return "onePosition";
    default:
        return "diverse";
    }
}

std::string nameOf(Shape shape, int count)
{
    return nameOf(shape) + std::to_string(count);
}

void loadAll(Shape shape, int count, const std::string& database)
{
    for (int done = 0; done < count;) {
        const int next = std::min(fullFile, count - done);
        loadByProduct(noticeFile(shape, done + 1, next), database);
        done += next;
    }
}

// Another master database or other notices make another kept database.
std::string keptDatabase(Shape shape, int count)
{
    const noticeGenerator::NoticeGenerator generator(seed, shape);
    const auto marks = std::hash<std::string>()(bytesOf(masterDatabase()) + generator.notice(count));
    const auto kept = fs::temp_directory_path() / "zeph-bench-kept";
    fs::create_directories(kept);
    const auto database = kept / (nameOf(shape, count) + "-" + std::to_string(marks));
    if (!fs::exists(database)) {
        const auto fresh = emptyDatabase(nameOf(shape, count));
        loadAll(shape, count, fresh);
        fs::rename(fresh, database);
    }
    return database.string();
}

// The folder of a reference set beneath a name that tells all it depends on. It is made under another name,
// so that an end in the midst of it leaves no half set.
std::string
keptSet(const std::string& name, const std::string& noticeFile, int assignments,
        const std::function<std::vector<referenceRows::Answer>(const std::string& folder,
                                                               const referenceRows::Options& options)>& write)
{
    const auto kept =
        fs::path(ZEPH_BENCH_FOLDER) / (name + std::to_string(assignments) + "-" +
                                       std::to_string(std::hash<std::string>()(bytesOf(noticeFile))));
    if (fs::exists(kept))
        return kept.string();
    const auto unfinished = kept.string() + "-unfinished";
    fs::remove_all(unfinished);
    for (const auto& answer :
         write(unfinished, {assignments, seed, ::actingNotices::readFile(noticeFile), true})) {
        if (answer.count != 1)
            throw std::runtime_error("a notice is not answered once");
    }
    fs::rename(unfinished, kept);
    return kept.string();
}

} // namespace

bool withLarge()
{
    const char* wish = std::getenv("ZEPH_BENCH_LARGE");
    return wish != nullptr && std::string_view(wish) == "1";
}

std::string path(const std::string& name)
{
    return (folder() / name).string();
}

std::string noticeFile(Shape shape, int start, int count)
{
    auto file = path(nameOf(shape) + std::to_string(start) + "to" + std::to_string(start + count - 1));
    if (!fs::exists(file))
        noticeGenerator::writeNoticeFile(file, {count, seed, shape, start});
    return file;
}

std::string emptyDatabase(const std::string& name)
{
    return copyDatabase(masterDatabase(), name);
}

std::string copyDatabase(const std::string& database, const std::string& name)
{
    fs::copy_file(database, path(name), fs::copy_options::overwrite_existing);
    return path(name);
}

std::string loadedDatabase(Shape shape, int count)
{
    if (count > fullFile)
        return keptDatabase(shape, count);
    const auto name = nameOf(shape, count);
    if (!fs::exists(path(name)))
        loadAll(shape, count, emptyDatabase(name));
    return path(name);
}

int loadByProduct(const std::string& noticeFile, const std::string& database)
{
    host().lines = 0;
    session::electFileName = noticeFile;
    session::notice.d_rcv = dateOfReceipt;
    readNtcAndWriteToDB::openElectFile(session::notice);
    readNtcAndWriteToDB::loadElectFile(session::notice, database);
    return host().lines;
}

std::string actingNotices(int count)
{
    auto file = path("acting" + std::to_string(count));
    if (fs::exists(file))
        return file;
    const noticeGenerator::NoticeGenerator generator(seed);
    std::ofstream stream(file, std::ios::binary);
    stream << generator.head();
    for (int number = 1, written = 0; written < count; ++number) {
        const auto notice = generator.notice(number);
        if (notice.find("SUPPRESS") == std::string::npos && notice.find("WITHDRAW") == std::string::npos)
            continue;
        stream << notice;
        ++written;
    }
    return file;
}

std::string referenceSetFor(const std::string& noticeFile, int assignments, bool withIndexes)
{
    return keptSet(withIndexes ? "reference" : "referencePlain", noticeFile, assignments,
                   [withIndexes](const std::string& folder, const referenceRows::Options& options) {
                       return referenceSet::write(folder, options, withIndexes);
                   });
}

std::string oldReferenceSet(int assignments)
{
    return keptSet("oldReference", actingNotices(1000), assignments,
                   [](const std::string& folder, const referenceRows::Options& options) {
                       return jetReference::write(folder, options, true);
                   });
}

std::vector<int> oldSetSizes()
{
    return withLarge() ? std::vector{300'000, 2'500'000} : std::vector{300'000};
}

std::string cacheFolder()
{
    return (fs::path(ZEPH_BENCH_FOLDER) / ("caches-" + folder().filename().string())).string();
}

int checkByProduct(const std::string& database, const std::string& reference)
{
    host().lines = 0;
    session::workingDbPath = database;
    session::referenceDbPath = reference;
    checkTarget::checkAllNtc();
    return host().lines;
}

void linkByProduct(const std::string& reference)
{
    host().lines = 0;
    session::referenceDbPath = reference;
    refDatabases::RefDatabases databases;
    databases.checkRefIndexes();
    if (databases.indexInfo().find("were updated on") == std::string::npos)
        throw std::runtime_error(databases.indexInfo());
}

std::vector<std::int32_t> keysOf(const std::string& database)
{
    const auto connection = bare::open(database, true);
    bare::Statement query(connection.get(), "SELECT veldakey FROM kvr_velda ORDER BY veldakey");
    std::vector<std::int32_t> keys;
    while (query.step())
        keys.push_back(query.number(0));
    return keys;
}

void removeAll()
{
    fs::remove_all(cacheFolder());
    fs::remove_all(folder());
}

} // namespace fixtures
