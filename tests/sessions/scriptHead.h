#pragma once

#include <string>
#include <vector>

// What the runner of the sessions reads at the head of a script: lines that begin with "#!".
//     #! --user NAME --now "..."   options of play
//     #! show FILE                 the file's content behind the transcript
//     #! status N                  the exit status that is expected
//     #! remove FILE               is not there
//     #! folder FILE               a folder stands in its place
//     #! copy FILE NAME            a second one of a file
//     #! text FILE TEXT            a text file; "\n" ends a line of it
//     #! sql FILE STATEMENTS       changes a database, past the engine
// Files stand in the session's folder.
struct ScriptHead
{
    std::vector<std::string> options;
    std::vector<std::string> shownFiles, removedFiles, folders;
    struct Copy
    {
        std::string from, to;
    };
    std::vector<Copy> copies;
    struct Content
    {
        std::string file, text;
    };
    std::vector<Content> texts, statements;
    int status = 0;
};

// Throws std::runtime_error for a line that it doesn't know.
[[nodiscard]] ScriptHead readHead(const std::string& script);
