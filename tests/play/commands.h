#pragma once

#include "play/script.h"
#include "play/stage.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

// What a script can say.
namespace play {

using Arguments = std::vector<std::string>;

struct CommandRow
{
    const char* name;
    std::size_t fewest, most; // words behind the name
    void (*run)(Stage& stage, const Arguments& arguments);
};

// Those that work the windows, and those that look at them or at the session.
[[nodiscard]] std::span<const CommandRow> handCommands();
[[nodiscard]] std::span<const CommandRow> lookCommands();

// Prints the command and does it. One that can't be done says why.
void execute(Stage& stage, const Command& command);

} // namespace play
