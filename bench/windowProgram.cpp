// zeph_bench_window start: the program up to its painted main screen, then the end without any clearing up.
// zeph_bench_window list DATABASE ROWS: the list up to its painted rows; prints how far the memory of the
// process grew for it at its height, in kilobytes.
#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "paintedList.h"
#include "widgets/application.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

// A figure of the process in kilobytes.
long memoryFigure(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":"))
            return std::stol(line.substr(name.size() + 1));
    }
    throw std::runtime_error(name + " is not told here");
}

void start()
{
    mainscreen::QtHost host;
    mainscreen::OpenScreen screen(host);
    const PaintCounter paintings(&screen);
    screen.show();
    while (paintings.count == 0)
        QApplication::processEvents();
    std::quick_exit(EXIT_SUCCESS);
}

void list(const std::string& database, int rows)
{
    PaintedList painted(database);
    const long before = memoryFigure("VmRSS");
    painted.refresh(rows);
    std::printf("%ld\n", memoryFigure("VmHWM") - before);
}

} // namespace

int main(int count, char** arguments)
try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const widgets::Application application(count, arguments);
    const std::string task = count > 1 ? arguments[1] : "";
    if (task == "start")
        start();
    if (task != "list" || count != 4)
        throw std::runtime_error("usage: zeph_bench_window start | list DATABASE ROWS");
    list(arguments[2], std::stoi(arguments[3]));
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
}
