#include "sessions/scriptHead.h"

#include "play/script.h"

#include <sstream>
#include <stdexcept>

namespace {

constexpr std::string_view mark = "#!";

void take(ScriptHead& head, const play::Command& line)
{
    const auto count = line.words.size();
    if (line.name.starts_with("--")) {
        head.options.push_back(line.name);
        head.options.insert(head.options.end(), line.words.begin(), line.words.end());
    } else if (line.name == "show" && count == 1)
        head.shownFiles.push_back(line.words[0]);
    else if (line.name == "remove" && count == 1)
        head.removedFiles.push_back(line.words[0]);
    else if (line.name == "folder" && count == 1)
        head.folders.push_back(line.words[0]);
    else if (line.name == "copy" && count == 2)
        head.copies.push_back({line.words[0], line.words[1]});
    else if (line.name == "text" && count == 2)
        head.texts.push_back({line.words[0], line.words[1]});
    else if (line.name == "sql" && count == 2)
        head.statements.push_back({line.words[0], line.words[1]});
    else if (line.name == "status" && count == 1)
        head.status = std::stoi(line.words[0]);
    else
        throw std::runtime_error("not understood: " + line.line);
}

} // namespace

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
