#include "platform/runtimeError.h"
#include "tools/referenceSet.h"

#include <charconv>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

// Makes a reference set of invented assignments.

namespace {

constexpr std::string_view usage =
    "usage: makeReference --assignments N --seed S [--notices FILE [--once]] [--no-indexes]\n"
    "                     [--expected FILE] FOLDER\n"
    "       makeReference --dump FOLDER\n"
    "\n"
    "The first form makes the files VELDABASEBETA.mdb, VELDAKVR1.mdb and VELDAKVR3.mdb in FOLDER, with N\n"
    "recorded assignments and pending notices that depend on the seed and on the notices alone. With "
    "--notices\n"
    "the notices SUPPRESS and WITHDRAW of an electronic notice file, by turns, are answered once, several "
    "times\n"
    "or not at all; with --once each is answered once. --no-indexes leaves out the indexes GeoIndex and\n"
    "VeldaIndex. --expected writes what each of these notices finds: its number, how many assignments "
    "answer\n"
    "it, and the name of the site and the country of the only one, parted by tabs.\n"
    "The second form writes all rows of a set to the standard output.\n";

struct UsageError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct CommandLine
{
    std::optional<int> assignments;
    std::optional<std::uint64_t> seed;
    std::string notices, expected, folder;
    bool once = false, withoutIndexes = false, dump = false;
};

constexpr int mostAssignments = 100'000'000;

template <class Number>
Number numberFrom(std::string_view text, std::string_view option, Number most)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 0 || number > most)
        throw UsageError(std::string(option) + " does not take '" + std::string(text) + "'");
    return number;
}

bool takeFlag(CommandLine& line, std::string_view argument)
{
    bool* flag = argument == "--once"         ? &line.once
                 : argument == "--no-indexes" ? &line.withoutIndexes
                 : argument == "--dump"       ? &line.dump
                                              : nullptr;
    if (flag == nullptr)
        return false;
    *flag = true;
    return true;
}

void takeOption(CommandLine& line, std::string_view option, std::string_view value)
{
    if (option == "--assignments")
        line.assignments = numberFrom<int>(value, option, mostAssignments);
    else if (option == "--seed")
        line.seed = numberFrom<std::uint64_t>(value, option, UINT64_MAX);
    else if (option == "--notices")
        line.notices = value;
    else if (option == "--expected")
        line.expected = value;
    else
        throw UsageError("there is no option " + std::string(option));
}

void checkTogether(const CommandLine& line)
{
    if (line.folder.empty())
        throw UsageError("no folder is named");
    const bool makes = line.assignments || line.seed || line.once || line.withoutIndexes ||
                       !line.notices.empty() || !line.expected.empty();
    if (line.dump && makes)
        throw UsageError("--dump goes with no other option");
    if (!line.dump && !(line.assignments && line.seed))
        throw UsageError("--assignments and --seed are needed");
    if (line.notices.empty() && (line.once || !line.expected.empty()))
        throw UsageError("--once and --expected need --notices");
}

CommandLine commandLineFrom(const std::vector<std::string_view>& arguments)
{
    CommandLine line;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const auto argument = arguments[at];
        if (takeFlag(line, argument))
            continue;
        if (argument.starts_with("--")) {
            if (++at == arguments.size())
                throw UsageError(std::string(argument) + " needs a value");
            takeOption(line, argument, arguments[at]);
        } else if (line.folder.empty()) {
            line.folder = argument;
        } else {
            throw UsageError("more than one folder is named");
        }
    }
    checkTogether(line);
    return line;
}

// The file appears when it is whole.
void writeExpected(const std::string& path, const std::vector<referenceRows::ActingNotice>& notices,
                   const std::vector<referenceRows::Answer>& answers)
{
    const auto fresh = path + ".new";
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    for (std::size_t place = 0; place < notices.size(); ++place) {
        const auto& [count, site_name, ctry] = answers[place];
        file << notices[place].number << '\t' << count << '\t' << (count == 1 ? site_name : "") << '\t'
             << (count == 1 ? ctry : "") << '\n';
    }
    file.close();
    if (!file) {
        std::error_code ignored;
        std::filesystem::remove(fresh, ignored);
        throw std::runtime_error("cannot write " + path);
    }
    std::filesystem::rename(fresh, path);
}

void run(const CommandLine& line)
{
    if (line.dump) {
        referenceSet::dump(line.folder, std::cout);
        if (!std::cout.flush())
            throw std::runtime_error("cannot write the rows");
        return;
    }
    referenceRows::Options options{*line.assignments, *line.seed, {}, line.once};
    if (!line.notices.empty())
        options.notices = actingNotices::readFile(line.notices);
    const auto answers = referenceSet::write(line.folder, options, !line.withoutIndexes);
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
        std::cerr << "makeReference: " << error.what() << "\n" << usage;
        return 2;
    } catch (const platform::RuntimeError& failure) {
        std::cerr << "makeReference: " << platform::errorMessage(failure) << '\n';
        return 1;
    } catch (const std::exception& error) {
        std::cerr << "makeReference: " << error.what() << "\n";
        return 1;
    }
}
