#include "screens/areas.h"

#include "screens/controlValues.h"
#include "screens/positions.h"

namespace screens {

namespace {

// The screen has more boxes for zones than the record has stations; the others belong to no field.
using fields::zonesKept;
static_assert(zonesKept == static_cast<int>(decltype(NtcAntenna::rx)::size()));

void clearRowControls(const NoticeForm& form)
{
    blankAll(form, fields::pointRowControls());
}

void clearZoneControls(const NoticeForm& form)
{
    blankAll(form, fields::zoneControls());
}

void clearCircleControls(const NoticeForm& form)
{
    blankAll(form, fields::circleControls());
}

void showCircle(const NoticeForm& form, const NtcGeo& area)
{
    form.setText("Rradius", area.radius);
    showCentre(form, area.pt[0]);
}

// Each station is one zone, present or not.
void showZones(const NoticeForm& form, const NtcAntenna& antenna)
{
    for (int number = 1; number <= zonesKept; ++number)
        form.setText(fields::zoneControl(number),
                     antenna.rx[static_cast<std::size_t>(number - 1)].geo.zone_id);
}

void showPoints(const NoticeForm& form, const NtcGeo& area)
{
    for (int number = 1; number <= fields::pointRows; ++number)
        showPointRow(form, number, area.pt[static_cast<std::size_t>(number - 1)]);
}

// Several points show nothing on a T13 screen, which has no rows for them.
void showArea(const NoticeForm& form, const NtcAntenna& antenna, const NtcGeo& area)
{
    showOption(form, fields::areaOptions, area.geo_type);
    if (area.geo_type == "CIRCLE")
        showCircle(form, area);
    else if (area.geo_type == "ZONE")
        showZones(form, antenna);
    else if (area.geo_type == "MULTIPOINT")
        showPoints(form, antenna.rx[0].geo);
}

void readCircle(const NoticeForm& form, NtcAntenna& antenna)
{
    auto& area = startArea(antenna, "CIRCLE");
    area.radius = form.text("Rradius");
    area.pt[0] = centreOf(form);
    area.pt[0].present = true;
}

// A blank box leaves the slot of its station empty.
void readZones(const NoticeForm& form, NtcAntenna& antenna)
{
    for (int number = 1; number <= zonesKept; ++number) {
        auto zone = form.text(fields::zoneControl(number));
        if (zone.empty())
            continue;
        auto& station = antenna.rx[static_cast<std::size_t>(number - 1)];
        station.present = true;
        station.geo.present = true;
        station.geo.pt[0].present = true;
        station.geo.geo_type = "ZONE";
        station.geo.zone_id = std::move(zone);
    }
}

void readPoints(const NoticeForm& form, NtcAntenna& antenna)
{
    auto& area = startArea(antenna, "MULTIPOINT");
    for (int number = 1; number <= fields::pointRows; ++number)
        readPointRow(form, number, area);
}

} // namespace

void showAreas(const NoticeForm& form, const NtcAntenna& antenna)
{
    for (const auto& station : antenna.rx) {
        if (station.present)
            showArea(form, antenna, station.geo);
    }
}

void readAreas(const NoticeForm& form, NtcAntenna& antenna)
{
    const char* selected = selectedWord(form, fields::areaOptions);
    if (!selected)
        return;
    const std::string geoType = selected;
    if (geoType != "MULTIPOINT")
        clearRowControls(form);
    if (geoType != "ZONE")
        clearZoneControls(form);
    if (geoType != "CIRCLE")
        clearCircleControls(form);

    if (geoType == "CIRCLE")
        readCircle(form, antenna);
    else if (geoType == "ZONE")
        readZones(form, antenna);
    else
        readPoints(form, antenna);
}

} // namespace screens
