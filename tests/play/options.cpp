#include "play/options.h"

#include <array>
#include <cstdio>

namespace play {

namespace {

platform::LocalTime momentIn(const std::string& text)
{
    platform::LocalTime moment;
    int end = 0;
    // Each field has a fixed width, and the end is looked at.
    const int fields = std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d%n", &moment.year, &moment.month,
                                   &moment.day, &moment.hour, &moment.minute, &moment.second, &end);
    if (fields != 6 || static_cast<std::size_t>(end) != text.size())
        throw UsageError("no moment: " + text);
    return moment;
}

struct OptionRow
{
    const char* name;
    void (*set)(Options& options, const std::string& value);
};

constexpr std::array optionRows = {
    // clang-format off
    OptionRow{"--program-dir", [](Options& options, const std::string& value) { options.programDirectory = value; }},
    OptionRow{"--user",        [](Options& options, const std::string& value) { options.user = value; }},
    OptionRow{"--now",         [](Options& options, const std::string& value) { options.now = momentIn(value); }},
    OptionRow{"--locale",      [](Options& options, const std::string& value) { options.locale = value; }},
    OptionRow{"--platform",    [](Options& options, const std::string& value) { options.platform = value; }},
}; // clang-format on

const OptionRow* rowOf(const std::string& name)
{
    for (const auto& row : optionRows) {
        if (row.name == name)
            return &row;
    }
    return nullptr;
}

} // namespace

Options parseOptions(const std::vector<std::string>& arguments)
{
    Options options;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const auto* const row = rowOf(arguments[at]);
        if (row != nullptr && at + 1 == arguments.size())
            throw UsageError(arguments[at] + " wants a value");
        if (row != nullptr)
            row->set(options, arguments[++at]);
        else if (options.script.empty() && (arguments[at] == "-" || !arguments[at].starts_with('-')))
            options.script = arguments[at];
        else
            throw UsageError("not understood: " + arguments[at]);
    }
    if (options.script.empty())
        throw UsageError("no script");
    return options;
}

} // namespace play
