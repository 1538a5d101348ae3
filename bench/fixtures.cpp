#include "fixtures.h"

#include "bare.h"
#include "db/MainModule.h"
#include "load/readNtcAndWriteToDB.h"
#include "model/session.h"
#include "platform/paths.h"

#include "progress.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
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
        ++lines;
        progress::tell(std::atoi(line.c_str() + line.find(':') + 1)); // "Notice No: 7 is ..."
    }

    int lines = 0;
};

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
    static CountingHost host;
    session::electFileName = noticeFile;
    session::notice.d_rcv = dateOfReceipt;
    readNtcAndWriteToDB::openElectFile(session::notice);
    readNtcAndWriteToDB::loadElectFile(session::notice, database);
    return host.lines;
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
    fs::remove_all(folder());
}

} // namespace fixtures
