#pragma once

#include "jet/pageFile.h"

namespace jet {

// The table whose definition begins on that page; without a name.
[[nodiscard]] Table readTableDefinition(std::uint32_t page, const PageFile& file);

} // namespace jet
