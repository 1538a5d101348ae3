#include "elect/readFromFileToNtc.h"

#include "elect/keyTables.h"
#include "model/InitializeNtc.h"
#include "model/ScreenModule.h"
#include "platform/ansiText.h"
#include "platform/fileNumbers.h"
#include "platform/runtimeError.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>

using namespace keyTables;

namespace readFromFileToNtc {

std::string currentLine;

namespace {

constexpr int fileNumber = 1;
// Positions in an item are held in 16 bits.
constexpr std::size_t lastPosition = std::numeric_limits<std::int16_t>::max();

// A key line in parts. The value is a part of currentLine and ends with the next advance.
struct KeyLine
{
    std::string key;
    std::uint32_t hash = 0;
    std::string_view value;
};

constexpr std::uint32_t hashOf(std::string_view key)
{
    std::uint32_t hash = 2166136261U;
    for (const char letter : key)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
    return hash ^ (hash >> 15U);
}

// Finds the row of a table by its key.
template <class Row, std::size_t N>
class KeyIndex
{
public:
    explicit constexpr KeyIndex(const std::array<Row, N>& table) : m_table(&table)
    {
        for (std::size_t row = 0; row < N; ++row) {
            std::size_t slot = hashOf(table[row].key) % slotCount;
            while (m_rows[slot] != none)
                slot = (slot + 1) % slotCount;
            m_rows[slot] = static_cast<std::uint8_t>(row);
        }
    }

    // Null for an unknown key.
    [[nodiscard]] const Row* find(const KeyLine& line) const
    {
        for (std::size_t slot = line.hash % slotCount; m_rows[slot] != none; slot = (slot + 1) % slotCount) {
            const Row& row = (*m_table)[m_rows[slot]];
            if (row.key == line.key)
                return &row;
        }
        return nullptr;
    }

private:
    static constexpr std::size_t slotCount = std::bit_ceil(4 * N);
    static constexpr std::uint8_t none = 255;
    static_assert(N < none);

    static constexpr std::array<std::uint8_t, slotCount> allFree()
    {
        std::array<std::uint8_t, slotCount> rows{};
        for (auto& row : rows)
            row = none;
        return rows;
    }

    const std::array<Row, N>* m_table;
    std::array<std::uint8_t, slotCount> m_rows = allFree();
};

constexpr KeyIndex noticeIndex(noticeKeys);
constexpr KeyIndex targetIndex(targetKeys);
constexpr KeyIndex siteIndex(siteKeys);
constexpr KeyIndex antennaIndex(antennaKeys);
constexpr KeyIndex rotIndex(rotKeys);

void trimInPlace(std::string& text)
{
    text.resize(text.find_last_not_of(' ') + 1);
    if (text.starts_with(' '))
        text.erase(0, text.find_first_not_of(' '));
}

void readItem(std::string& item)
{
    platform::inputItem(fileNumber, item);
    trimInPlace(item);
}

// Fails for a position that 16 bits can't hold. A character takes one byte or more.
void checkPosition(std::string_view text, std::size_t byte)
{
    if (byte >= lastPosition && platform::characterCount(text.substr(0, byte)) >= lastPosition)
        platform::raise(platform::errOverflow);
}

void replaceTabs(std::string& text)
{
    for (auto tab = text.find('\t'); tab != std::string::npos; tab = text.find('\t', tab + 1)) {
        checkPosition(text, tab);
        text[tab] = ' ';
    }
}

void lowerInto(std::string& lower, std::string_view text)
{
    lower = text;
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
        else if (static_cast<unsigned char>(letter) >= 0x80) {
            lower = platform::toLower(text);
            return;
        }
    }
}

bool splitCurrentLine(KeyLine& line)
{
    trimInPlace(currentLine);
    replaceTabs(currentLine);
    const std::string_view text = currentLine;
    const auto equals = text.find('=');
    if (equals == std::string_view::npos)
        return false;
    checkPosition(text, equals);
    lowerInto(line.key, platform::trimBlanks(text.substr(0, equals)));
    line.hash = hashOf(line.key);
    line.value = platform::trimBlanks(text.substr(equals + 1));
    return true;
}

// Walks a section to its closing tag. The closing tag is looked for in the line as advance left it, any other
// tag in the line as the splitting left it: so a tab beside a closing tag hides the tag, beside an opening
// tag inside a section it doesn't.
template <class TakeKey, class TakeTag>
void readSection(const Tag& tag, const Tag& otherTag, TakeKey takeKey, TakeTag takeTag)
{
    KeyLine line;
    while (currentLine != tag.closing && currentLine != otherTag.closing) {
        if (splitCurrentLine(line))
            takeKey(line);
        else
            takeTag();
        advance();
    }
}

template <class TakeKey>
void readSection(const Tag& tag, const Tag& otherTag, TakeKey takeKey)
{
    readSection(tag, otherTag, takeKey, [] {});
}

bool isOpening(const Tag& tag)
{
    return currentLine == tag.opening;
}

void storeValue(std::string& member, Form form, std::string_view value)
{
    switch (form) {
    case Form::Upper:
        member = ScreenModule::upperText(value);
        break;
    case Form::Time:
        member = timeFromFile(value);
        break;
    case Form::Text:
    case Form::Date:
        member = value;
        break;
    }
}

// False for a key that the table lacks.
template <class Index, class Record>
bool storeByKey(const Index& index, const KeyLine& line, Record& record)
{
    const auto* row = index.find(line);
    if (row == nullptr)
        return false;
    storeValue(record.*row->member, row->form, line.value);
    return true;
}

void storeLong(NtcGeoPt& point, std::string_view value)
{
    point.long_deg = longDeg(value);
    point.long_min = longMin(value);
    point.long_sec = longSec(value);
    point.long_ew = longEw(value);
}

void storeLat(NtcGeoPt& point, std::string_view value)
{
    point.lat_deg = latDeg(value);
    point.lat_min = latMin(value);
    point.lat_sec = latSec(value);
    point.lat_ns = latNs(value);
}

// The next slot of a list, which is counted. Fails behind the last one.
template <class List>
auto& takeSlot(List& list, std::size_t& next)
{
    if (next >= list.size())
        platform::raise(platform::errSubscript);
    return list[next++];
}

// A notice on its way into the record. The coordination list is not emptied between its sections.
struct NoticeReading
{
    explicit NoticeReading(Ntc& record) : ntc(record) {}

