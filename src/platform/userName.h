#pragma once

#include <optional>
#include <string>

namespace platform {

// The name of the user as the host's account database gives it, never from an environment variable; empty
// when the host has none.
[[nodiscard]] std::string hostUserName();
// Another name in its place, or the host's again.
void setHostUserName(std::optional<std::string> name);

} // namespace platform
