// zeph_bench [options of the benchmark library]: measures the product beside the bare engine.
// ZEPH_BENCH_LARGE=1 adds the measurements on 200,000 notices.
#include "fixtures.h"
#include "floorCheck.h"
#include "platform/paths.h"
#include "registry.h"
#include "widgets/application.h"

#include <cstdio>
#include <exception>

namespace {

// Repetitions of all benchmarks in a mixed order: what else the machine does then falls on both sides alike.
void initialize(int count, char** arguments)
{
    std::string mixed = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> all(arguments, arguments + count);
    all.insert(all.begin() + 1, mixed.data());
    auto allCount = static_cast<int>(all.size());
    benchmark::Initialize(&allCount, all.data());
    if (benchmark::ReportUnrecognizedArguments(allCount, all.data()))
        throw std::runtime_error("unknown option");
}

void run(int count, char** arguments)
{
    platform::setUserCacheDirectory(fixtures::cacheFolder()); // never the user's own
    initialize(count, arguments);
    checkFloors();
    std::printf("floor and product give the same rows and the same files\n");
    registry::addLoad();
    registry::addOpening();
    registry::addWriting();
    registry::addChanges();
    registry::addList();
    registry::addRecord();
    registry::addWindow();
    registry::addCheck();
    registry::addOldFiles();
    registry::runAll();
}

} // namespace

int main(int count, char** arguments)
{
    int status = 0;
    try {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        const widgets::Application application(arguments);
        run(count, arguments);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        status = 1;
    }
    fixtures::removeAll();
    return status;
}
