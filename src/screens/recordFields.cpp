#include "screens/recordFields.h"

namespace screens::fields {

namespace {

using Names = std::vector<std::string>;

void add(Names& names, const Names& more)
{
    names.insert(names.end(), more.begin(), more.end());
}

// The first control of each row that is for the screen.
template <class Rows>
void addControls(Names& names, const Rows& rows, ScreenType type)
{
    for (const auto& row : rows) {
        if (contains(row.screens, type))
            names.emplace_back(row.control);
    }
}

template <class Rows>
void addPairs(Names& names, const Rows& rows, ScreenType type)
{
    for (const auto& row : rows) {
        if (!contains(row.screens, type))
            continue;
        names.emplace_back(row.control);
        if (row.unit)
            names.emplace_back(row.unit);
    }
}

template <class Rows>
void addTargets(Names& names, const Rows& rows, ScreenType type)
{
    for (const auto& row : rows) {
        if (!contains(row.screens, type))
            continue;
        names.emplace_back(row.target);
        if (row.targetUnit)
            names.emplace_back(row.targetUnit);
    }
}

void addDatesAndFrequencies(Names& names)
{
    for (const auto& row : dates)
        add(names, {row.day, row.month, row.year});
    for (const auto& row : frequencies)
        add(names, {row.control, row.unit});
}

void addCoordination(Names& names)
{
    names.emplace_back("coordProv");
    for (int number = 1; number <= coordinationBoxes; ++number)
        names.push_back(coordinationControl(number));
}

Names stationControls()
{
    auto names = stationOnlyControls();
    names.push_back(noiseControl(1));
    add(names, pointRowControls());
    return names;
}

// What tells of the other end of the link.
Names otherEndControls(ScreenType type)
{
    Names names;
    addControls(names, stationOptions, type);
    addControls(names, areaOptions, type);
    if (type == ScreenType::T11)
        add(names, stationControls());
    if (type == ScreenType::T12)
        add(names, pointRowControls());
    if (contains(onT12 | onT13, type)) {
        add(names, zoneControls());
        add(names, circleControls());
    }
    return names;
}

} // namespace

std::string coordinationControl(int number)
{
    return "cAdm" + std::to_string(number);
}

std::string zoneControl(int number)
{
    return "Rzone" + std::to_string(number);
}

std::string pointControl(const PositionRow& row, int number)
{
    return std::string("R") + row.name + std::to_string(number);
}

std::string circleControl(const PositionRow& row)
{
    return std::string("RC") + row.name;
}

std::string noiseControl(int number)
{
    return "noisTmp" + std::to_string(number);
}

std::string siteControl(int number)
{
    return "Rsite" + std::to_string(number);
}

std::string countryControl(int number)
{
    return "Rctry" + std::to_string(number);
}

Names noticeControls(ScreenType type)
{
    Names names{"TxtDateRcv", "TxtRemarks"};
    addControls(names, intents, type);
    addControls(names, provisions, type);
    addControls(names, resubmissions, type);
    addControls(names, noticeTexts, type);
    addControls(names, siteTexts, type);
    addControls(names, sitePointTexts, type);
    addControls(names, lists, type);
    addPairs(names, assignmentPairs, type);
    addPairs(names, positionPairs, type);
    addPairs(names, zonePairs, type);
    addDatesAndFrequencies(names);
    addCoordination(names);
    add(names, targetControls(type));
    return names;
}

Names targetControls(ScreenType type)
{
    Names names;
    addTargets(names, assignmentPairs, type);
    addTargets(names, positionPairs, type);
    addTargets(names, zonePairs, type);
    return names;
}

Names antennaControls(ScreenType type)
{
    Names names;
    addControls(names, antennaTexts, type);
    if (contains(withRotation, type))
        add(names, {"pwrMax", "rot", "max_fr", "max_to"});
    add(names, otherEndControls(type));
    return names;
}

Names controlsNotStored(ScreenType type)
{
    Names names;
    for (int number = coordinationsKept + 1; number <= coordinationBoxes; ++number)
        names.push_back(coordinationControl(number));
    if (contains(withRotation, type))
        names.emplace_back("pwrMax");
    if (contains(onT12 | onT13, type))
        for (int number = zonesKept + 1; number <= zoneBoxes; ++number)
            names.push_back(zoneControl(number));
    return names;
}

Names pointRowControls()
{
    Names names;
    for (int number = 1; number <= pointRows; ++number) {
        for (const auto& row : positions)
            names.push_back(pointControl(row, number));
    }
    return names;
}

Names zoneControls()
{
    Names names;
    for (int number = 1; number <= zoneBoxes; ++number)
        names.push_back(zoneControl(number));
    return names;
}

Names circleControls()
{
    Names names{"Rradius"};
    for (const auto& row : positions)
        names.push_back(circleControl(row));
    return names;
}

Names stationOnlyControls()
{
    Names names;
    for (int number = 1; number <= pointRows; ++number) {
        names.push_back(siteControl(number));
        names.push_back(countryControl(number));
        if (number > 1)
            names.push_back(noiseControl(number));
    }
    return names;
}

} // namespace screens::fields
