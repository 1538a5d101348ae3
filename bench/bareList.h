#pragma once

#include "bare.h"

#include <array>
#include <cstdint>
#include <vector>

namespace bare {

// A row of the list. A missing number is 0 and its bit in `given` unset; a text ends where `ends` says.
struct ListRow
{
    double frequency = 0;
    std::int32_t key = 0;
    std::array<std::int32_t, 6> position{};
    std::array<std::uint32_t, 11> ends{};
    std::uint32_t given = 0; // a bit a column
};

struct NoticeListRows
{
    std::vector<ListRow> rows;
    std::string texts;
    std::vector<std::int32_t> keys;
};

[[nodiscard]] NoticeListRows readList(Statement& query);

} // namespace bare
