#include "play/commands.h"

#include <algorithm>

namespace play {

namespace {

const CommandRow* find(std::span<const CommandRow> rows, const std::string& name)
{
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const CommandRow& candidate) { return candidate.name == name; });
    return row != rows.end() ? &*row : nullptr;
}

const CommandRow& rowOf(const Command& command)
{
    if (!command.problem.empty())
        throw Refusal(command.problem);
    const auto* row = find(handCommands(), command.name);
    if (row == nullptr)
        row = find(lookCommands(), command.name);
    if (row == nullptr)
        throw Refusal("no command " + command.name);
    if (command.words.size() < row->fewest || command.words.size() > row->most)
        throw Refusal(command.name + ": wrong number of arguments");
    return *row;
}

} // namespace

void execute(Stage& stage, const Command& command)
{
    stage.transcript.line("> " + command.line);
    try {
        rowOf(command).run(stage, command.words);
    } catch (const Refusal& refusal) {
        stage.transcript.refuse(refusal.what());
    }
}

} // namespace play
