#pragma once

#include <string>
#include <string_view>
#include <vector>

// The script of a session: one command a line.
namespace play {

struct Command
{
    std::string line;               // as it stands, for the transcript
    std::string name;               // the first word
    std::vector<std::string> words; // the ones behind it
    std::string problem;            // why the line can't be read; empty for none
};

// Blank lines and lines that begin with "#" are no commands. Words are parted by blanks; one with blanks
// stands in double quotes, in which \" \\ \t and \n are known.
[[nodiscard]] std::vector<Command> parseScript(std::string_view text);

} // namespace play