    Ntc& ntc;
    std::size_t nextCallSign = 0, nextNatSrv = 0, nextOpAgcy = 0, nextAntenna = 0;
    NtcCoord coord;
};

// Keys of a notice whose values don't go into one member each.
struct NoticeRule
{
    std::string_view key;
    void (*store)(NoticeReading& reading, std::string_view value);
};

void storeCallSign(NoticeReading& reading, std::string_view value)
{
    takeSlot(reading.ntc.call_sign, reading.nextCallSign) = value;
}

void storeNatSrv(NoticeReading& reading, std::string_view value)
{
    takeSlot(reading.ntc.nat_srv, reading.nextNatSrv) = value;
}

void storeOpAgcy(NoticeReading& reading, std::string_view value)
{
    takeSlot(reading.ntc.op_agcy, reading.nextOpAgcy) = padOpAgcy(value);
}

void storeOwnLong(NoticeReading& reading, std::string_view value)
{
    storeLong(reading.ntc.geo.pt[0], value);
}

void storeOwnLat(NoticeReading& reading, std::string_view value)
{
    storeLat(reading.ntc.geo.pt[0], value);
}

void storeOwnSiteAlt(NoticeReading& reading, std::string_view value)
{
    reading.ntc.geo.pt[0].site_alt = value;
}

void storeRemarks(NoticeReading& reading, std::string_view value)
{
    auto& remarks = reading.ntc.rmk_text;
    if (!remarks.empty())
        remarks += ';';
    remarks += value;
}

void storeTargetZone(NoticeReading& reading, std::string_view value)
{
    reading.ntc.target.trg_zone_id = value;
}

void storeTargetLong(NoticeReading& reading, std::string_view value)
{
    auto& target = reading.ntc.target;
    target.trg_long_deg = longDeg(value);
    target.trg_long_min = longMin(value);
    target.trg_long_sec = longSec(value);
    target.trg_long_ew = longEw(value);
}

void storeTargetLat(NoticeReading& reading, std::string_view value)
{
    auto& target = reading.ntc.target;
    target.trg_lat_deg = latDeg(value);
    target.trg_lat_min = latMin(value);
    target.trg_lat_sec = latSec(value);
    target.trg_lat_ns = latNs(value);
}

constexpr std::array noticeRules{
    NoticeRule{callSignKey, storeCallSign},
    NoticeRule{natSrvKey, storeNatSrv},
    NoticeRule{opAgcyKey, storeOpAgcy},
    NoticeRule{longKey, storeOwnLong},
    NoticeRule{latKey, storeOwnLat},
    NoticeRule{siteAltKey, storeOwnSiteAlt},
    NoticeRule{remarksKey, storeRemarks},
    NoticeRule{targetLongKey, storeTargetLong},
    NoticeRule{targetZoneReadKey, storeTargetZone},
    NoticeRule{targetLatKey, storeTargetLat},
};
constexpr KeyIndex noticeRuleIndex(noticeRules);

void takeNoticeKey(NoticeReading& reading, const KeyLine& line)
{
    Ntc& ntc = reading.ntc;
    if (storeByKey(noticeIndex, line, ntc)) {
        // The type as given decides, before it was turned to upper case.
        if (line.key == noticeTypeKey)
            ntc.stn_type = line.value == transmittingStations ? "RX" : "TX";
    } else if (const auto* rule = noticeRuleIndex.find(line)) {
        rule->store(reading, line.value);
    } else if (!storeByKey(siteIndex, line, ntc.geo)) {
        storeByKey(targetIndex, line, ntc.target);
    }
}

void takeNoticeTag(NoticeReading& reading)
{
    if (isOpening(coordinationTag) || isOpening(coordTag)) {
        advance();
        readCoordFromFile(reading.coord);
        reading.ntc.coord = reading.coord;
    } else if (isOpening(antennaTag)) {
        // Kept between notices: to make one with its thousand strings costs more than to empty what was
        // written.
        static NtcAntenna antenna;
        InitializeNtc::initAntenna(antenna);
        advance();
        readAntennaFromFile(antenna);
        takeSlot(reading.ntc.antenna, reading.nextAntenna) = antenna;
    }
}

void takeStationKey(NtcRx& rx, const KeyLine& line)
{
    if (storeByKey(siteIndex, line, rx.geo)) {
        if (line.key == geoTypeKey && rx.geo.geo_type != multipoint)
            rx.geo.pt[0].present = true;
    } else if (line.key == noiseTempKey) {
        rx.noise_temp = line.value;
    } else if (line.key == longKey) {
        storeLong(rx.geo.pt[0], line.value);
    } else if (line.key == latKey) {
        storeLat(rx.geo.pt[0], line.value);
    }
}

// A member of the target and the member of the notice that closes its gap, and the reverse.
template <class Record>
struct Pair
{
    std::string NtcTarget::*target;
    std::string Record::*own;
};

constexpr std::array noticePairs{
    Pair<Ntc>{&NtcTarget::trg_freq_assgn, &Ntc::freq_assgn},
    Pair<Ntc>{&NtcTarget::trg_stn_cls, &Ntc::stn_cls},
    Pair<Ntc>{&NtcTarget::trg_bdwdth_cde, &Ntc::bdwdth_cde},
    Pair<Ntc>{&NtcTarget::trg_emi_cls, &Ntc::emi_cls},
    Pair<Ntc>{&NtcTarget::trg_op_hh_fr, &Ntc::op_hh_fr},
    Pair<Ntc>{&NtcTarget::trg_op_hh_to, &Ntc::op_hh_to},
    Pair<Ntc>{&NtcTarget::trg_op_cls, &Ntc::op_cls},
    Pair<Ntc>{&NtcTarget::trg_adm_ref_id, &Ntc::adm_ref_id},
};
constexpr std::array sitePairs{
    Pair<NtcGeo>{&NtcTarget::trg_zone_id, &NtcGeo::zone_id},
    Pair<NtcGeo>{&NtcTarget::trg_geo_type, &NtcGeo::geo_type},
};
constexpr std::array pointPairs{
    Pair<NtcGeoPt>{&NtcTarget::trg_long_deg, &NtcGeoPt::long_deg},
    Pair<NtcGeoPt>{&NtcTarget::trg_long_min, &NtcGeoPt::long_min},
    Pair<NtcGeoPt>{&NtcTarget::trg_long_sec, &NtcGeoPt::long_sec},
    Pair<NtcGeoPt>{&NtcTarget::trg_long_ew, &NtcGeoPt::long_ew},
    Pair<NtcGeoPt>{&NtcTarget::trg_lat_deg, &NtcGeoPt::lat_deg},
    Pair<NtcGeoPt>{&NtcTarget::trg_lat_min, &NtcGeoPt::lat_min},
    Pair<NtcGeoPt>{&NtcTarget::trg_lat_sec, &NtcGeoPt::lat_sec},
    Pair<NtcGeoPt>{&NtcTarget::trg_lat_ns, &NtcGeoPt::lat_ns},
};

template <class Record, std::size_t N>
void closeGaps(NtcTarget& target, Record& record, const std::array<Pair<Record>, N>& pairs)
{
    for (const auto& pair : pairs) {
        std::string& theirs = target.*pair.target;
        std::string& own = record.*pair.own;
        if (theirs.empty())
            theirs = own;
        if (own.empty())
            own = theirs;
    }
}

} // namespace

