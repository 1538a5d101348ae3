#pragma once

#include "platform/hostFormat.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace play {

struct Options
{
    std::optional<std::string> programDirectory, user, locale, platform; // nothing: the host's
    std::optional<platform::LocalTime> now;                              // nothing: the running clock
    std::string script;                                                  // "-" for standard input
};

// Says what is wrong with the command line.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Throws UsageError.
[[nodiscard]] Options parseOptions(const std::vector<std::string>& arguments);

} // namespace play
