#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

// What is measured, and which measurements are set against one another at the end.
namespace registry {

struct Measure
{
    std::string name;
    benchmark::TimeUnit unit;
    std::function<void(benchmark::State&)> run;
    int iterations = 0; // 0: as many as the library takes
    int repetitions = 3;
    bool ownTime = false; // the measure takes the CPU time by itself
};

void add(const Measure& measure);

struct Ratio
{
    std::string label;
    std::string above, below; // names of measures
    double target = 0;        // 0: none
    bool wall = false;        // of the time that passes, not of the CPU time
};

void compare(const Ratio& ratio);

// The medians of all that ran, set against one another where both sides of a ratio ran.
void runAll();

// Of each file: registers its measures.
void addLoad();
void addOpening();
void addWriting();
void addChanges();
void addList();
void addRecord();
void addWindow();
void addCheck();
void addOldFiles();

} // namespace registry
