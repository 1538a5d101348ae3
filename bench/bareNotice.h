#pragma once

#include "bare.h"

#include <array>

// A notice on its way through the floor of the load: texts that point into the file, in the order of the
// columns that they go to.
namespace bare {

enum VeldaColumn : std::uint8_t
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
    dAdmNtc,
    noticeTyp,
    stnId,
    stnType,
    intent,
    prov,
    admRefId,
    isResub,
    bandPref,
    freqDev,
    energyDsp,
    srcUpdate,
    dUpdated,
    dRcv,
    veldaColumns
};

enum TargetColumn : std::uint8_t
{
    trgFreqAssgn,
    trgOpHhFr,
    trgOpHhTo,
    trgStnCls,
    trgOpCls,
    trgEmiCls,
    trgBdwdthCde,
    trgGeoType,
    trgZoneId,
    trgPoint, // its eight columns of coordinates, as in a point
    trgAdmRefId = trgPoint + 8,
    targetColumns
};

enum SiteColumn : std::uint8_t
{
    geoType,
    ctry,
    siteName,
    zoneId,
    radius,
    siteColumns
};

enum PointColumn : std::uint8_t
{
    longDeg,
    longEw,
    longMin,
    longSec,
    latDeg,
    latNs,
    latMin,
    latSec,
    siteAlt,
    pointColumns
};

inline constexpr std::size_t antennaColumns = 15; // all but is_rot

struct Point
{
    std::array<Text, pointColumns> columns;
    bool present = false;
};

struct Site
{
    std::array<Text, siteColumns> columns;
    std::array<Point, 6> points;
};

struct Sector
{
    std::array<Text, 2> columns;
};

struct Station
{
    Site site;
    Text noiseTemp;
};

// The first `count` values of a list are given.
template <class T, std::size_t N>
struct List
{
    std::array<T, N> values;
    std::size_t count = 0;

    T& next() { return values.at(count++); }
    [[nodiscard]] const T* begin() const { return values.data(); }
    [[nodiscard]] const T* end() const { return values.data() + count; }
};

struct Antenna
{
    std::array<Text, antennaColumns> columns;
    bool rotational = false;
    List<Sector, 6> sectors;
    List<Station, 15> stations;
};

struct Notice
{
    std::array<Text, veldaColumns> velda;
    std::array<Text, targetColumns> target;
    Site site;
    List<Text, 6> callSigns, natSrv, opAgcy;
    Text coordProv;
    List<Text, 11> coordAdm;
    std::string remarks;
    List<Antenna, 15> antennas;
};

} // namespace bare
