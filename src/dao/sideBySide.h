#pragma once

#include <cstddef>
#include <functional>

namespace dao {

// Does an action for each number below the count, the lower ones first and a few at the same time; waits for
// all of them. Where there is something to be done meanwhile, the caller's thread does this again and again
// and no action. Throws the failure of the lowest number that has one.
void sideBySide(std::size_t count, const std::function<void(std::size_t number)>& action,
                const std::function<void()>& meanwhile = {});

} // namespace dao
