#include "play/transcript.h"

#include "play/copyFault.h"

#include <array>
#include <cstdio>

namespace play {

namespace {

struct Escape
{
    char character;
    const char* written;
};

constexpr std::array escapes = {Escape{'\\', "\\\\"}, Escape{'"', "\\\""}, Escape{'\r', "\\r"},
                                Escape{'\n', "\\n"}, Escape{'\t', "\\t"}};

std::string written(char character)
{
    for (const auto& escape : escapes) {
        if (escape.character == character)
            return escape.written;
    }
    return {character};
}

} // namespace

void PrintedTranscript::put(const std::string& text)
{
    // The standard output may be a file too.
    const CopyFault::Pause pause;
    std::fputs((text + "\n").c_str(), stdout);
    std::fflush(stdout);
}

std::string quoted(const QString& text)
{
    std::string result = "\"";
    for (const char character : text.toStdString())
        result += written(character);
    return result + '"';
}

} // namespace play
