#include "screens/positions.h"

#include "screens/recordFields.h"

#include <algorithm>

namespace screens {

void showPointRow(const NoticeForm& form, int number, const NtcGeoPt& point)
{
    for (const auto& row : fields::positions)
        form.setText(fields::pointControl(row, number), point.*row.member);
}

NtcGeoPt pointOf(const NoticeForm& form, int number)
{
    NtcGeoPt point;
    for (const auto& row : fields::positions)
        point.*row.member = form.text(fields::pointControl(row, number));
    return point;
}

void showCentre(const NoticeForm& form, const NtcGeoPt& point)
{
    for (const auto& row : fields::positions)
        form.setText(fields::circleControl(row), point.*row.member);
}

NtcGeoPt centreOf(const NoticeForm& form)
{
    NtcGeoPt point;
    for (const auto& row : fields::positions)
        point.*row.member = form.text(fields::circleControl(row));
    return point;
}

bool anyPointKeyGiven(const NtcGeoPt& point)
{
    return std::any_of(fields::positions.begin(), fields::positions.end(),
                       [&](const auto& row) { return !(point.*row.member).empty(); });
}

void readPointRow(const NoticeForm& form, int number, NtcGeo& area)
{
    auto point = pointOf(form, number);
    if (!anyPointKeyGiven(point))
        return;
    point.present = true;
    area.pt[static_cast<std::size_t>(number - 1)] = std::move(point);
}

NtcGeo& startArea(NtcAntenna& antenna, const char* geoType)
{
    auto& station = antenna.rx[0];
    station.present = true;
    station.geo.present = true;
    station.geo.geo_type = geoType;
    return station.geo;
}

} // namespace screens
