#include "bareWrite.h"

#include "bareNoticeQueries.h"
#include "model/session.h"
#include "platform/hostFormat.h"

#include <algorithm>
#include <cstdio>

namespace bare {

namespace {

using Query = NoticeQueries::Query;

// Columns of the notice's own query.
enum VeldaPlace : std::uint8_t
{
    fragment,
    adm,
    addrCode,
    freqAssgn,
    opHhFr,
    opHhTo,
    stnCls,
    opCls,
    emiCls,
    bdwdthCde,
    freqCarr,
    dInuse,
    noticeTyp,
    stnId,
    stnType,
    intent,
    prov,
    isResub,
    admRefId,
    geoKey,
    dAdmNtc,
    target,
    bandPref,
    freqDev,
    energyDsp
};

// The file, gathered in memory and written in large pieces.
class Output
{
public:
    explicit Output(const std::string& fileName) : m_file(std::fopen(fileName.c_str(), "wb"))
    {
        if (!m_file)
            throw std::runtime_error("can't write " + fileName);
        m_bytes.reserve(2 * pieceSize);
    }

    void add(Text text) { m_bytes += text; }

    void line(Text text)
    {
        add(text);
        add("\r\n");
        if (m_bytes.size() >= pieceSize)
            flush();
    }

    // The database's UTF-8 in the file's code page, letters of Latin-1 alone.
    void value(Text text)
    {
        if (std::all_of(text.begin(), text.end(),
                        [](char byte) { return static_cast<signed char>(byte) >= 0; })) {
            add(text);
            return;
        }
        for (std::size_t at = 0; at < text.size(); ++at) {
            const auto byte = static_cast<unsigned char>(text[at]);
            if (byte < 0x80)
                m_bytes += text[at];
            else if ((byte == 0xC2 || byte == 0xC3) && at + 1 < text.size())
                m_bytes += static_cast<char>((byte << 6U) | (static_cast<unsigned char>(text[++at]) & 0x3FU));
            else
                throw std::runtime_error("a letter that the floor does not know");
        }
    }

    void keyLine(Text key, Text text)
    {
        if (text.empty())
            return;
        add(key);
        add("=");
        value(text);
        line("");
    }

    void flush()
    {
        if (std::fwrite(m_bytes.data(), 1, m_bytes.size(), m_file.get()) != m_bytes.size())
            throw std::runtime_error("can't write the file");
        m_bytes.clear();
    }

private:
    struct Closer
    {
        void operator()(std::FILE* file) const noexcept { std::fclose(file); }
    };
    static constexpr std::size_t pieceSize = 65536;

    std::unique_ptr<std::FILE, Closer> m_file;
    std::string m_bytes;
};

std::string padded(Text text, std::size_t length)
{
    if (text.empty() || text.size() >= length)
        return std::string(text);
    return std::string(length - text.size(), '0').append(text);
}

class Walk
{
public:
    Walk(sqlite3* connection, Output& output) : m_queries(connection), m_output(output) {}

    void write(int key)
    {
        m_key = key;
        m_velda = &m_queries.start(Query::Velda, key);
        if (!m_velda->step())
            throw std::runtime_error("no notice " + std::to_string(key));
        if (velda(adm).empty())
            return;
        if (m_count++ == 0)
            writeHead();
        writeNotice();
    }

    void writeTail()
    {
        m_output.line("<TAIL>");
        m_output.line("t_num_notices =  " + std::to_string(m_count));
        m_output.line("</TAIL>");
        m_output.line("");
    }

private:
    [[nodiscard]] Text velda(VeldaPlace column) const { return m_velda->text(column); }

    void writeHead()
    {
        m_output.line("<HEAD>");
        m_output.keyLine("t_adm", velda(adm));
        m_output.line("</HEAD>");
        m_output.line("");
    }

    void writeNotice()
    {
        m_output.line("<NOTICE>");
        m_output.keyLine("t_notice_type", velda(noticeTyp));
        m_output.keyLine("t_action", velda(intent));
        m_output.keyLine("t_fragment", velda(fragment));
        if (!m_velda->isNull(target))
            writeTarget();
        if (velda(intent) == "ADD" || velda(intent) == "MODIFY")
            writeOwnPart();
        m_output.line("</NOTICE>");
        m_output.line("");
    }

