#pragma once

#include <cstddef>
#include <functional>

namespace dao {

// Does an action for each number below the count, the lower ones first and a few at the same time, on threads
// of their own; waits for all of them. Throws the failure of the lowest number that has one.
void sideBySide(std::size_t count, const std::function<void(std::size_t number)>& action);

} // namespace dao
