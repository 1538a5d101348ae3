#include "screens/layoutTable.h"

#include <array>

// The antenna sections with the other end of the link, the remarks, and what the screen is made of.
namespace screens {

namespace {

using enum Kind;

constexpr ScreenSet onT11T12 = onT11 | onT12;
constexpr ScreenSet onT12T13 = onT12 | onT13;

// clang-format off
constexpr auto antenna = std::to_array<Item>({
    {onAll, Label, "LblAntennaCnt"},
    {onAll, Locked, "TxtAntennaCnt", 2, 0, "Antenna section number"},
    {onAll, Gap},
    {onAll, Button, "ButtonPrevAnt", 0, 0, "", "Previous section"},
    {onAll, Button, "ButtonNextAnt", 0, 0, "", "Next section"},

    {onAll, Row},
    {onAll, Column, "Power"},
    {onAll, Code, "pwrtype", 1, 1, "Type of power, X, Y or Z"},
    {onAll, Number, "pwrant", 5, 5, "Power to the antenna"},
    {onAll, Column, "Radiated"},
    {onAll, Number, "radiated", 5, 5, "Radiated power"},
    {onAll, Code, "pwr_eiv", 1, 1, "Symbol of radiated power, E, I or V"},
    {onT11T12, Column, "Max."},
    {onT11T12, Number, "pwrMax", 5, 0, "Maximum radiated power (not stored)"},
    {onT11, Column, "Density"},
    {onT11, Number, "pwrDens", 5, 5, "Power density"},
    {onT11, Column, "Polar."},
    {onT11, Code, "polar", 2, 2, "Polarization code"},
    {onT11T12, Column, "Height (m)"},
    {onT11T12, Number, "hgtAgl", 4, 0, "Antenna height above ground level (m)"},
    {onT11T12, Column, "Length"},
    {onT11T12, Number, "distMax", 5, 0, "Maximum length of the circuit"},
    {onT11T12, Pieces, "Label51", 9},
    {onT11T12, Column},
    {onT11T12, Code, "antDir", 2, 2, "Directivity of the antenna, D or ND"},
    {onT11T12, Column},
    {onT11T12, Number, "azmMax", 5, 5, "Azimuth of maximum radiation"},
    {onT11T12, Column},
    {onT11T12, Code, "rot", 1, 1, "Rotational antenna, R"},
    {onT11T12, Column},
    {onT11T12, MultiValue, "max_fr", 4, 0, "Rotational sector from, several values"},
    {onT11T12, Column},
    {onT11T12, MultiValue, "max_to", 4, 0, "Rotational sector to, several values"},
    {onT11T12, Column},
    {onT11T12, Number, "beamwdth", 3, 3, "Antenna beamwidth"},
    {onT11T12, Column},
    {onT14, Column, "Gain"},
    {onT11T12 | onT14, Code, "gainType", 1, 1, "Type of maximum gain, I, V or D"},
    {onT11T12 | onT14, Number, "gainMax", 5, 5, "Maximum gain"},
    {onT11T12, Column},
    {onT11T12, Text, "antRef", 10, 0, "Reference antenna"},
    {onT11T12, Column},
    {onT11T12, Number, "elev", 5, 5, "Elevation angle"},
});

constexpr auto receivingStations = std::to_array<Item>({
    {onT11, Options, "Area of the receiving stations"},
    {onT11, Option, "Rpoint"},
    {onT11, Option, "multipt"},

    {onT11, Rows, "", 6, 6},
    {onT11, Pieces, "Label67", 2},
    {onT11, Column},
    {onT11, Name, "Rsite#", 30, 0, "Receiving station #: name of the location"},
    {onT11, Column},
    {onT11, Code, "Rctry#", 3, 0, "Receiving station #: geographical area (country code)"},
    {onT11, Pieces, "Label69", 4},
    {onT11, Column},
    {onT11, Number, "RDeg#", 3, 3, "Receiving station #: longitude degrees"},
    {onT11, Number, "RMin#", 2, 2, "Receiving station #: longitude minutes"},
    {onT11, Number, "Rsec#", 2, 2, "Receiving station #: longitude seconds"},
    {onT11, Column},
    {onT11, Code, "REW#", 1, 1, "Receiving station #: longitude E or W"},
    {onT11, Column},
    {onT11, Number, "RLdeg#", 2, 2, "Receiving station #: latitude degrees"},
    {onT11, Number, "RLMin#", 2, 2, "Receiving station #: latitude minutes"},
    {onT11, Number, "RLsec#", 2, 2, "Receiving station #: latitude seconds"},
    {onT11, Column},
    {onT11, Code, "RNS#", 1, 1, "Receiving station #: latitude N or S"},
    {onT11, Column, "Noise temp."},
    {onT11, Number, "noisTmp#", 4, 0, "Receiving station #: noise temperature"},
});

// The area at the other end: receiving on T12, transmitting on T13.
constexpr auto area = std::to_array<Item>({
    {onT12, Label, "Label67"},
    {onT12, Gap},
    {onT12T13, Options, "Kind of area"},
    {onT12, Option, "multipt"},
    {onT12, Option, "Rcircle"},
    {onT12T13, Option, "zone"},
    {onT13, Option, "Tcircle"},

    {onT12, Block},
    {onT12, Rows, "", 6, 0},
    {onT12, Pieces, "Label69", 4},
    {onT12, Column},
    {onT12, Number, "RDeg#", 3, 3, "Receiving point #: longitude degrees"},
    {onT12, Number, "RMin#", 2, 2, "Receiving point #: longitude minutes"},
    {onT12, Number, "Rsec#", 2, 2, "Receiving point #: longitude seconds"},
    {onT12, Column},
    {onT12, Code, "REW#", 1, 1, "Receiving point #: longitude E or W"},
    {onT12, Column},
    {onT12, Number, "RLdeg#", 2, 2, "Receiving point #: latitude degrees"},
    {onT12, Number, "RLMin#", 2, 2, "Receiving point #: latitude minutes"},
    {onT12, Number, "RLsec#", 2, 2, "Receiving point #: latitude seconds"},
    {onT12, Column},
    {onT12, Code, "RNS#", 1, 1, "Receiving point #: latitude N or S"},

    {onT12, Block},
    {onT13, Row},
    {onT13, Label, "Label67"},
    {onT13, Row},
    {onT12T13, Zones},
    {onT12T13, Row},
    {onT12T13, Label, "CircRxArea"},
    {onT12T13, Row},
    {onT12T13, Pieces, "Label7", 6},
    {onT12T13, Column},
    {onT12T13, Number, "RCDeg", 3, 3, "Circle: longitude degrees of the centre"},
    {onT12T13, Number, "RCMin", 2, 2, "Circle: longitude minutes of the centre"},
    {onT12T13, Number, "RCsec", 2, 2, "Circle: longitude seconds of the centre"},
    {onT12T13, Column},
    {onT12T13, Code, "RCEW", 1, 1, "Circle: longitude E or W of the centre"},
    {onT12T13, Column},
    {onT12T13, Number, "RCLdeg", 2, 2, "Circle: latitude degrees of the centre"},
    {onT12T13, Number, "RCLMin", 2, 2, "Circle: latitude minutes of the centre"},
    {onT12T13, Number, "RCLsec", 2, 2, "Circle: latitude seconds of the centre"},
    {onT12T13, Column},
    {onT12T13, Code, "RCNS", 1, 1, "Circle: latitude N or S of the centre"},
    {onT12T13, Column},
    {onT12T13, Column},
    {onT12T13, Number, "Rradius", 5, 5, "Circle: nominal radius"},
});

constexpr auto remarks = std::to_array<Item>({
    {onAll, Heading, "LblRemarks"},
    {onAll, Row},
    {onAll, Remarks, "TxtRemarks", 0, 0, "Remarks"},
});

constexpr auto barItems = std::to_array<Item>({
    {onAll, Button, "ButtonPrevNtc", 0, 0, "Previous notice", "<<"},
    {onAll, Button, "ButtonNextNtc", 0, 0, "Next notice", ">>"},
    {onAll, Gap},
    {onAll, Button, "ButtonUpdate", 0, 0, "", "Update Notice"},
    {onAll, Button, "ButtonDelete"},
    {onAll, Button, "ButtonNTC"},
    {onAll, Button, "ButtonPrint", 0, 0, "", "Print Screen"},
    {onAll, End},
    {onAll, Button, "ButtonCancel"},
});
// clang-format on

} // namespace

std::span<const Item> antennaItems()
{
    return antenna;
}

std::span<const Item> receivingStationsItems()
{
    return receivingStations;
}

std::span<const Item> areaItems()
{
    return area;
}

std::span<const Item> remarksItems()
{
    return remarks;
}

std::span<const Item> bar()
{
    return barItems;
}

} // namespace screens
