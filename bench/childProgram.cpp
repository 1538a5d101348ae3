#include "childProgram.h"

#include "platform/paths.h"

#include <sys/resource.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace childProgram {

namespace {

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

std::string firstLineOf(const std::string& command)
{
    std::FILE* const pipe = popen(command.c_str(), "r");
    std::array<char, 64> line{};
    const bool any = pipe != nullptr && std::fgets(line.data(), line.size(), pipe) != nullptr;
    if (pipe == nullptr || pclose(pipe) != 0)
        throw std::runtime_error(command + " has failed");
    return any ? line.data() : "";
}

} // namespace

Run run(const std::string& program, const std::vector<std::string>& arguments)
{
    auto command = "'" + platform::programDirectory() + "/" + program + "'";
    for (const auto& argument : arguments)
        command += " '" + argument + "'";
    const auto begin = std::chrono::steady_clock::now();
    const double cpu = cpuSecondsOfChildren();
    auto line = firstLineOf(command + " 2>/dev/null");
    return {std::move(line), cpuSecondsOfChildren() - cpu,
            std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count()};
}

long memoryFigure(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":"))
            return std::stol(line.substr(name.size() + 1));
    }
    throw std::runtime_error(name + " is not told here");
}

} // namespace childProgram
