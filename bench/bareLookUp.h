#pragma once

#include "bare.h"
#include "model/Ntc.h"

#include <optional>

// The floor of the look-ups in a reference set.
namespace bare {

// A notice as the statements take it.
struct Sought
{
    std::string adm, stn_cls, op_cls, emi_cls, bdwdth_cde, zone_id, is_notice;
    double frequency = 0;
    int hourFrom = 0, hourTo = 0;
    int longDeg = 0, longMin = 0, longSec = 0;
    int latDeg = 0, latMin = 0, latSec = 0;
    std::string long_ew, lat_ns;
};

[[nodiscard]] Sought soughtBy(const Ntc& ntc);

struct SiteFound
{
    int count = 0;
    std::string site_name, ctry; // of the row that came last
};

// The three files beneath one connection, and three statements that are prepared once.
class LookUps
{
public:
    // In a folder. A mapped file is read where the system holds it, without a copy.
    LookUps(const std::string& folder, bool mapped);

    [[nodiscard]] SiteFound find(const Sought& sought);

private:
    Connection m_connection;
    std::optional<Statement> m_byPoint, m_byPointAndOpCls, m_byZone;
};

} // namespace bare
