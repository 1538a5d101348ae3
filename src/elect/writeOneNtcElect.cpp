#include "elect/writeOneNtcElect.h"

#include "elect/keyTables.h"
#include "model/ScreenModule.h"
#include "platform/ansiText.h"
#include "platform/numberText.h"

#include <array>
#include <cstddef>

using namespace keyTables;
using ScreenModule::addKeyLine;

namespace writeOneNtcElect {
namespace {

constexpr std::string_view lineEnd = "\r\n";

void addLine(std::string& text, std::string_view line)
{
    text += line;
    text += lineEnd;
}

std::string valueForFile(const std::string& value, Form form)
{
    switch (form) {
    case Form::Time:
        return timeToFile(value);
    case Form::Date:
        return dateToFile(ScreenModule::formatDateDots(value));
    case Form::Text:
    case Form::Upper:
        break;
    }
    return value;
}

// The keys of one run of a table.
template <class Record, std::size_t N>
void addKeys(std::string& text, const Record& record, const std::array<KeyRow<Record>, N>& table,
             Run run = Run::First)
{
    for (const auto& row : table) {
        const std::string& value = record.*row.member;
        if (row.run != run || value.empty())
            continue;
        if (row.form == Form::Time || row.form == Form::Date)
            addKeyLine(text, row.key, valueForFile(value, row.form));
        else
            addKeyLine(text, row.key, value);
    }
}

template <class List>
std::string listLines(std::string_view key, const List& list)
{
    std::string text;
    for (const auto& value : list)
        addKeyLine(text, key, value);
    return text;
}

// A text of exactly one digit gets a zero in front.
std::string twoDigits(std::string_view part)
{
    return std::string(platform::characterCount(part) == 1 ? 1 : 0, '0').append(part);
}

std::string longDegrees(std::string_view deg)
{
    const auto length = platform::characterCount(deg);
    if (length == 0 || length > 3)
        return {};
    return std::string(3 - length, '0').append(deg);
}

std::string coordinate(bool plus, const std::string& degrees, std::string_view min, std::string_view sec)
{
    const std::string digits = degrees + twoDigits(min) + twoDigits(sec);
    return digits.empty() ? digits : (plus ? "+" : "-") + digits;
}

void addPosition(std::string& text, const NtcGeoPt& point)
{
    addKeyLine(text, longKey, longToFile(point.long_ew, point.long_deg, point.long_min, point.long_sec));
    addKeyLine(text, latKey, latToFile(point.lat_ns, point.lat_deg, point.lat_min, point.lat_sec));
}

template <class... Parts>
bool allGiven(const Parts&... parts)
{
    return (!parts.empty() && ...);
}

std::string remarkLines(std::string remarks)
{
    return ScreenModule::remarksToElectLines(remarks);
}

void addAntennas(std::string& text, const Ntc& ntc)
{
    for (const auto& antenna : ntc.antenna) {
        if (antenna.present)
            text += antennaBlock(antenna, ntc.notice_typ);
    }
}

// What only a notice that adds or modifies an assignment has.
void addOwnPart(std::string& text, const Ntc& ntc)
{
    addKeys(text, ntc, noticeKeys, Run::BeforeSite);
    if (ntc.geo.present)
        text += siteBlock(ntc.geo);
    addKeys(text, ntc, noticeKeys, Run::BeforeNatSrv);
    text += natSrvLines(ntc);
    addKeys(text, ntc, noticeKeys, Run::BeforeCallSigns);
    text += callSignLines(ntc);
    addKeys(text, ntc, noticeKeys, Run::AfterCallSigns);
    if (ntc.notice_typ != "T14")
        addKeys(text, ntc, noticeKeys, Run::Resubmission);
    addKeys(text, ntc, noticeKeys, Run::BeforeOpAgcy);
    text += opAgcyLines(ntc);
    addKeys(text, ntc, noticeKeys, Run::BeforeRemarks);
    if (!ntc.rmk_text.empty())
        text += remarkLines(ntc.rmk_text);
    if (ntc.coord.present)
        text += coordBlock(ntc.coord);
    addAntennas(text, ntc);
}

} // namespace

std::string timeToFile(std::string_view time)
{
    const std::string value(time);
    switch (platform::characterCount(time)) {
    case 1:
        return "00:0" + value;
    case 2:
        return "00:" + value;
    case 3:
        return std::string("0")
            .append(platform::mid(time, 1, 1))
            .append(":")
            .append(platform::mid(time, 2, 2));
    case 4:
        return std::string(platform::mid(time, 1, 2)).append(":").append(platform::mid(time, 3, 2));
    default:
        return {};
    }
}

std::string dateToFile(std::string_view date)
{
    std::string rest(date);
    std::string year;
    std::string month;
    std::string day;
    ScreenModule::splitDottedDate(rest, year, month, day);
    return year + "-" + month + "-" + day;
}

std::string longToFile(std::string_view ew, std::string_view deg, std::string_view min, std::string_view sec)
{
    return coordinate(ew == "E", longDegrees(deg), min, sec);
}

std::string latToFile(std::string_view ns, std::string_view deg, std::string_view min, std::string_view sec)
{
    return coordinate(ns == "N", twoDigits(deg), min, sec);
}

std::string headBlock(const Ntc& ntc)
{
    std::string text;
    addLine(text, headTag.opening);
    addKeyLine(text, admKey, ntc.adm);
    addLine(text, headTag.closing);
    return text;
}

std::string tailBlock(std::int16_t count)
{
    std::string text;
    addLine(text, tailTag.opening);
    addLine(text, "t_num_notices = " + platform::signedNumberText(count));
    addLine(text, tailTag.closing);
    return text;
}

std::string noticeBlock(const Ntc& ntc)
{
    std::string text;
    addLine(text, noticeTag.opening);
    addKeys(text, ntc, noticeKeys, Run::First);
    if (ntc.intent != "ADD")
        text += targetBlock(ntc.target);
    if (ntc.intent == "ADD" || ntc.intent == "MODIFY")
        addOwnPart(text, ntc);
    addLine(text, noticeTag.closing);
    return text;
}

std::string targetBlock(const NtcTarget& target)
{
    std::string text;
    addKeys(text, target, targetKeys, Run::BeforeZone);
    addKeyLine(text, targetZoneWrittenKey, target.trg_zone_id);
    addKeys(text, target, targetKeys, Run::BeforeCoordinates);
    // A position without seconds is not written.
    if (allGiven(target.trg_long_deg, target.trg_long_min, target.trg_long_sec, target.trg_long_ew))
        addKeyLine(
            text, targetLongKey,
            longToFile(target.trg_long_ew, target.trg_long_deg, target.trg_long_min, target.trg_long_sec));
    if (allGiven(target.trg_lat_deg, target.trg_lat_min, target.trg_lat_sec, target.trg_lat_ns))
        addKeyLine(text, targetLatKey,
                   latToFile(target.trg_lat_ns, target.trg_lat_deg, target.trg_lat_min, target.trg_lat_sec));
    addKeys(text, target, targetKeys, Run::Last);
    return text;
}

std::string siteBlock(const NtcGeo& geo)
{
    std::string text;
    addKeys(text, geo, siteKeys);
    const NtcGeoPt& point = geo.pt[0];
    if (point.present) {
        addPosition(text, point);
        addKeyLine(text, siteAltKey, point.site_alt);
    }
    return text;
}

std::string natSrvLines(const Ntc& ntc)
{
    return listLines(natSrvKey, ntc.nat_srv);
}

std::string callSignLines(const Ntc& ntc)
{
    return listLines(callSignKey, ntc.call_sign);
}

std::string opAgcyLines(const Ntc& ntc)
{
    return listLines(opAgcyKey, ntc.op_agcy);
}

std::string coordBlock(const NtcCoord& coord)
{
    std::string text;
    addLine(text, coordTag.opening);
    text += listLines(admKey, coord.adm);
    addLine(text, coordTag.closing);
    return text;
}

std::string antennaBlock(const NtcAntenna& antenna, std::string_view noticeType)
{
    std::string text;
    addLine(text, antennaTag.opening);
    addKeys(text, antenna, antennaKeys);
    for (const auto& rot : antenna.rot) {
        if (!rot.present)
            continue;
        addLine(text, rotTag.opening);
        addKeys(text, rot, rotKeys);
        addLine(text, rotTag.closing);
    }
    for (const auto& rx : antenna.rx) {
        if (rx.present)
            text += noticeType == transmittingStations ? txStationBlock(rx) : rxStationBlock(rx);
    }
    addLine(text, antennaTag.closing);
    return text;
}

std::string rxStationBlock(const NtcRx& rx)
{
    std::string text;
    addLine(text, rxStationTag.opening);
    addKeyLine(text, noiseTempKey, rx.noise_temp);
    if (rx.geo.geo_type == multipoint) {
        addKeyLine(text, geoTypeKey, rx.geo.geo_type);
        text += pointBlocks(rx.geo);
    } else {
        text += siteBlock(rx.geo);
    }
    addLine(text, rxStationTag.closing);
    return text;
}

std::string txStationBlock(const NtcRx& rx)
{
    std::string text;
    if (!rx.geo.present)
        return text;
    addLine(text, txStationTag.opening);
    text += siteBlock(rx.geo);
    addLine(text, txStationTag.closing);
    return text;
}

std::string pointBlocks(const NtcGeo& geo)
{
    std::string text;
    for (const auto& point : geo.pt) {
        if (!point.present)
            continue;
        addLine(text, pointTag.opening);
        addPosition(text, point);
        addLine(text, pointTag.closing);
    }
    return text;
}

} // namespace writeOneNtcElect
