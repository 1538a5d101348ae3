#include "screens/receivingStations.h"

#include "screens/controlValues.h"
#include "screens/positions.h"
#include "screens/sectionTests.h"

#include <algorithm>
#include <map>

namespace screens {

namespace {

constexpr int listRow = fields::pointRows; // its boxes are lists
constexpr std::size_t listSlot = listRow - 1;
constexpr const char* severalPoints = "multipt";

// The controls of a row with the members that they are for.
template <class Station, class Visit>
void forFieldsOf(int number, Station& station, Visit visit)
{
    visit(fields::noiseControl(number), station.noise_temp);
    visit(fields::siteControl(number), station.geo.site_name);
    visit(fields::countryControl(number), station.geo.ctry);
    auto& point = station.geo.pt[0];
    for (const auto& row : fields::positions)
        visit(fields::pointControl(row, number), point.*row.member);
}

bool isPoint(const NtcRx& station)
{
    return station.present && station.geo.geo_type == "POINT";
}

NtcRx asPoint(NtcRx station)
{
    station.present = true;
    station.geo.present = true;
    station.geo.geo_type = "POINT";
    station.geo.pt[0].present = true;
    return station;
}

void showRow(const NoticeForm& form, int number, const NtcRx& station)
{
    forFieldsOf(number, station,
                [&](const std::string& control, const std::string& value) { form.setText(control, value); });
}

NtcRx stationOfRow(const NoticeForm& form, int number)
{
    NtcRx station;
    forFieldsOf(number, station,
                [&](const std::string& control, std::string& value) { value = form.text(control); });
    return station;
}

// Empty values go into the lists too: the values of a station find together by their places.
void addToLists(const NoticeForm& form, const NtcRx& station)
{
    forFieldsOf(listRow, station, [&](const std::string& control, const std::string& value) {
        addEntry(form, control, value);
    });
}

// What the lists of row 6 tell of stations. Each list stands for itself: one that is too long counts as
// empty, and the others are read all the same.
class ListedStations
{
public:
    explicit ListedStations(const NoticeForm& form)
    {
        for (const auto& control : listedStationControls())
            m_lists[control] = entriesThatFit(form, control);
    }

    // As many as the longest list has.
    [[nodiscard]] std::size_t count() const
    {
        std::size_t longest = 0;
        for (const auto& [control, entries] : m_lists)
            longest = std::max(longest, entries.size());
        return longest;
    }

    // With the entries at the place; beyond the end of a list they are empty.
    [[nodiscard]] NtcRx at(std::size_t place) const
    {
        NtcRx station;
        forFieldsOf(listRow, station, [&](const std::string& control, std::string& value) {
            const auto& entries = m_lists.at(control);
            value = place < entries.size() ? entries[place] : std::string();
        });
        return station;
    }

private:
    std::map<std::string, std::vector<std::string>> m_lists;
};

void showLastPoint(const NoticeForm& form, const NtcGeoPt& point)
{
    for (const auto& row : fields::positions) {
        const auto control = fields::pointControl(row, listRow);
        if (!(point.*row.member).empty())
            addEntry(form, control, point.*row.member);
        showFirstEntry(form, control);
    }
}

void showSeveralPoints(const NoticeForm& form, const NtcRx& station)
{
    form.setSelected(severalPoints, true);
    form.setText(fields::noiseControl(1), station.noise_temp);
    for (int number = 1; number < listRow; ++number)
        showPointRow(form, number, station.geo.pt[static_cast<std::size_t>(number - 1)]);
    showLastPoint(form, station.geo.pt[listSlot]);
}

void showFirstStation(const NoticeForm& form, const NtcRx& station)
{
    if (!station.present || !station.geo.present)
        return;
    if (station.geo.geo_type == "POINT") {
        form.setSelected("Rpoint", true);
        showRow(form, 1, station);
    } else {
        showSeveralPoints(form, station);
    }
}

void showFurtherStation(const NoticeForm& form, std::size_t slot, const NtcRx& station)
{
    form.setSelected(severalPoints, false);
    if (slot < listSlot)
        showRow(form, static_cast<int>(slot) + 1, station);
    else
        addToLists(form, station);
}

void clearRxControls(const NoticeForm& form)
{
    blankAll(form, fields::stationOnlyControls());
}

void readLastPoint(const NoticeForm& form, NtcGeo& area)
{
    auto point = ListedStations(form).at(0).geo.pt[0];
    if (!anyPointKeyGiven(point))
        return;
    point.present = true;
    area.pt[listSlot] = std::move(point);
}

void readSeveralPoints(const NoticeForm& form, NtcAntenna& antenna)
{
    clearRxControls(form);
    auto& area = startArea(antenna, "MULTIPOINT");
    antenna.rx[0].noise_temp = form.text(fields::noiseControl(1));
    for (int number = 1; number < listRow; ++number)
        readPointRow(form, number, area);
    readLastPoint(form, area);
}

void readListedStations(const NoticeForm& form, NtcAntenna& antenna)
{
    const ListedStations stations(form);
    const auto count = std::min(stations.count(), antenna.rx.size() - listSlot);
    for (std::size_t place = 0; place < count; ++place)
        antenna.rx[listSlot + place] = asPoint(stations.at(place));
}

void readSeveralStations(const NoticeForm& form, NtcAntenna& antenna)
{
    for (int number = 1; number < listRow; ++number) {
        const auto station = stationOfRow(form, number);
        if (anyRxKeyGiven(station))
            antenna.rx[static_cast<std::size_t>(number - 1)] = asPoint(station);
    }
    readListedStations(form, antenna);
}

} // namespace

bool anyRxKeyGiven(const NtcRx& station)
{
    return !station.geo.site_name.empty() || !station.geo.ctry.empty() || anyPointKeyGiven(station.geo.pt[0]);
}

void showStations(const NoticeForm& form, const NtcAntenna& antenna)
{
    showFirstStation(form, antenna.rx[0]);
    for (std::size_t slot = 1; slot < antenna.rx.size(); ++slot) {
        if (isPoint(antenna.rx[slot]))
            showFurtherStation(form, slot, antenna.rx[slot]);
    }
    for (const auto& control : listedStationControls())
        showFirstEntry(form, control);
}

std::vector<std::string> listedStationControls()
{
    std::vector<std::string> names;
    const NtcRx none;
    forFieldsOf(listRow, none,
                [&](const std::string& control, const std::string&) { names.push_back(control); });
    return names;
}

void readStations(const NoticeForm& form, NtcAntenna& antenna)
{
    if (form.isSelected(severalPoints))
        readSeveralPoints(form, antenna);
    else
        readSeveralStations(form, antenna);
}

} // namespace screens
