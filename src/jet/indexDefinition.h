#pragma once

#include "jet/byteView.h"

#include <functional>
#include <string>
#include <vector>

namespace jet {

// A real index has columns and a tree; a logical one has a name and a kind, and may share its real one.
struct IndexCounts
{
    std::uint32_t real = 0, logical = 0;
};

// The indexes of a definition that a user made. `take` gives the next bytes of the definition, `takeName` the
// next name. An index of which a column is gone is left out: its key can't be told.
[[nodiscard]] std::vector<Index> readIndexes(IndexCounts counts, Version version,
                                             const std::vector<Column>& columns,
                                             const std::function<ByteView(std::size_t)>& take,
                                             const std::function<std::string()>& takeName);

} // namespace jet
