#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace screens {

// The four notice screens, by the type of notice that each shows.
enum class ScreenType : std::uint8_t
{
    T11,
    T12,
    T13,
    T14
};
inline constexpr int screenTypes = 4;

// "T11" to "T14".
[[nodiscard]] std::string_view typeName(ScreenType type);
// The screen of a notice_typ, compared exactly; nothing for any other type.
[[nodiscard]] std::optional<ScreenType> screenOf(std::string_view noticeType);

// The screens that a row of a table is for.
using ScreenSet = std::uint8_t;
inline constexpr ScreenSet onT11 = 1, onT12 = 2, onT13 = 4, onT14 = 8;
inline constexpr ScreenSet onAll = onT11 | onT12 | onT13 | onT14;
[[nodiscard]] constexpr bool contains(ScreenSet set, ScreenType type)
{
    return (set >> static_cast<int>(type) & 1) != 0;
}

} // namespace screens
