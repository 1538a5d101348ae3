#include "tools/noticeGenerator.h"
#include "tools/sampleFile.h"

#include <charconv>
#include <cstdint>
#include <exception>
#include <iostream>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

// Writes an electronic notice file of invented notices.

namespace {

constexpr std::string_view usage =
    "usage: makeNotices --count N --seed S [--shape diverse|one-frequency|one-position|identical]\n"
    "                   [--start N] OUTFILE\n"
    "       makeNotices --sample OUTFILE\n"
    "\n"
    "The first form writes N notices that depend on the seed alone. --start gives the number of the first\n"
    "notice, so that several files of one seed can follow one another. --sample writes the twelve notices\n"
    "that are kept as data/samples/sample12.txt.\n";

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct CommandLine
{
    noticeGenerator::FileOptions options;
    bool sample = false;
    std::string path;
};

template <class Number>
Number numberFrom(std::string_view text, std::string_view option, Number least)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < least)
        throw UsageError(std::string(option) + " does not take '" + std::string(text) + "'");
    return number;
}

noticeGenerator::Shape shapeFrom(std::string_view text)
{
    using noticeGenerator::Shape;
    if (text == "diverse")
        return Shape::Diverse;
    if (text == "one-frequency")
        return Shape::OneFrequency;
    if (text == "one-position")
        return Shape::OnePosition;
    if (text == "identical")
        return Shape::Identical;
    throw UsageError("there is no shape '" + std::string(text) + "'");
}

CommandLine commandLineFrom(const std::vector<std::string_view>& arguments)
{
    CommandLine line;
    std::optional<int> count;
    std::optional<std::uint64_t> seed;
    bool shaped = false;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string_view argument = arguments[at];
        if (argument == "--sample") {
            line.sample = true;
            continue;
        }
        if (!argument.starts_with("--")) {
            if (!line.path.empty())
                throw UsageError("more than one file is named");
            line.path = argument;
            continue;
        }
        if (++at == arguments.size())
            throw UsageError(std::string(argument) + " needs a value");
        if (argument == "--count")
            count = numberFrom<int>(arguments[at], argument, 0);
        else if (argument == "--seed")
            seed = numberFrom<std::uint64_t>(arguments[at], argument, 0);
        else if (argument == "--start")
            line.options.start = numberFrom<int>(arguments[at], argument, 1);
        else if (argument == "--shape")
            line.options.shape = shapeFrom(arguments[at]);
        else
            throw UsageError("there is no option " + std::string(argument));
        shaped = true;
    }
    if (line.path.empty())
        throw UsageError("no file is named");
    if (line.sample && shaped)
        throw UsageError("--sample goes with no other option");
    if (!line.sample && !(count && seed))
        throw UsageError("--count and --seed are needed");
    line.options.count = count.value_or(0);
    if (line.options.count > std::numeric_limits<int>::max() - line.options.start)
        throw UsageError("--start and --count together are too large");
    line.options.seed = seed.value_or(0);
    return line;
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        const CommandLine line = commandLineFrom({argv + 1, argv + argc});
        if (line.sample)
            sampleFile::write(line.path);
        else
            noticeGenerator::writeNoticeFile(line.path, line.options);
        return 0;
    } catch (const UsageError& error) {
        std::cerr << "makeNotices: " << error.what() << "\n" << usage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "makeNotices: " << error.what() << "\n";
        return 1;
    }
}
