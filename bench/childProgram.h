#pragma once

#include <string>
#include <vector>

// Programs of the benchmarks that run as processes of their own.
namespace childProgram {

struct Run
{
    std::string line;                       // the first that it printed
    double cpuSeconds = 0, realSeconds = 0; // from its start to its end
};

// Runs a program from the folder of this one. Throws when it failed.
Run run(const std::string& program, const std::vector<std::string>& arguments);

// A figure of this process in kilobytes, as the system names it ("VmHWM").
[[nodiscard]] long memoryFigure(const std::string& name);

} // namespace childProgram
