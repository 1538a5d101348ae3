#pragma once

#include "jet/jetFile.h"
#include "platform/runtimeError.h"

#include <string_view>

namespace dao {

// The engine's failure for one of the reader of old files. `name` is the file's path, or the name of the
// table that was asked for.
[[nodiscard]] platform::RuntimeError engineFailure(const jet::Error& error, std::string_view name);

// Runs an action; a failure of the reader in it becomes the engine's.
template <class Action>
auto withEngineFailures(std::string_view name, const Action& action)
{
    try {
        return action();
    } catch (const jet::Error& error) {
        throw engineFailure(error, name);
    }
}

} // namespace dao
