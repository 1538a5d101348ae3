#include "sessions/scriptHead.h"

#include "play/script.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace {

constexpr std::string_view mark = "#!";

using Words = std::vector<std::string>;

struct Directive
{
    std::string_view name;
    std::size_t words;
    void (*take)(ScriptHead& head, const Words& words);
};

// clang-format off
constexpr std::array directives = {
    Directive{"show",      1, [](ScriptHead& head, const Words& w) { head.shownFiles.push_back({w[0], ""}); }},
    Directive{"show",      2, [](ScriptHead& head, const Words& w) { head.shownFiles.push_back({w[0], w[1]}); }},
    Directive{"remove",    1, [](ScriptHead& head, const Words& w) { head.removedFiles.push_back(w[0]); }},
    Directive{"folder",    1, [](ScriptHead& head, const Words& w) { head.folders.push_back(w[0]); }},
    Directive{"copy",      2, [](ScriptHead& head, const Words& w) { head.copies.push_back({w[0], w[1]}); }},
    Directive{"link",      2, [](ScriptHead& head, const Words& w) { head.links.push_back({w[0], w[1]}); }},
    Directive{"text",      2, [](ScriptHead& head, const Words& w) { head.texts.push_back({w[0], w[1]}); }},
    Directive{"sql",       2, [](ScriptHead& head, const Words& w) { head.statements.push_back({w[0], w[1]}); }},
    Directive{"query",     2, [](ScriptHead& head, const Words& w) { head.queries.push_back({w[0], w[1]}); }},
    Directive{"cut",       2, [](ScriptHead& head, const Words& w) { head.cuts.push_back({w[0], std::stoul(w[1])}); }},
    Directive{"byte",      3, [](ScriptHead& head, const Words& w) {
        head.changedBytes.push_back({w[0], std::stoul(w[1]), static_cast<char>(std::stoi(w[2]))}); }},
    Directive{"unchanged", 1, [](ScriptHead& head, const Words& w) { head.unchangedFiles.push_back(w[0]); }},
    Directive{"status",    1, [](ScriptHead& head, const Words& w) { head.status = std::stoi(w[0]); }},
}; // clang-format on

void take(ScriptHead& head, const play::Command& line)
{
    if (line.name.starts_with("--")) {
        head.options.push_back(line.name);
        head.options.insert(head.options.end(), line.words.begin(), line.words.end());
        return;
    }
    const auto* const known = std::find_if(directives.begin(), directives.end(), [&](const auto& directive) {
        return directive.name == line.name && directive.words == line.words.size();
    });
    if (known == directives.end())
        throw std::runtime_error("not understood: " + line.line);
    known->take(head, line.words);
}

} // namespace

std::vector<std::string> sessionsOf(const std::string& script)
{
    std::vector<std::string> sessions(1);
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);) {
        if (line == "#! again")
            sessions.emplace_back();
        else
            sessions.back() += line + '\n';
    }
    return sessions;
}

ScriptHead readHead(const std::string& script)
{
    ScriptHead head;
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(mark))
            continue;
        for (const auto& command : play::parseScript(line.substr(mark.size())))
            take(head, command);
    }
    return head;
}
