// zeph_bench_convert product FOLDER FILE...: old files as files of the engine in the cache folder FOLDER, as
// the first query of each makes them. zeph_bench_convert floor FOLDER FILE...: the bare engine copies such
// finished files into FOLDER, row by row, and makes their indexes anew. Both print the memory of the process
// at its height, in kilobytes.
#include "bare.h"
#include "childProgram.h"
#include "dao/jetCache.h"
#include "platform/paths.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr auto settings = "PRAGMA page_size=4096; PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF; "
                          "PRAGMA locking_mode=EXCLUSIVE; PRAGMA cache_size=-32768; PRAGMA threads=1";

// The columns of a question about the finished file.
std::vector<std::string> answersTo(sqlite3* connection, const std::string& question)
{
    std::vector<std::string> answers;
    for (bare::Statement query(connection, question); query.step();)
        answers.emplace_back(query.text(0));
    return answers;
}

void copyByFloor(const std::string& finished, const std::string& copy)
{
    sqlite3* handle = nullptr;
    sqlite3_open_v2(copy.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const bare::Connection connection(handle);
    bare::execute(handle, settings);
    bare::execute(handle, ("ATTACH '" + finished + "' AS finished; BEGIN").c_str());
    const std::string from = " FROM finished.sqlite_schema WHERE sql NOTNULL AND name NOT LIKE 'sqlite%' ";
    for (const auto& definition : answersTo(handle, "SELECT sql" + from + "AND type = 'table'"))
        bare::execute(handle, definition.c_str());
    // The condition keeps the engine from copying whole rows as they lie there.
    for (const auto& table : answersTo(handle, "SELECT name" + from + "AND type = 'table'")) {
        std::string copying = "INSERT INTO main.\"";
        copying.append(table).append("\" SELECT * FROM finished.\"").append(table).append("\" WHERE true");
        bare::execute(handle, copying.c_str());
    }
    for (const auto& definition : answersTo(handle, "SELECT sql" + from + "AND type = 'index'"))
        bare::execute(handle, definition.c_str());
    bare::execute(handle, "PRAGMA analysis_limit=1000; ANALYZE main; COMMIT");
}

void run(const std::string& task, const fs::path& folder, const std::vector<std::string>& files)
{
    platform::setUserCacheDirectory(folder);
    if (task == "product") {
        static_cast<void>(dao::cachesOf(files));
    } else {
        for (const auto& file : files)
            copyByFloor(file, (folder / fs::path(file).filename()).string());
    }
    std::printf("%ld\n", childProgram::memoryFigure("VmHWM"));
}

} // namespace

int main(int count, char** arguments)
try {
    if (count < 4)
        throw std::runtime_error("usage: zeph_bench_convert product|floor FOLDER FILE...");
    run(arguments[1], arguments[2], {arguments + 3, arguments + count});
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
}
