#include "support/noticeBuilder.h"

#include "db/columns.h"

namespace {

std::string digits(std::size_t number, std::size_t length)
{
    auto text = std::to_string(number);
    return std::string(length - std::min(length, text.size()), '0') + text;
}

template <class Record, std::size_t Count>
void fill(const std::array<columns::Row<Record>, Count>& table, Record& record, const std::string& mark)
{
    for (const auto& row : table) {
        auto& member = record.*row.member;
        switch (row.reading) {
        case columns::Reading::HHMM:
            member = "0630";
            break;
        case columns::Reading::LongDeg:
            member = "007";
            break;
        case columns::Reading::LatDeg:
        case columns::Reading::MinSec:
            member = "08";
            break;
        case columns::Reading::Upper:
            member = "U" + mark;
            break;
        default:
            member = std::string(row.column) + " " + mark;
        }
    }
}

} // namespace

namespace {

template <class Record, std::size_t Count>
std::string given(const std::array<columns::Row<Record>, Count>& table, const Record& record)
{
    std::string text = record.present ? " present" : "";
    for (const auto& row : table) {
        if (!(record.*row.member).empty())
            text += std::string(" ") + row.column + "=" + record.*row.member;
    }
    return text;
}

// A line for each sub-record that holds anything.
template <class Record, std::size_t Count>
void describe(std::string& text, const std::string& name,
              const std::array<columns::Row<Record>, Count>& table, const Record& record)
{
    const auto values = given(table, record);
    if (!values.empty())
        text += name + ":" + values + "\n";
}

void describeSite(std::string& text, const std::string& name, const NtcGeo& site)
{
    describe(text, name, columns::geo, site);
    for (std::size_t slot = 0; slot < site.pt.size(); ++slot)
        describe(text, name + " pt(" + std::to_string(slot) + ")", columns::geoPt, site.pt[slot]);
}

void describeAntenna(std::string& text, const std::string& name, const NtcAntenna& antenna)
{
    describe(text, name, columns::ant, antenna);
    if (antenna.is_rot != "FALSE")
        text += name + " is_rot=" + antenna.is_rot + "\n";
    for (std::size_t slot = 0; slot < antenna.rot.size(); ++slot)
        describe(text, name + " rot(" + std::to_string(slot) + ")", columns::rot, antenna.rot[slot]);
    for (std::size_t slot = 0; slot < antenna.rx.size(); ++slot) {
        const auto station = name + " rx(" + std::to_string(slot) + ")";
        describe(text, station, columns::rx, antenna.rx[slot]);
        describeSite(text, station, antenna.rx[slot].geo);
    }
}

template <class List>
void describeList(std::string& text, const std::string& name, const List& values)
{
    for (std::size_t slot = 0; slot < values.size(); ++slot) {
        if (!values[slot].empty())
            text += name + "(" + std::to_string(slot) + ")=" + values[slot] + "\n";
    }
}

} // namespace

std::string described(const Ntc& ntc)
{
    std::string text;
    for (const auto& row : columns::velda) {
        if (!(ntc.*row.member).empty())
            text += std::string(row.column) + "=" + ntc.*row.member + "\n";
    }
    describe(text, "target", columns::target, ntc.target);
    describeSite(text, "geo", ntc.geo);
    text += ntc.coord.present ? "coord present " + ntc.coord.coord_prov + "\n" : ntc.coord.coord_prov;
    describeList(text, "coord.adm", ntc.coord.adm);
    describeList(text, "call_sign", ntc.call_sign);
    describeList(text, "nat_srv", ntc.nat_srv);
    describeList(text, "op_agcy", ntc.op_agcy);
    for (std::size_t slot = 0; slot < ntc.antenna.size(); ++slot)
        describeAntenna(text, "antenna(" + std::to_string(slot) + ")", ntc.antenna[slot]);
    return text + "rmk_text=" + ntc.rmk_text + "\n";
}

NtcGeoPt aPoint(std::size_t number)
{
    NtcGeoPt point;
    point.present = true;
    point.long_deg = digits(10 + number, 3);
    point.long_ew = number % 2 == 0 ? "E" : "W";
    point.long_min = digits(20 + number, 2);
    point.long_sec = digits(1 + number, 2);
    point.lat_deg = digits(40 + number, 2);
    point.lat_ns = number % 2 == 0 ? "N" : "S";
    point.lat_min = digits(2 + number, 2);
    point.lat_sec = digits(50 + number, 2);
    point.site_alt = std::to_string(100 + number);
    return point;
}

NoticeBuilder::NoticeBuilder(const std::string& noticeType, const std::string& intent)
{
    fill(columns::velda, m_ntc, "0");
    m_ntc.freq_assgn = "151.3375";
    m_ntc.notice_typ = noticeType;
    m_ntc.stn_type = noticeType == "T13" ? "RX" : "TX";
    m_ntc.intent = intent;
    if (intent != "ADD") {
        fill(columns::target, m_ntc.target, "t");
        m_ntc.target.present = true;
    }
    fill(columns::geo, m_ntc.geo, "OWN");
    m_ntc.geo.present = true;
    m_ntc.geo.pt[0] = aPoint(0);
    m_ntc.coord.present = true;
    m_ntc.coord.coord_prov = "RR9";
    for (std::size_t slot = 0; slot < m_ntc.coord.adm.size(); ++slot)
        m_ntc.coord.adm[slot] = "A" + std::to_string(slot);
    for (std::size_t slot = 0; slot < 6; ++slot) {
        m_ntc.call_sign[slot] = "CALL" + std::to_string(slot);
        m_ntc.nat_srv[slot] = "N" + std::to_string(slot);
        m_ntc.op_agcy[slot] = "00" + std::to_string(slot);
    }
    m_ntc.rmk_text = "first;second";
}

NoticeBuilder& NoticeBuilder::withAntennas(std::size_t antennas, std::size_t sectors, std::size_t stations)
{
    for (std::size_t number = 0; number < antennas; ++number) {
        const auto mark = std::to_string(number);
        auto& antenna = m_ntc.antenna[number];
        fill(columns::ant, antenna, mark);
        antenna.present = true;
        antenna.is_rot = sectors != 0 ? "TRUE" : "FALSE";
        for (std::size_t slot = 0; slot < sectors; ++slot)
            antenna.rot[slot] = {std::to_string(slot), std::to_string(slot + 10), true};
        for (std::size_t slot = 0; slot < stations; ++slot) {
            auto& station = antenna.rx[slot];
            fill(columns::geo, station.geo, mark + "." + std::to_string(slot));
            station.geo.present = true;
            station.geo.pt[0] = aPoint(slot);
            station.noise_temp = m_ntc.notice_typ == "T13" ? "" : std::to_string(290 + slot);
            station.present = true;
        }
    }
    return *this;
}

NoticeBuilder& NoticeBuilder::withPoints(std::size_t points)
{
    for (std::size_t slot = 0; slot < points; ++slot)
        m_ntc.geo.pt[slot] = aPoint(slot);
    return *this;
}
