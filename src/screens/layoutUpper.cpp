#include "screens/layoutTable.h"

#include <array>

// The notice section: what a notice has once.
namespace screens {

namespace {

using enum Kind;

constexpr ScreenSet onT11T12 = onT11 | onT12;
constexpr ScreenSet onT11T12T13 = onT11 | onT12 | onT13;

// clang-format off
constexpr auto notice = std::to_array<Item>({
    {onAll, LeadLabel, "Label13"},
    {onAll, Locked, "TxtVeldakey", 9, 0, "Index number of the notice"},
    {onAll, Gap},
    {onAll, Label, "LblDateRcv"},
    {onAll, Locked, "TxtDateRcv", 10, 0, "Date of receipt"},
    {onAll, Gap},
    {onAll, Label, "Label1"},
    {onAll, Code, "nAdm", 3, 3, "Notifying administration"},

    {onAll, Row},
    {onAll, Lead, "Intent"},
    {onAll, Options, "Intent"},
    {onAll, Option, "Int_Add", 0, 0, "", "Add"},
    {onAll, Option, "Int_Mod", 0, 0, "", "Modify"},
    {onAll, Option, "Int_Sup", 0, 0, "", "Suppress"},
    {onAll, Option, "Int_Wdraw"},
    {onAll, Gap},
    {onAll, Label, "Label2"},
    {onAll, Number, "dNtcDD", 2, 2, "Administration's date: day", "dd"},
    {onAll, Number, "dNtcMM", 2, 2, "Administration's date: month", "mm"},
    {onAll, Number, "dNtcYY", 4, 4, "Administration's date: year", "yyyy"},

    {onAll, Row},
    {onAll, LeadLabel, "Label3"},
    {onAll, Options, "Provision"},
    {onT11T12, Option, "Prov1", 0, 0, "", "RR11.2"},
    {onT13, Option, "Prov1", 0, 0, "", "RR11.9"},
    {onT14, Option, "Prov1", 0, 0, "", "RR11.17"},
    {onT11T12T13, Option, "Prov2", 0, 0, "", "RR9.21"},
    {onT12, Option, "prov4", 0, 0, "", "GE85N"},
    {onAll, Gap},
    {onAll, Options, "First notification or resubmission"},
    {onAll, Option, "FirstNtf"},
    {onT11T12T13, Option, "Re_Sub"},

    {onAll, Row},
    {onAll, Label, "Label4"},
    {onAll, Text, "admRefID", 24, 0, "Administration unique ID"},
});

constexpr auto target = std::to_array<Item>({
    {onAll, Label, "Label5"},
    {onAll, Text, "trgadmRefID", 24, 0, "Target: previously recorded administration unique ID"},

    {onAll, Row},
    {onAll, Column, "Assigned frequency"},
    {onAll, Number, "trgFreq", 10, 10, "Target: assigned frequency"},
    {onAll, Code, "Unit", 1, 1, "Target: unit of the frequency, k, M or G"},
    {onAll, Column, "Class of station"},
    {onAll, Code, "trgStnCls", 2, 2, "Target: class of station"},
    {onAll, Column, "Bandwidth"},
    {onAll, Code, "trgBdwdth", 4, 4, "Target: bandwidth"},
    {onAll, Column, "Emission"},
    {onAll, Code, "trgEmi", 5, 5, "Target: class of emission"},
    {onT11, Column, "Class of op."},
    {onT11, Code, "trgOpCls", 1, 1, "Target: class of operation, A, B or C"},
    {onAll, Column, "Hours from"},
    {onAll, Number, "trgOphhFr", 4, 4, "Target: operating hours from"},
    {onAll, Column, "to"},
    {onAll, Number, "trgOphhTo", 4, 4, "Target: operating hours to"},
    {onT14, Column, "Zone"},
    {onT14, Code, "trgZoneID", 5, 5, "Target: zone"},

    {onAll, Row},
    {onAll, Pieces, "Label12", 4},
    {onAll, Column},
    {onAll, Number, "trgDeg", 3, 3, "Target: longitude degrees"},
    {onAll, Number, "trgMin", 2, 2, "Target: longitude minutes"},
    {onAll, Number, "trgsec", 2, 2, "Target: longitude seconds"},
    {onAll, Column},
    {onAll, Code, "EW", 1, 1, "Target: longitude E or W"},
    {onAll, Column},
    {onAll, Number, "trgLdeg", 2, 2, "Target: latitude degrees"},
    {onAll, Number, "trgLMin", 2, 2, "Target: latitude minutes"},
    {onAll, Number, "trgLsec", 2, 2, "Target: latitude seconds"},
    {onAll, Column},
    {onAll, Code, "NS", 1, 1, "Target: latitude N or S"},
});

constexpr auto assignment = std::to_array<Item>({
    {onAll, Column, "Assigned frequency"},
    {onAll, Number, "freq", 10, 10, "Assigned frequency"},
    {onAll, Code, "Units1", 1, 1, "Unit of the assigned frequency, k, M or G"},
    {onAll, Column, "Class of station"},
    {onAll, Code, "stnCls", 2, 2, "Class of station"},
    {onAll, Column, "Bandwidth"},
    {onAll, Code, "bdwdth", 4, 4, "Bandwidth"},
    {onAll, Column, "Emission"},
    {onAll, Code, "emi", 5, 5, "Class of emission"},
    {onT11, Column, "Class of op."},
    {onT11, Code, "clsOp", 1, 1, "Class of operation, A, B or C"},
    {onAll, Column, "Hours from"},
    {onAll, Number, "ophhFr", 4, 4, "Operating hours from"},
    {onAll, Column, "to"},
    {onAll, Number, "ophhTo", 4, 4, "Operating hours to"},
    {onAll, Column, "Carrier frequency"},
    {onAll, Number, "freqCarr", 10, 10, "Reference (carrier) frequency"},
    {onAll, Code, "Units2", 1, 1, "Unit of the carrier frequency, k, M or G"},
    {onAll, Column, "Nature of service"},
    {onAll, MultiValue, "natsrv", 2, 0, "Nature of service, several values"},
    {onT11, Column, "Deviation (kHz)"},
    {onT11, Number, "freqDev", 5, 5, "Frequency deviation (kHz)"},
    {onT11, Column, "Energy dispersal"},
    {onT11, Number, "engDisp", 6, 6, "Energy dispersal"},
    {onT14, Column, "Date in use"},
    {onT14, Number, "dUseDD", 2, 2, "Date in use: day", "dd"},
    {onT14, Number, "dUseMM", 2, 2, "Date in use: month", "mm"},
    {onT14, Number, "dUseYY", 4, 4, "Date in use: year", "yyyy"},
});

constexpr auto station = std::to_array<Item>({
    {onT11T12, Column, "4a Site"},
    {onT13, Column, "Site"},
    {onT11T12T13, Name, "siteName", 30, 30, "Name of the site of the station"},
    {onT11T12, Column, "4b"},
    {onT13, Column, "Country"},
    {onT11T12T13, Code, "ctry", 3, 3, "Geographical area (country code)"},
    {onT14, Pieces, "Label31", 2},
    {onT14, Column},
    {onT14, Code, "zoneID", 5, 5, "Zone"},
    {onT14, Column},
    {onT11T12T13, Pieces, "Label33", 4},
    {onT14, Over, "LblCentreRxArea", 4},
    {onT14, Pieces, "Label33", 6},
    {onAll, Column},
    {onAll, Number, "deg", 3, 3, "Longitude degrees"},
    {onAll, Number, "min", 2, 2, "Longitude minutes"},
    {onAll, Number, "sec", 2, 2, "Longitude seconds"},
    {onAll, Column},
    {onAll, Code, "EW1", 1, 1, "Longitude E or W"},
    {onAll, Column},
    {onAll, Number, "Ldeg", 2, 2, "Latitude degrees"},
    {onAll, Number, "LMin", 2, 2, "Latitude minutes"},
    {onAll, Number, "Lsec", 2, 2, "Latitude seconds"},
    {onAll, Column},
    {onAll, Code, "NS1", 1, 1, "Latitude N or S"},
    {onT14, Column},
    {onT14, Column},
    {onT14, Number, "radius", 5, 5, "Radius"},

    {onT11T12T13, Row},
    {onT11T12, Pieces, "Label27", 4},
    {onT11T12, Column},
    {onT13, Column, "Date in use"},
    {onT11T12T13, Number, "dUseDD", 2, 2, "Date in use: day", "dd"},
    {onT11T12T13, Number, "dUseMM", 2, 2, "Date in use: month", "mm"},
    {onT11T12T13, Number, "dUseYY", 4, 4, "Date in use: year", "yyyy"},
    {onT11T12, Column},
    {onT11T12, MultiValue, "callSign", 10, 0, "Call sign, several values"},
    {onT11T12, Column},
    {onT11T12, Column},
    {onT11T12, Text, "stateID", 20, 0, "Station identification"},
    {onT11T12, Column, "Altitude (m)"},
    {onT11T12, Number, "st_Alt", 5, 0, "Altitude of the site above sea level (m)"},
});

constexpr auto coordination = std::to_array<Item>({
    {onAll, Label, "Label40"},

    {onAll, Row},
    {onAll, Text, "coordProv", 8, 0, "Provision of the coordination", "Provision"},
    {onAll, Code, "cAdm1", 3, 3, "Coordination administration 1"},
    {onAll, Code, "cAdm2", 3, 3, "Coordination administration 2"},
    {onAll, Code, "cAdm3", 3, 3, "Coordination administration 3"},
    {onAll, Code, "cAdm4", 3, 3, "Coordination administration 4"},
    {onAll, Code, "cAdm5", 3, 3, "Coordination administration 5"},
    {onAll, Code, "cAdm6", 3, 3, "Coordination administration 6"},
    {onAll, Code, "cAdm7", 3, 3, "Coordination administration 7"},
    {onAll, Code, "cAdm8", 3, 3, "Coordination administration 8"},
    {onAll, Code, "cAdm9", 3, 3, "Coordination administration 9"},
    {onAll, Code, "cAdm10", 3, 3, "Coordination administration 10"},
    {onAll, Code, "cAdm11", 3, 3, "Coordination administration 11 (not stored)"},
    {onAll, Code, "cAdm12", 3, 3, "Coordination administration 12 (not stored)"},
    {onAll, Code, "cAdm13", 3, 3, "Coordination administration 13 (not stored)"},

    {onAll, Row},
    {onAll, Word, "Operating agency"},
    {onAll, MultiValue, "opAgcy", 3, 0, "Operating agency, several values"},
    {onAll, Gap},
    {onAll, Word, "Address code"},
    {onAll, Code, "addr_cde", 2, 2, "Address code of the administration"},
});
// clang-format on

} // namespace

std::span<const Item> noticeItems()
{
    return notice;
}

std::span<const Item> targetItems()
{
    return target;
}

std::span<const Item> assignmentItems()
{
    return assignment;
}

std::span<const Item> stationItems()
{
    return station;
}

std::span<const Item> coordinationItems()
{
    return coordination;
}

} // namespace screens
