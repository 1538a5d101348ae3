#include "play/sessionValues.h"

#include "mainscreen/openScreen.h"
#include "model/session.h"

#include <algorithm>
#include <array>

namespace play {

namespace {

const mainscreen::OpenScreen& screenOf(const Stage& stage)
{
    if (stage.screen == nullptr)
        throw Refusal("no main screen");
    return *stage.screen;
}

std::string text(bool value)
{
    return value ? "-1" : "0";
}

std::string text(const std::vector<std::int32_t>& numbers)
{
    std::string line;
    for (const auto number : numbers)
        line += (line.empty() ? "" : " ") + std::to_string(number);
    return line;
}

struct SessionValue
{
    const char* name;
    std::string (*get)(const Stage& stage);
};

constexpr std::array sessionValues = {
    // clang-format off
    SessionValue{"keyArray",          [](const Stage&) { return text(session::keyArray); }},
    SessionValue{"keyCount",          [](const Stage&) { return std::to_string(session::keyCount); }},
    SessionValue{"currentIndex",      [](const Stage&) { return std::to_string(session::currentIndex); }},
    SessionValue{"currentVeldaKey",   [](const Stage&) { return std::to_string(session::currentVeldaKey); }},
    SessionValue{"currentGeoKey",     [](const Stage&) { return std::to_string(session::currentGeoKey); }},
    SessionValue{"currentTargetKey",  [](const Stage&) { return std::to_string(session::currentTargetKey); }},
    SessionValue{"firstKey",          [](const Stage&) { return std::to_string(session::firstKey); }},
    SessionValue{"lastKey",           [](const Stage&) { return std::to_string(session::lastKey); }},
    SessionValue{"electFileName",     [](const Stage&) { return session::electFileName; }},
    SessionValue{"workingDbPath",     [](const Stage&) { return session::workingDbPath; }},
    SessionValue{"referenceDbPath",   [](const Stage&) { return session::referenceDbPath; }},
    SessionValue{"dbStatus",          [](const Stage&) { return session::dbStatus; }},
    SessionValue{"ntcChanged",        [](const Stage&) { return text(session::ntcChanged); }},
    SessionValue{"currentScreenType", [](const Stage&) { return session::currentScreenType; }},
    SessionValue{"language",          [](const Stage&) { return session::language; }},
    SessionValue{"dbName",            [](const Stage& stage) { return screenOf(stage).dbName(); }},
    SessionValue{"keysValid",         [](const Stage& stage) { return text(screenOf(stage).keysValid()); }},
    SessionValue{"indexInfo",         [](const Stage& stage) { return screenOf(stage).indexInfo(); }},
    SessionValue{"whereClause",       [](const Stage& stage) { return screenOf(stage).whereClause(); }},
    SessionValue{"noticeQuery",       [](const Stage& stage) { return screenOf(stage).buildNoticeQuery(); }},
}; // clang-format on

} // namespace

std::string sessionValue(const Stage& stage, const std::string& name)
{
    const auto* const value =
        std::find_if(sessionValues.begin(), sessionValues.end(),
                     [&](const SessionValue& candidate) { return candidate.name == name; });
    if (value == sessionValues.end())
        throw Refusal("no session value " + name);
    return value->get(stage);
}

} // namespace play
