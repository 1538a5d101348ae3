#include "screens/screenType.h"

#include <algorithm>
#include <array>

namespace screens {

namespace {

constexpr std::array<std::string_view, screenTypes> names{"T11", "T12", "T13", "T14"};

} // namespace

std::string_view typeName(ScreenType type)
{
    return names.at(static_cast<std::size_t>(type));
}

std::optional<ScreenType> screenOf(std::string_view noticeType)
{
    const auto* const found = std::find(names.begin(), names.end(), noticeType);
    if (found == names.end())
        return std::nullopt;
    return static_cast<ScreenType>(found - names.begin());
}

} // namespace screens
