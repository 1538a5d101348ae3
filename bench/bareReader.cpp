#include "bareReader.h"

#include "bareRules.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>

namespace bare {

namespace {

Text trimmed(Text text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

Text part(Text text, std::size_t start, std::size_t length)
{
    return start < text.size() ? text.substr(start, length) : Text();
}

bool isHigh(char byte)
{
    return static_cast<unsigned char>(byte) >= 0x80;
}

bool isChangedByUpper(char byte)
{
    return isHigh(byte) || (byte >= 'a' && byte <= 'z');
}

// Letters of Latin-1. What the code page has in other places does not occur in the generator's files.
unsigned char upperByte(unsigned char byte)
{
    if (byte == 0xB5 || byte == 0xFF)
        throw std::runtime_error("a letter whose upper case the floor does not know");
    const bool lower = (byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte != 0xF7);
    return lower ? static_cast<unsigned char>(byte - 0x20) : byte;
}

// The bytes in UTF-8, at most twice as many; gives the end.
template <class Map>
char* encode(Text text, char* out, Map map)
{
    for (const char letter : text) {
        const unsigned char byte = map(static_cast<unsigned char>(letter));
        if (byte < 0x80) {
            *out++ = static_cast<char>(byte);
            continue;
        }
        if (byte < 0xA0)
            throw std::runtime_error("a byte that the floor does not know");
        *out++ = static_cast<char>(0xC0 | (byte >> 6U));
        *out++ = static_cast<char>(0x80 | (byte & 0x3FU));
    }
    return out;
}

// A value that only one of two gives goes to both.
void closeGap(Text& left, Text& right)
{
    if (left.empty())
        left = right;
    if (right.empty())
        right = left;
}

void closeGaps(Notice& notice)
{
    struct Pair
    {
        TargetColumn target;
        VeldaColumn own;
    };
    static constexpr std::array pairs = {
        Pair{trgFreqAssgn, freqAssgn}, Pair{trgStnCls, stnCls},     Pair{trgBdwdthCde, bdwdthCde},
        Pair{trgEmiCls, emiCls},       Pair{trgOpHhFr, opHhFr},     Pair{trgOpHhTo, opHhTo},
        Pair{trgOpCls, opCls},         Pair{trgAdmRefId, admRefId},
    };
    for (const auto& [target, own] : pairs)
        closeGap(notice.target[target], notice.velda[own]);
    closeGap(notice.target[trgZoneId], notice.site.columns[zoneId]);
    closeGap(notice.target[trgGeoType], notice.site.columns[geoType]);
    for (std::size_t column = longDeg; column <= latSec; ++column)
        closeGap(notice.target[trgPoint + column], notice.site.points[0].columns[column]);
}

} // namespace

std::string readFile(const std::string& path)
{
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (!file)
        throw std::runtime_error("can't read " + path);
    return std::move(bytes).str();
}

bool Reader::nextItem()
{
    if (m_rest.empty())
        return false;
    const auto end = std::find_if(m_rest.begin(), m_rest.end(),
                                  [](char byte) { return byte == ',' || byte == '\r' || byte == '\n'; });
    const auto length = static_cast<std::size_t>(end - m_rest.begin());
    m_item = trimmed(m_rest.substr(0, length));
    if (m_item.starts_with('"'))
        throw std::runtime_error("the floor reads no quoted items");
    m_rest.remove_prefix(length);
    m_rest.remove_prefix(m_rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(m_rest.size(), 1));
    return true;
}

void Reader::advance()
{
    if (!nextItem())
        throw std::runtime_error("the file ends within a section");
}

bool Reader::isKeyLine()
{
    const auto equals = m_item.find('=');
    if (equals == Text::npos)
        return false;
    m_key = trimmed(m_item.substr(0, equals));
    m_value = trimmed(m_item.substr(equals + 1));
    return true;
}

bool Reader::next(Notice& notice)
{
    while (nextItem()) {
        if (m_item == "<HEAD>")
            readHead();
        if (m_item != "<NOTICE>")
            continue;
        m_used = 0;
        readNotice(notice);
        return true;
    }
    return false;
}

void Reader::readHead()
{
    for (advance(); m_item != "</HEAD>"; advance()) {
        if (isKeyLine() && m_key == "t_adm")
            m_adm = m_value;
    }
}

void Reader::readNotice(Notice& notice)
{
    notice.velda.fill({});
    notice.velda[adm] = m_adm;
    notice.target.fill({});
    notice.site = {};
    notice.site.points[0].present = true;
    notice.callSigns.count = notice.natSrv.count = notice.opAgcy.count = notice.coordAdm.count = 0;
    notice.antennas.count = 0;
    notice.coordProv = {};
    notice.remarks.clear();
    for (advance(); m_item != "</NOTICE>"; advance()) {
        if (isKeyLine())
            takeNoticeKey(notice);
        else if (m_item == "<COORD>" || m_item == "<COORDINATION>")
            readCoordination(notice);
        else if (m_item == "<ANTENNA>")
            readAntenna(notice.antennas.next());
    }
    if (notice.velda[intent] != "ADD")
        closeGaps(notice);
}

void Reader::takeNoticeKey(Notice& notice)
{
    const auto* rule = noticeIndex.find(m_key);
    if (rule == nullptr)
        return;
    switch (rule->kind) {
    case Kind::Velda:
        notice.velda[rule->column] = plain();
        break;
    case Kind::VeldaUpper:
        notice.velda[rule->column] = upper();
        break;
    case Kind::VeldaTime:
        notice.velda[rule->column] = time();
        break;
    case Kind::NoticeType:
        notice.velda[noticeTyp] = upper();
        notice.velda[stnType] = m_value == "T13" ? "RX" : "TX";
        break;
    case Kind::Target:
        notice.target[rule->column] = plain();
        break;
    case Kind::TargetUpper:
        notice.target[rule->column] = upper();
        break;
    case Kind::TargetTime:
        notice.target[rule->column] = time();
        break;
    case Kind::TargetLong:
        storeCoordinates(notice.target, std::size_t{trgPoint} + longDeg, true);
        break;
    case Kind::TargetLat:
        storeCoordinates(notice.target, std::size_t{trgPoint} + latDeg, false);
        break;
    case Kind::Site:
        notice.site.columns[rule->column] = plain();
        break;
    case Kind::SiteUpper:
        notice.site.columns[rule->column] = upper();
        break;
    case Kind::Long:
        storeCoordinates(notice.site.points[0].columns, longDeg, true);
        break;
    case Kind::Lat:
        storeCoordinates(notice.site.points[0].columns, latDeg, false);
        break;
    case Kind::SiteAlt:
        notice.site.points[0].columns[siteAlt] = plain();
        break;
    case Kind::CallSign:
        notice.callSigns.next() = plain();
        break;
    case Kind::NatSrv:
        notice.natSrv.next() = plain();
        break;
    case Kind::OpAgcy:
        notice.opAgcy.next() = paddedAgency();
        break;
    case Kind::Remarks:
        if (!notice.remarks.empty())
            notice.remarks += ';';
        notice.remarks += plain();
        break;
    case Kind::NoiseTemp:
    case Kind::Antenna:
        break;
    }
}

void Reader::readCoordination(Notice& notice)
{
    notice.coordAdm.count = 0;
    for (advance(); m_item != "</COORD>" && m_item != "</COORDINATION>"; advance()) {
        if (!isKeyLine())
            continue;
        if (m_key == "t_adm")
            notice.coordAdm.next() = plain();
        else if (m_key == "t_coord_prov")
            notice.coordProv = plain();
    }
}

void Reader::readAntenna(Antenna& antenna)
{
    antenna.columns.fill({});
    antenna.rotational = false;
    antenna.sectors.count = antenna.stations.count = 0;
    // A section repeats what the one before it in the same antenna gave and it does not give itself.
    Sector sector;
    Station station;
    for (advance(); m_item != "</ANTENNA>"; advance()) {
        if (isKeyLine()) {
            if (const auto* rule = antennaIndex.find(m_key))
                antenna.columns[rule->column] = plain();
        } else if (m_item == "<ROTATIONAL>") {
            antenna.rotational = true;
            readSector(sector);
            antenna.sectors.next() = sector;
        } else if (m_item == "<RX_STATION>" || m_item == "<TX_STATION>") {
            readStation(station);
            antenna.stations.next() = station;
        }
    }
}

void Reader::readSector(Sector& sector)
{
    for (advance(); m_item != "</ROTATIONAL>"; advance()) {
        if (!isKeyLine())
            continue;
        if (m_key == "t_azm_fr")
            sector.columns[0] = plain();
        else if (m_key == "t_azm_to")
            sector.columns[1] = plain();
    }
}

void Reader::readStation(Station& station)
{
    auto& site = station.site;
    std::size_t nextPoint = 0;
    Point point;
    for (advance(); m_item != "</RX_STATION>" && m_item != "</TX_STATION>"; advance()) {
        if (!isKeyLine()) {
            if (m_item == "<POINT>") {
                readPoint(point);
                site.points.at(nextPoint++) = point;
            }
            continue;
        }
        const auto* rule = stationIndex.find(m_key);
        if (rule == nullptr)
            continue;
        if (rule->kind == Kind::NoiseTemp)
            station.noiseTemp = plain();
        else if (rule->kind == Kind::Long)
            storeCoordinates(site.points[0].columns, longDeg, true);
        else if (rule->kind == Kind::Lat)
            storeCoordinates(site.points[0].columns, latDeg, false);
        else
            site.columns[rule->column] = rule->kind == Kind::SiteUpper ? upper() : plain();
        if (rule->column == geoType && rule->kind == Kind::SiteUpper && site.columns[geoType] != "MULTIPOINT")
            site.points[0].present = true;
    }
}

void Reader::readPoint(Point& point)
{
    point.present = true;
    for (advance(); m_item != "</POINT>"; advance()) {
        if (!isKeyLine())
            continue;
        if (m_key == "t_long")
            storeCoordinates(point.columns, longDeg, true);
        else if (m_key == "t_lat")
            storeCoordinates(point.columns, latDeg, false);
    }
}

// Degrees, hemisphere, minutes and seconds, which stand one behind the other.
template <std::size_t N>
void Reader::storeCoordinates(std::array<Text, N>& columns, std::size_t first, bool longitude)
{
    const std::size_t minutes = longitude ? 4 : 3;
    columns[first] = part(m_value, 1, minutes - 1);
    if (longitude)
        columns[first + 1] = m_value.starts_with('+') ? "E" : "W";
    else
        columns[first + 1] = m_value.starts_with('-') ? "S" : "N";
    columns[first + 2] = part(m_value, minutes, 2);
    columns[first + 3] = m_value.size() == minutes + 2 ? Text() : part(m_value, minutes + 2, 2);
}

Text Reader::plain()
{
    if (std::none_of(m_value.begin(), m_value.end(), isHigh))
        return m_value;
    char* const start = room(2 * m_value.size());
    const char* end = encode(m_value, start, [](unsigned char byte) { return byte; });
    return {start, static_cast<std::size_t>(end - start)};
}

Text Reader::upper()
{
    if (std::none_of(m_value.begin(), m_value.end(), isChangedByUpper))
        return m_value;
    char* const start = room(2 * m_value.size());
    const char* end = encode(m_value, start, upperByte);
    return {start, static_cast<std::size_t>(end - start)};
}

Text Reader::time()
{
    return keep(part(m_value, 0, 2), part(m_value, 3, 2));
}

Text Reader::paddedAgency()
{
    const auto value = plain();
    return value.empty() || value.size() > 2 ? value : keep(value.size() == 1 ? "00" : "0", value);
}

Text Reader::keep(Text first, Text second)
{
    char* const start = room(first.size() + second.size());
    std::memcpy(start, first.data(), first.size());
    std::memcpy(start + first.size(), second.data(), second.size());
    return {start, first.size() + second.size()};
}

char* Reader::room(std::size_t length)
{
    if (m_memory.size() - m_used < length)
        throw std::runtime_error("a notice larger than the floor has room for");
    m_used += length;
    return m_memory.data() + m_used - length;
}

} // namespace bare
