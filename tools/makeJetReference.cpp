#include "tools/jetReference.h"

#include <charconv>
#include <exception>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

// Makes a reference set of invented assignments as files of the original engine.

namespace {

constexpr std::string_view usage =
    "usage: makeJetReference --assignments N --seed S [--notices FILE [--expected FILE]] [--no-indexes] "
    "FOLDER\n"
    "\n"
    "Makes VELDABASEBETA.mdb, VELDAKVR1.mdb and VELDAKVR3.mdb in FOLDER, as makeReference does, but in the "
    "third\n"
    "version of the original engine's files: the same assignments for the same seed and notices.\n";

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct CommandLine
{
    std::optional<std::uint64_t> assignments, seed;
    std::string notices, expected, folder;
    bool withIndexes = true;
};

constexpr std::uint64_t mostAssignments = 5'000'000; // a file of this kind ends at 1 GB

std::uint64_t numberFrom(std::string_view text, std::string_view option)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        throw UsageError(std::string(option) + " does not take '" + std::string(text) + "'");
    return number;
}

void takeOption(CommandLine& line, std::string_view option, std::string_view value)
{
    if (option == "--assignments")
        line.assignments = numberFrom(value, option);
    else if (option == "--seed")
        line.seed = numberFrom(value, option);
    else if (option == "--notices")
        line.notices = value;
    else if (option == "--expected")
        line.expected = value;
    else
        throw UsageError("there is no option " + std::string(option));
}

CommandLine commandLineFrom(const std::vector<std::string_view>& arguments)
{
    CommandLine line;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const auto argument = arguments[at];
        if (argument == "--no-indexes") {
            line.withIndexes = false;
        } else if (argument.starts_with("--")) {
            if (++at == arguments.size())
                throw UsageError(std::string(argument) + " needs a value");
            takeOption(line, argument, arguments[at]);
        } else if (line.folder.empty()) {
            line.folder = argument;
        } else {
            throw UsageError("more than one folder is named");
        }
    }
    if (line.folder.empty() || !line.assignments || !line.seed)
        throw UsageError("--assignments, --seed and a folder are needed");
    if (*line.assignments > mostAssignments)
        throw UsageError("so many assignments do not fit into such files");
    if (line.notices.empty() && !line.expected.empty())
        throw UsageError("--expected needs --notices");
    return line;
}

void writeExpected(const std::string& path, const std::vector<referenceRows::ActingNotice>& notices,
                   const std::vector<referenceRows::Answer>& answers)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (std::size_t place = 0; place < notices.size(); ++place) {
        const auto& [count, site_name, ctry] = answers[place];
        file << notices[place].number << '\t' << count << '\t' << (count == 1 ? site_name : "") << '\t'
             << (count == 1 ? ctry : "") << '\n';
    }
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
}

void run(const CommandLine& line)
{
    referenceRows::Options options{static_cast<int>(*line.assignments), *line.seed, {}, false};
    if (!line.notices.empty())
        options.notices = actingNotices::readFile(line.notices);
    const auto answers = jetReference::write(line.folder, options, line.withIndexes);
    if (!line.expected.empty())
        writeExpected(line.expected, options.notices, answers);
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        run(commandLineFrom({argv + 1, argv + argc}));
        return 0;
    } catch (const UsageError& error) {
        std::cerr << "makeJetReference: " << error.what() << "\n" << usage;
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "makeJetReference: " << error.what() << "\n";
        return 1;
    }
}