    void writeTarget()
    {
        auto& row = m_queries.start(Query::Target, m_velda->number(target));
        if (!row.step())
            return;
        m_output.keyLine("t_trg_freq_assgn", row.text(0));
        m_output.keyLine("t_trg_stn_cls", row.text(3));
        m_output.keyLine("t_trg_bdwdth_cde", row.text(6));
        m_output.keyLine("t_trg_emi_cls", row.text(5));
        timeLine("t_trg_op_hh_fr", row.text(1));
        timeLine("t_trg_op_hh_to", row.text(2));
        m_output.keyLine("t_trg_op_cls", row.text(4));
        m_output.keyLine("t_zone_id", row.text(9));
        m_output.keyLine("t_trg_geo_type", row.text(8));
        if (!row.isNull(10) && !row.isNull(11) && !row.isNull(12) && !row.isNull(13))
            coordinateLine("t_trg_long", row, 10, 3, "E");
        if (!row.isNull(14) && !row.isNull(15) && !row.isNull(16) && !row.isNull(17))
            coordinateLine("t_trg_lat", row, 14, 2, "N");
        m_output.keyLine("t_trg_adm_ref_id", row.text(7));
    }

    void writeOwnPart()
    {
        m_output.keyLine("t_addr_code", velda(addrCode));
        if (!m_velda->isNull(freqAssgn))
            frequencyLine(m_velda->real(freqAssgn));
        writeSite(m_velda->number(geoKey), false);
        timeLine("t_op_hh_fr", velda(opHhFr));
        timeLine("t_op_hh_to", velda(opHhTo));
        m_output.keyLine("t_stn_cls", velda(stnCls));
        m_output.keyLine("t_op_cls", velda(opCls));
        m_output.keyLine("t_emi_cls", velda(emiCls));
        m_output.keyLine("t_bdwdth_cde", velda(bdwdthCde));
        writeList(Query::NatSrv, "t_nat_srv");
        m_output.keyLine("t_freq_carr", velda(freqCarr));
        // Dates of a notice file stand in the database as they stand in the file.
        m_output.keyLine("t_d_inuse", velda(dInuse));
        m_output.keyLine("t_d_adm_ntc", velda(dAdmNtc));
        writeList(Query::CallSigns, "t_call_sign");
        m_output.keyLine("t_station_id", velda(stnId));
        m_output.keyLine("t_adm_ref_id", velda(admRefId));
        if (velda(noticeTyp) != "T14")
            m_output.keyLine("t_is_resub", velda(isResub));
        m_output.keyLine("t_band_pref", velda(bandPref));
        m_output.keyLine("t_freq_dev", velda(freqDev));
        m_output.keyLine("t_energy_dsp", velda(energyDsp));
        writeList(Query::OpAgcy, "t_op_agcy");
        m_output.keyLine("t_prov", velda(prov));
        writeRemarks();
        writeCoordination();
        writeAntennas();
    }

    void frequencyLine(double frequency)
    {
        std::array<char, 32> digits;
        const auto [end, failure] = std::to_chars(digits.data(), digits.data() + digits.size(), frequency,
                                                  std::chars_format::general, 15);
        m_output.keyLine("t_freq_assgn", {digits.data(), static_cast<std::size_t>(end - digits.data())});
    }

    void timeLine(Text key, Text hours)
    {
        if (hours.empty() || hours.size() > 4)
            return;
        const auto digits = padded(hours, 4);
        m_output.keyLine(key, digits.substr(0, 2) + ":" + digits.substr(2));
    }

    // Degrees, minutes, seconds and hemisphere stand in four columns from the first on.
    void coordinateLine(Text key, const Statement& row, int first, std::size_t degrees, Text plus)
    {
        const auto digits = padded(row.text(first), degrees) + padded(row.text(first + 1), 2) +
                            padded(row.text(first + 2), 2);
        if (!digits.empty())
            m_output.keyLine(key, (row.text(first + 3) == plus ? "+" : "-") + digits);
    }

    void writeSite(int key, bool ofReceiver)
    {
        auto& site = m_queries.start(Query::Site, key);
        if (!site.step())
            return;
        if (ofReceiver && site.text(0) == "MULTIPOINT") {
            m_output.keyLine("t_geo_type", site.text(0));
            writePoints(key);
            return;
        }
        m_output.keyLine("t_geo_type", site.text(0));
        m_output.keyLine("t_site_name", site.text(2));
        m_output.keyLine("t_ctry", site.text(1));
        m_output.keyLine("t_radius", site.text(4));
        m_output.keyLine("t_zone_id", site.text(3));
        auto& points = m_queries.start(Query::Points, key);
        for (bool first = true; points.step(); first = false) {
            if (!first)
                continue;
            writePoint(points);
            m_output.keyLine("t_site_alt", points.text(8));
        }
    }

