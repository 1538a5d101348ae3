#include "fixtures.h"
#include "paintedList.h"
#include "platform/paths.h"
#include "registry.h"

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace {

using benchmark::State;

// Runs the program of windows and gives what it prints.
std::string runWindow(const std::string& task)
{
    const auto command = "'" + platform::programDirectory() + "/zeph_bench_window' " + task + " 2>/dev/null";
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::array<char, 64> line{};
    const bool any = pipe != nullptr && std::fgets(line.data(), line.size(), pipe) != nullptr;
    if (pipe == nullptr || pclose(pipe) != 0)
        throw std::runtime_error(command + " has failed");
    return any ? line.data() : "";
}

// CPU time of the processes that have ended.
double cpuSecondsOfChildren()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void startProgram(State& state)
{
    double real = 0;
    for ([[maybe_unused]] auto turn : state) {
        const auto begin = std::chrono::steady_clock::now();
        const double cpu = cpuSecondsOfChildren();
        runWindow("start");
        state.SetIterationTime(cpuSecondsOfChildren() - cpu);
        real += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    }
    state.counters["real_ms"] = real / static_cast<double>(state.iterations());
}

void paintByProduct(State& state, int notices)
{
    const auto database = fixtures::loadedDatabase(fixtures::Shape::Diverse, notices);
    PaintedList list(database);
    list.refresh(notices);
    for ([[maybe_unused]] auto turn : state)
        list.refresh(notices);
    const auto kilobytes = runWindow("list '" + database + "' " + std::to_string(notices));
    state.counters["peak_MB"] = std::stod(kilobytes) / 1024;
}

// The time of a step; the first screen is told beside it.
void walkByProduct(State& state)
{
    constexpr int steps = 200;
    const auto database = fixtures::loadedDatabase(fixtures::Shape::Diverse, 1000);
    double first = 0;
    for ([[maybe_unused]] auto turn : state) {
        std::istringstream figures(runWindow("walk '" + database + "' " + std::to_string(steps)));
        double milliseconds = 0;
        double step = 0;
        figures >> milliseconds >> step;
        first += milliseconds;
        state.SetIterationTime(step * 1e-3);
    }
    state.counters["first_ms"] = first / static_cast<double>(state.iterations());
}

} // namespace

void registry::addWindow()
{
    add({"walk", benchmark::kMillisecond, walkByProduct, 3, 3, true});
    add({"start", benchmark::kMillisecond, startProgram, 5, 5, true});
    std::vector<int> sizes = {fixtures::fullFile};
    if (fixtures::withLarge())
        sizes.push_back(fixtures::large);
    for (const int size : sizes) {
        const auto notices = std::to_string(size);
        add({"paint/ours/" + notices, benchmark::kMillisecond,
             [size](State& state) { paintByProduct(state, size); }});
        compare({"painted list of " + notices, "paint/ours/" + notices, "list/floor/" + notices, 1.5});
    }
}
