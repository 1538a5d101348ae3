#include "screens/receivingStations.h"

#include "screens/controlValues.h"
#include "screens/positions.h"
#include "screens/sectionTests.h"

#include <algorithm>

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

std::string entryAt(const NoticeForm& form, const std::string& control, std::size_t place)
{
    const auto entries = entriesOf(form, control);
    return place < entries.size() ? entries[place] : std::string();
}

NtcRx stationOfEntries(const NoticeForm& form, std::size_t place)
{
    NtcRx station;
    forFieldsOf(listRow, station, [&](const std::string& control, std::string& value) {
        value = entryAt(form, control, place);
    });
    return station;
}

std::vector<std::string> listControls()
{
    std::vector<std::string> names;
    const NtcRx none;
    forFieldsOf(listRow, none,
                [&](const std::string& control, const std::string&) { names.push_back(control); });
    return names;
}

// The stations that the longest of the lists tells of.
std::size_t listedStations(const NoticeForm& form)
{
    std::size_t count = 0;
    for (const auto& control : listControls())
        count = std::max(count, entriesOf(form, control).size());
    return count;
}

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
    if (!allEntriesFit(form, listControls()))
        return;
    auto point = stationOfEntries(form, 0).geo.pt[0];
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
    if (!allEntriesFit(form, listControls()))
        return;
    const auto count = std::min(listedStations(form), antenna.rx.size() - listSlot);
    for (std::size_t place = 0; place < count; ++place)
        antenna.rx[listSlot + place] = asPoint(stationOfEntries(form, place));
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
    for (const auto& control : listControls())
        showFirstEntry(form, control);
}

std::vector<std::string> listedStationControls()
{
    return listControls();
}

void readStations(const NoticeForm& form, NtcAntenna& antenna)
{
    if (form.isSelected(severalPoints))
        readSeveralPoints(form, antenna);
    else
        readSeveralStations(form, antenna);
}

} // namespace screens
