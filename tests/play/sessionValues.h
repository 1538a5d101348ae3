#pragma once

#include "play/stage.h"

#include <string>

namespace play {

// The text of a session value or of one of the main screen's own; refuses for an unknown name. Booleans are
// -1 and 0.
[[nodiscard]] std::string sessionValue(const Stage& stage, const std::string& name);

} // namespace play
