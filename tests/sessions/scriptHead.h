#pragma once

#include <string>
#include <vector>

// What the runner of the sessions reads at the head of a script: lines that begin with "#!".
//     #! --user NAME --now "..."   options of play
//     #! show FILE [TEXT]          the file's content behind the transcript; of its parts between empty lines
//                                  only those that have the text
//     #! status N                  the exit status that is expected
//     #! remove FILE               is not there
//     #! folder FILE               a folder stands in its place
//     #! copy FILE NAME            a second one of a file
//     #! link FILE NAME            another path to a file
//     #! text FILE TEXT            a text file; "\n" ends a line of it
//     #! sql FILE STATEMENTS       changes a database, past the engine
//     #! query FILE STATEMENT      the rows that it gives, past the engine, behind the transcript
//     #! cut FILE SIZE             the file ends there
//     #! byte FILE PLACE VALUE     one byte of it is another
//     #! unchanged FILE            whether it still has the bytes that the session found
//     #! again                     what follows is a session of its own that finds what this one left, with a
//                                  head of its own
// Files stand in the session's folder.
struct ScriptHead
{
    std::vector<std::string> options;
    struct Shown
    {
        std::string file, text;
    };
    std::vector<Shown> shownFiles;
    std::vector<std::string> removedFiles, folders;
    struct Copy
    {
        std::string from, to;
    };
    std::vector<Copy> copies, links;
    struct Content
    {
        std::string file, text;
    };
    std::vector<Content> texts, statements, queries;
    struct Cut
    {
        std::string file;
        std::size_t size;
    };
    std::vector<Cut> cuts;
    struct Byte
    {
        std::string file;
        std::size_t place;
        char value;
    };
    std::vector<Byte> changedBytes;
    std::vector<std::string> unchangedFiles;
    int status = 0;
};

// The sessions of a script, in turn.
[[nodiscard]] std::vector<std::string> sessionsOf(const std::string& script);

// Throws std::runtime_error for a line that it doesn't know.
[[nodiscard]] ScriptHead readHead(const std::string& script);
