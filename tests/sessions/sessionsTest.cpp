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

// What stands between empty lines and has `text`; all of it without a text.
std::string partsWith(const std::string& all, const std::string& text)
{
    if (text.empty())
        return all;
    constexpr std::string_view emptyLine = "\n\n";
    std::string parts;
    for (std::size_t at = 0; at < all.size();) {
        const auto next = all.find(emptyLine, at);
        const auto part = all.substr(at, next - at);
        if (part.find(text) != std::string::npos)
            parts += part + '\n';
        at = next == std::string::npos ? all.size() : next + emptyLine.size();
    }
    return parts;
}

class Session : public testing::TestWithParam<std::string>
{
protected:
    void prepare()
    {
        for (const auto& [from, to] : head.copies)
            fs::copy_file(folder.file(from), placeOf(to), fs::copy_options::overwrite_existing);
        for (const auto& [from, to] : head.links)
            fs::create_symlink(folder.file(from), placeOf(to));
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
        damageFiles();
        found.clear();
        for (const auto& name : head.unchangedFiles)
            found.push_back(folder.read(name));
    }

    void damageFiles() const
    {
        for (const auto& [name, size] : head.cuts)
            fs::resize_file(folder.file(name), size);
        for (const auto& [name, place, value] : head.changedBytes) {
            auto bytes = folder.read(name);
            bytes.at(place) = value;
            folder.write(name, bytes);
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
        return line + ' ' + shellWord(scriptPath) + " 2>stderr";
    }

    std::string play()
    {
        if (sessions.size() > 1)
            scriptPath = parts.write("part.play", part);
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
        for (const auto& [name, text] : head.shownFiles) {
            const bool isThere = fs::exists(folder.file(name));
            shown += "== " + name + (text.empty() ? "" : " with " + text);
            shown += isThere ? '\n' + partsWith(shownText(folder.read(name)), text) : " is not there\n";
        }
        return shown;
    }

    [[nodiscard]] std::string shownRows() const
    {
        std::string shown;
        for (const auto& [name, sql] : head.queries)
            shown += "== " + name + ": " + sql + '\n' + rowsOf(folder.file(name), sql);
        return shown;
    }

    [[nodiscard]] std::string shownChanges() const
    {
        std::string shown;
        for (std::size_t place = 0; place < found.size(); ++place) {
            const auto& name = head.unchangedFiles[place];
            const bool isSame = fs::exists(folder.file(name)) && folder.read(name) == found[place];
            (shown += "== ") += name;
            shown += isSame ? ": unchanged\n" : ": CHANGED\n";
        }
        return shown;
    }

    // One session and what it left.
    std::string playPart(const std::string& text)
    {
        part = text;
        head = readHead(part);
        prepare();
        auto printed = play();
        printed += shownFiles();
        printed += shownRows();
        printed += shownChanges();
        EXPECT_EQ(status, head.status) << printed << folder.read("stderr");
        EXPECT_FALSE(fs::exists(folder.file("settings"))) << "the program keeps none";
        return printed;
    }

    TemporaryFolder folder, parts;
    std::string scriptPath = (scriptFolder / (GetParam() + ".play")).string();
    std::string script = bytesOf(scriptPath);
    std::vector<std::string> sessions = sessionsOf(script);
    std::string part; // that is played
    ScriptHead head;
    std::vector<std::string> found; // the bytes of the files that shall stay unchanged
    int status = -1;
};

} // namespace

TEST_P(Session, PrintsItsTranscript)
{
    const auto golden = scriptFolder / (GetParam() + ".expected");
    StockFiles(folder).make(script);
    std::string printed;
    for (const auto& session : sessions)
        printed += playPart(session);
    const auto transcript = replaced(printed, folder.path().string(), "%DIR%");
    if (shallUpdate())
        std::ofstream(golden, std::ios::binary) << transcript;
    ASSERT_TRUE(fs::exists(golden)) << "no stored transcript; this one was printed:\n" << transcript;
    const auto changes = difference(bytesOf(golden), transcript);
    EXPECT_TRUE(changes.empty()) << changes << folder.read("stderr");
}

INSTANTIATE_TEST_SUITE_P(Scripts, Session, testing::ValuesIn(scriptNames()),
                         [](const auto& script) { return script.param; });

#endif
