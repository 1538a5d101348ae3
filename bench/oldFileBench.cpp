#include "childProgram.h"
#include "fixtures.h"
#include "jet/jetFile.h"
#include "registry.h"

#include <filesystem>

namespace {

using benchmark::State;
namespace fs = std::filesystem;

constexpr int rowsRead = 1'000'000;

std::vector<std::string> filesOf(int assignments)
{
    const fs::path folder = fixtures::oldReferenceSet(assignments);
    std::vector<std::string> files;
    for (const auto* name : {"VELDABASEBETA.mdb", "VELDAKVR1.mdb", "VELDAKVR3.mdb"})
        files.push_back((folder / name).string());
    return files;
}

// Every value but Nulls, by the type of its column, as whoever takes over the rows asks for them.
void readValues(const jet::Rows& row, const std::vector<jet::Type>& types)
{
    for (std::size_t column = 0; column < types.size(); ++column) {
        if (row.isNull(column))
            continue;
        switch (types[column]) {
        case jet::Type::Text:
            benchmark::DoNotOptimize(row.text(column));
            break;
        case jet::Type::Double:
            benchmark::DoNotOptimize(row.number(column));
            break;
        default:
            benchmark::DoNotOptimize(row.integer(column));
        }
    }
}

void readRows(State& state)
{
    const jet::File file(filesOf(rowsRead).back());
    const auto table = file.table("kvr_velda");
    std::vector<jet::Type> types;
    for (const auto& column : table.columns)
        types.push_back(column.type);
    for ([[maybe_unused]] auto turn : state) {
        int count = 0;
        for (auto rows = file.rows(table); rows.next(); ++count)
            readValues(rows, types);
        if (count != rowsRead || types.size() != 30)
            state.SkipWithError("not all rows were read");
    }
    state.counters["rows/s"] = benchmark::Counter(rowsRead, benchmark::Counter::kIsIterationInvariantRate);
}

// An empty folder for what a conversion makes; removed at the end.
class EmptyFolder
{
public:
    explicit EmptyFolder(const std::string& name) : m_path(fs::path(fixtures::cacheFolder()) / name)
    {
        fs::remove_all(m_path);
        fs::create_directories(m_path);
    }
    ~EmptyFolder()
    {
        std::error_code ignored; // it goes with the whole folder
        fs::remove_all(m_path, ignored);
    }
    EmptyFolder(const EmptyFolder&) = delete;
    EmptyFolder& operator=(const EmptyFolder&) = delete;

    [[nodiscard]] std::string path() const { return m_path.string(); }
    [[nodiscard]] std::vector<std::string> files() const
    {
        std::vector<std::string> paths;
        for (const auto& entry : fs::directory_iterator(m_path))
            paths.push_back(entry.path().string());
        return paths;
    }

private:
    fs::path m_path;
};

childProgram::Run convert(const std::string& task, const EmptyFolder& target,
                          const std::vector<std::string>& files)
{
    std::vector<std::string> arguments = {task, target.path()};
    arguments.insert(arguments.end(), files.begin(), files.end());
    return childProgram::run("zeph_bench_convert", arguments);
}

void tell(State& state, const childProgram::Run& run)
{
    state.SetIterationTime(run.cpuSeconds);
    state.counters["real_ms"] = run.realSeconds * 1000;
    state.counters["peak_MB"] = std::stod(run.line) / 1024;
}

void convertByProduct(State& state, int assignments)
{
    const auto files = filesOf(assignments);
    for ([[maybe_unused]] auto turn : state) {
        const EmptyFolder caches("caches");
        tell(state, convert("product", caches, files));
        if (caches.files().size() != files.size())
            state.SkipWithError("not each file was converted");
    }
}

void convertByFloor(State& state, int assignments)
{
    const EmptyFolder finished("finished");
    convert("product", finished, filesOf(assignments));
    for ([[maybe_unused]] auto turn : state)
        tell(state, convert("floor", EmptyFolder("copies"), finished.files()));
}

} // namespace

void registry::addOldFiles()
{
    add({"oldRead", benchmark::kMillisecond, readRows});
    for (const int size : fixtures::oldSetSizes()) {
        const auto assignments = std::to_string(size);
        add({"oldConvert/ours/" + assignments, benchmark::kMillisecond,
             [size](State& state) { convertByProduct(state, size); }, 1, 3, true});
        add({"oldConvert/floor/" + assignments, benchmark::kMillisecond,
             [size](State& state) { convertByFloor(state, size); }, 1, 3, true});
        compare({"converting " + assignments + " assignments", "oldConvert/ours/" + assignments,
                 "oldConvert/floor/" + assignments, 0});
    }
}