std::string readLine()
{
    std::string item;
    readItem(item);
    return item;
}

std::string tabsToBlanks(std::string& text)
{
    replaceTabs(text);
    return text;
}

void advance()
{
    readItem(currentLine);
    replaceTabs(currentLine);
}

bool splitKeyValue(std::string& key, std::string& value)
{
    KeyLine line;
    if (!splitCurrentLine(line))
        return false;
    key = line.key;
    value = line.value;
    return true;
}

std::string longDeg(std::string_view value)
{
    return std::string(platform::mid(value, 2, 3));
}

std::string longMin(std::string_view value)
{
    return std::string(platform::mid(value, 5, 2));
}

std::string longSec(std::string_view value)
{
    return std::string(platform::mid(value, 7, 2)); // none in a value that ends with its minutes
}

std::string longEw(std::string_view value)
{
    return value.starts_with('+') ? "E" : "W";
}

std::string latDeg(std::string_view value)
{
    return std::string(platform::mid(value, 2, 2));
}

std::string latMin(std::string_view value)
{
    return std::string(platform::mid(value, 4, 2));
}

std::string latSec(std::string_view value)
{
    return std::string(platform::mid(value, 6, 2));
}

std::string latNs(std::string_view value)
{
    return value.starts_with('-') ? "S" : "N";
}

