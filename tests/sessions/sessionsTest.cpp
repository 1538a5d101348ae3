// Each script of this folder is played in a folder of its own, and its transcript must be the one that stands
// beside it. With ZEPH_UPDATE_SESSIONS=1 in the environment the stored ones are written anew.
#ifndef _WIN32

#include "platform/ansiText.h"
#include "platform/paths.h"
#include "sessions/difference.h"
#include "sessions/scriptHead.h"
#include "sessions/stockFiles.h"
#include "support/temporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;

const fs::path scriptFolder = ZEPH_TEST_DIR "/sessions";

std::vector<std::string> scriptNames()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(scriptFolder)) {
        if (entry.path().extension() == ".play")
            names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

// Empty without the file.
std::string bytesOf(const fs::path& file)
{
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    if (stream)
        bytes << stream.rdbuf();
    return bytes.str();
}

std::string replaced(std::string text, const std::string& what, const std::string& with)
{
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

std::string shellWord(const std::string& word)
{
    return "'" + replaced(word, "'", "'\\''") + "'";
}

bool shallUpdate()
{
    const auto* const wish = std::getenv("ZEPH_UPDATE_SESSIONS");
    return wish != nullptr && std::string(wish) == "1";
}

// CR LF is what ends a line of the system's files; any other line end is shown.
std::string shownText(const std::string& bytes)
{
    std::string shown;
    std::istringstream lines(platform::ansiToUtf8(bytes));
    for (std::string line; std::getline(lines, line);) {
        const bool isCrLf = line.ends_with('\r');
        if (isCrLf)
            line.pop_back();
        shown += replaced(line, "\r", "\\r") + (lines.eof() ? "(no line end)" : isCrLf ? "" : "\\n") + '\n';
    }
    return shown;
}

class Session : public testing::TestWithParam<std::string>
{
protected:
    void prepare()
    {
        StockFiles(folder).make(script);
        for (const auto& [from, to] : head.copies)
            fs::copy_file(folder.file(from), placeOf(to), fs::copy_options::overwrite_existing);
        for (const auto& [name, text] : head.texts)
            std::ofstream(placeOf(name), std::ios::binary) << replaced(text, "\n", "\r\n");
        for (const auto& [name, sql] : head.statements)
            executeSql(folder.file(name), sql);
        for (const auto& name : head.removedFiles)
            fs::remove(folder.file(name));
        for (const auto& name : head.folders) {
            fs::remove(folder.file(name));
            fs::create_directories(folder.file(name));
        }
    }

    // In a folder that is there.
    [[nodiscard]] fs::path placeOf(const std::string& name) const
    {
        fs::path file = folder.file(name);
        fs::create_directories(file.parent_path());
        return file;
    }

    // Without a display, settings and formats of whoever runs the test.
    [[nodiscard]] std::string command() const
    {
        auto line = "cd " + shellWord(folder.path().string()) +
                    " && XDG_CONFIG_HOME=\"$PWD/settings\" QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 " +
                    shellWord(platform::programDirectory() + "/play") +
                    " --program-dir program --user operator --now '2026-01-02 03:04:05' --locale en_GB.UTF-8";
        for (const auto& option : head.options)
            line += ' ' + shellWord(option);
        return line + ' ' + shellWord((scriptFolder / (GetParam() + ".play")).string()) + " 2>stderr";
    }

    std::string play()
    {
        std::string transcript;
        auto* const pipe = popen(command().c_str(), "r");
        std::array<char, 4096> chunk{};
        while (std::fgets(chunk.data(), static_cast<int>(chunk.size()), pipe) != nullptr)
            transcript += chunk.data();
        const int ended = pclose(pipe);
        status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
        return transcript;
    }

    [[nodiscard]] std::string shownFiles() const
    {
        std::string shown;
        for (const auto& name : head.shownFiles) {
            const bool isThere = fs::exists(folder.file(name));
            shown += "== " + name + (isThere ? "\n" + shownText(folder.read(name)) : " is not there\n");
        }
        return shown;
    }

    TemporaryFolder folder;
    std::string script = bytesOf(scriptFolder / (GetParam() + ".play"));
    ScriptHead head = readHead(script);
    int status = -1;
};

} // namespace

TEST_P(Session, PrintsItsTranscript)
{
    prepare();
    const auto golden = scriptFolder / (GetParam() + ".expected");
    auto printed = play();
    printed += shownFiles();
    const auto transcript = replaced(printed, folder.path().string(), "%DIR%");
    EXPECT_EQ(status, head.status) << transcript << folder.read("stderr");
    if (shallUpdate())
        std::ofstream(golden, std::ios::binary) << transcript;
    ASSERT_TRUE(fs::exists(golden)) << "no stored transcript; this one was printed:\n" << transcript;
    const auto changes = difference(bytesOf(golden), transcript);
    EXPECT_TRUE(changes.empty()) << changes << folder.read("stderr");
}

INSTANTIATE_TEST_SUITE_P(Scripts, Session, testing::ValuesIn(scriptNames()),
                         [](const auto& script) { return script.param; });

#endif
