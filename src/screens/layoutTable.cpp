#include "screens/layoutTable.h"

#include <algorithm>
#include <array>

namespace screens {

namespace {

struct Element
{
    std::string_view name;
    int index;
};

// clang-format off
constexpr auto elements = std::to_array<Element>({
    {"antDir", 0},    {"ctry", 0},     {"dUseDD", 0},  {"freq", 0},      {"gainMax", 0}, {"gainType", 0},
    {"noisTmp1", 0},  {"pwrant", 0},   {"pwrtype", 0}, {"siteName", 0},  {"trgOphhFr", 0}, {"Units1", 0},
    {"azmMax", 1},    {"beamwdth", 1}, {"elev", 1},    {"polar", 1},     {"Rctry1", 1},  {"rot", 1},
    {"trgOphhTo", 1},
});
// clang-format on

constexpr int zoneCharacters = 5;

} // namespace

std::span<const Group> groups()
{
    // clang-format off
    static const auto all = std::to_array<Group>({
        {onAll, 0, 0, "groupNotice",       "Notice",             noticeItems()},
        {onAll, 0, 1, "groupTarget",       "Target",             targetItems()},
        {onAll, 1, 0, "groupAssignment",   "Assignment",         assignmentItems()},
        {onAll, 2, 1, "groupStation",      "Station",            stationItems()},
        {onAll, 2, 1, "groupCoordination", "Coordination",       coordinationItems()},
        {onAll, 3, 0, "groupAntenna",      "Antenna",            antennaItems()},
        {onT11, 4, 1, "groupOtherEnd",     "Receiving stations", receivingStationsItems()},
        {onT12, 4, 0, "groupOtherEnd",     "Receiving area",     areaItems()},
        {onT13, 4, 0, "groupOtherEnd",     "Transmitting area",  areaItems()},
        {onAll, 4, 2, "groupRemarks",      "Remarks",             remarksItems()},
    });
    // clang-format on
    return all;
}

int zoneLimit(ScreenType screen, int zone)
{
    if (screen != ScreenType::T13)
        return zoneCharacters;
    switch (zone) {
    case 6:
        return 30;
    case 7:
    case 8:
    case 11:
        return 3;
    default:
        return zoneCharacters;
    }
}

int arrayIndex(std::string_view name)
{
    const auto* const found =
        std::find_if(elements.begin(), elements.end(), [name](const Element& e) { return e.name == name; });
    return found == elements.end() ? -1 : found->index;
}

} // namespace screens