std::string timeFromFile(std::string_view value)
{
    std::string time(platform::mid(value, 1, 2));
    time += platform::mid(value, 4, 2);
    return time;
}

std::string padOpAgcy(std::string_view value)
{
    const auto length = platform::characterCount(value);
    const std::size_t zeros = length == 1 ? 2 : (length == 2 ? 1 : 0);
    return std::string(zeros, '0').append(value);
}

void readCoordFromFile(NtcCoord& coord)
{
    coord.present = true;
    std::size_t nextAdm = 0;
    readSection(coordinationTag, coordTag, [&](const KeyLine& line) {
        if (line.key == coordProvKey)
            coord.coord_prov = line.value;
        else if (line.key == admKey)
            takeSlot(coord.adm, nextAdm) = line.value;
    });
}

void readRotFromFile(NtcRot& rot)
{
    rot.present = true;
    readSection(rotTag, rotTag, [&](const KeyLine& line) { storeByKey(rotIndex, line, rot); });
}

void readPointFromFile(NtcGeoPt& point)
{
    point.present = true;
    readSection(pointTag, pointTag, [&](const KeyLine& line) {
        if (line.key == longKey)
            storeLong(point, line.value);
        else if (line.key == latKey)
            storeLat(point, line.value);
    });
}

void readStationFromFile(NtcRx& rx)
{
    rx.present = true;
    rx.geo.present = true;
    std::size_t nextPoint = 0;
    NtcGeoPt point; // a point repeats what the point before it gave and it does not give itself
    readSection(
        txStationTag, rxStationTag, [&](const KeyLine& line) { takeStationKey(rx, line); },
        [&] {
            if (!isOpening(pointTag))
                return;
            advance();
            readPointFromFile(point);
            takeSlot(rx.geo.pt, nextPoint) = point;
        });
}

void readAntennaFromFile(NtcAntenna& antenna)
{
    antenna.present = true;
    std::size_t nextRot = 0;
    std::size_t nextStation = 0;
    NtcRot rot; // like the station, it repeats what the section before it gave and it does not give itself
    static NtcRx station;
    InitializeNtc::initRx(station);
    readSection(
        antennaTag, antennaTag, [&](const KeyLine& line) { storeByKey(antennaIndex, line, antenna); },
        [&] {
            if (isOpening(rotTag)) {
                antenna.is_rot = "TRUE";
                advance();
                readRotFromFile(rot);
                takeSlot(antenna.rot, nextRot) = rot;
            } else if (isOpening(txStationTag) || isOpening(rxStationTag)) {
                advance();
                readStationFromFile(station);
                takeSlot(antenna.rx, nextStation) = station;
            }
        });
}

void fillNtcFromTarget(Ntc& ntc)
{
    closeGaps(ntc.target, ntc, noticePairs);
    closeGaps(ntc.target, ntc.geo, sitePairs);
    closeGaps(ntc.target, ntc.geo.pt[0], pointPairs);
}

void readNtcFromFile(Ntc& ntc)
{
    ntc.geo.present = true;
    ntc.geo.pt[0].present = true;
    NoticeReading reading(ntc);
    readSection(
        noticeTag, noticeTag, [&](const KeyLine& line) { takeNoticeKey(reading, line); },
        [&] { takeNoticeTag(reading); });
    if (ntc.intent != "ADD") {
        ntc.target.present = true;
        fillNtcFromTarget(ntc);
    }
}

void readHeadFromFile(Ntc& ntc)
{
    readSection(headTag, headTag, [&](const KeyLine& line) {
        if (line.key == admKey)
            ntc.adm = line.value;
    });
}

} // namespace readFromFileToNtc
