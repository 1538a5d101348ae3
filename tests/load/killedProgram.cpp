#ifndef _WIN32

#include "killedProgram.h"

#include "platform/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

// Starts the program that comes first; its output goes into the pipe.
pid_t start(std::vector<std::string> words, const std::array<int, 2>& told)
{
    std::vector<char*> arguments(words.size() + 1); // with the null behind them
    std::ranges::transform(words, arguments.begin(), [](std::string& word) { return word.data(); });
    const pid_t child = fork();
    if (child == 0) {
        dup2(told[1], STDOUT_FILENO);
        close(told[0]);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    close(told[1]);
    return child;
}

// False: nothing more comes.
bool readSome(int told, std::string& lines)
{
    std::array<char, 4096> chunk{};
    const auto length = read(told, chunk.data(), chunk.size());
    lines.append(chunk.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    return length > 0;
}

} // namespace

KilledProgram::KilledProgram(const std::string& name) : m_path(platform::programDirectory() + "/" + name) {}

int KilledProgram::kills()
{
    const char* given = std::getenv("ZEPH_KILLS");
    return given != nullptr ? std::atoi(given) : 20;
}

int KilledProgram::runAndKill(std::vector<std::string> files, int toldBefore, bool torn)
{
    files.insert(files.begin(), m_path);
    if (torn)
        files.emplace_back("torn");
    std::array<int, 2> told{};
    EXPECT_EQ(pipe(told.data()), 0);
    const pid_t child = start(std::move(files), told);
    std::string lines;
    while (std::count(lines.begin(), lines.end(), '\n') < toldBefore && readSome(told[0], lines))
        ;
    std::this_thread::sleep_for(std::chrono::microseconds(randomNumber(0, 3000)));
    kill(child, SIGKILL);
    while (readSome(told[0], lines))
        ;
    close(told[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << m_path << " ended before it was killed";
    const auto last = lines.rfind("Notice No: ", lines.rfind('\n'));
    return last == std::string::npos ? 0 : std::atoi(lines.c_str() + last + 11);
}

#endif