    void writePoint(const Statement& point)
    {
        coordinateLine("t_long", point, 0, 3, "E");
        coordinateLine("t_lat", point, 4, 2, "N");
    }

    void writePoints(int key)
    {
        auto& points = m_queries.start(Query::Points, key);
        while (points.step()) {
            m_output.line("<POINT>");
            writePoint(points);
            m_output.line("</POINT>");
        }
    }

    void writeList(Query query, Text key)
    {
        auto& rows = m_queries.start(query, m_key);
        while (rows.step())
            m_output.keyLine(key, rows.text(0));
    }

    void remarkLine(Text remark)
    {
        m_output.add("t_remarks = ");
        m_output.value(remark);
        m_output.line("");
    }

    // The last two pieces alone.
    void writeRemarks()
    {
        auto& row = m_queries.start(Query::Remarks, m_key);
        if (!row.step())
            return;
        const auto remarks = row.text(0);
        const auto end = remarks.rfind(';');
        if (end == Text::npos) {
            remarkLine(remarks);
            return;
        }
        const auto before = end == 0 ? Text::npos : remarks.rfind(';', end - 1);
        const auto start = before == Text::npos ? 0 : before + 1;
        remarkLine(remarks.substr(start, end - start));
        if (end + 1 < remarks.size())
            remarkLine(remarks.substr(end + 1));
    }

    void writeCoordination()
    {
        auto& rows = m_queries.start(Query::Coord, m_key);
        if (!rows.step())
            return;
        m_output.line("<COORD>");
        do
            m_output.keyLine("t_adm", rows.text(1));
        while (rows.step());
        m_output.line("</COORD>");
    }

    void writeAntennas()
    {
        struct Column
        {
            Text key;
            int place;
        };
        static constexpr std::array columns = {
            Column{"t_pwr_xyz", 0},   Column{"t_pwr_ant", 1},   Column{"t_pwr_dbw", 2},
            Column{"t_pwr_eiv", 3},   Column{"t_pwr_dens", 15}, Column{"t_ant_dir", 4},
            Column{"t_azm_max_e", 5}, Column{"t_bmwdth", 8},    Column{"t_gain_type", 7},
            Column{"t_gain_max", 6},  Column{"t_ant_ref", 9},   Column{"t_elev", 10},
            Column{"t_polar", 11},    Column{"t_hgt_agl", 12},  Column{"t_dist_max", 13},
        };
        int number = 0;
        auto& antennas = m_queries.start(Query::Antennas, m_key);
        while (antennas.step()) {
            ++number;
            m_output.line("<ANTENNA>");
            for (const auto& [key, place] : columns)
                m_output.keyLine(key, antennas.text(place));
            if (antennas.text(14) == "TRUE")
                writeSectors(number);
            writeStations(number);
            m_output.line("</ANTENNA>");
        }
    }

    void writeSectors(int number)
    {
        auto& sectors = m_queries.start(Query::Sectors, m_key, number);
        while (sectors.step()) {
            m_output.line("<ROTATIONAL>");
            m_output.keyLine("t_azm_fr", sectors.text(0));
            m_output.keyLine("t_azm_to", sectors.text(1));
            m_output.line("</ROTATIONAL>");
        }
    }

    void writeStations(int number)
    {
        const bool receivers = velda(stnType) == "TX";
        auto& stations = m_queries.start(receivers ? Query::Receivers : Query::Transmitters, m_key, number);
        while (stations.step()) {
            m_output.line(receivers ? "<RX_STATION>" : "<TX_STATION>");
            if (receivers)
                m_output.keyLine("t_nois_tmp", stations.text(1));
            writeSite(stations.number(0), receivers);
            m_output.line(receivers ? "</RX_STATION>" : "</TX_STATION>");
        }
    }

    NoticeQueries m_queries;
    Output& m_output;
    Statement* m_velda = nullptr;
    int m_key = 0;
    int m_count = 0;
};

} // namespace

void writeFile(const std::string& fileName, const std::string& database,
               const std::vector<std::int32_t>& keys)
{
    const auto connection = open(database, false);
    Output output(fileName);
    const auto moment = platform::now();
    output.line("File corrected on " + platform::shortDateText(moment) + "-" +
                platform::longTimeText(moment));
    output.line("Processed by " + session::getUserName());
    Walk walk(connection.get(), output);
    for (const auto key : keys)
        walk.write(key);
    walk.writeTail();
    output.flush();
}

} // namespace bare
