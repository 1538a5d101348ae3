#include "screens/hints.h"

#include "model/ScreenModule.h"
#include "platform/hostFormat.h"
#include "platform/numberText.h"
#include "platform/runtimeError.h"
#include "screens/controlValues.h"
#include "screens/fieldRuleTable.h"
#include "screens/multiValueBox.h"
#include "screens/receivingStations.h"
#include "screens/recordFields.h"
#include "screens/recordMapping.h"
#include "screens/sectionTests.h"

#include <algorithm>

namespace screens {

namespace {

using Answer = std::optional<Said>;

bool isAmong(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

Answer hintOfDate(const NoticeForm& form, const fields::DateRow& row)
{
    std::string date;
    takeDate(form, row, date);
    if (date.empty()) {
        const bool any =
            !form.text(row.day).empty() || !form.text(row.month).empty() || !form.text(row.year).empty();
        return any ? Answer({Hint::DateIncomplete, {}}) : std::nullopt;
    }
    if (platform::readDate(date))
        return std::nullopt;
    return Said{Hint::NoCalendarDay, QString::fromStdString(date)};
}

Answer hintOfFrequency(const NoticeForm& form, const char* control, const char* unit)
{
    const auto text = form.text(control);
    if (!platform::isNumeric(text))
        return std::nullopt; // it can't be left like this
    try {
        const double megahertz = ScreenModule::freqToMHz(platform::readNumber(text), form.text(unit));
        return megahertz == 0 && form.text(unit).empty() ? Answer({Hint::NoUnit, {}}) : std::nullopt;
    } catch (const platform::RuntimeError&) {
        return Said{Hint::TooLarge, {}};
    }
}

// Columns of the database that hold whole numbers alone.
bool isWholeNumber(const std::string& control)
{
    static const auto names =
        namesIn("deg min sec Ldeg LMin Lsec ophhFr ophhTo RDeg1-6 RMin1-6 Rsec1-6 RLdeg1-6 RLMin1-6 RLsec1-6 "
                "RCDeg RCMin RCsec RCLdeg RCLMin RCLsec");
    return isAmong(names, control);
}

Answer hintOfWholeNumber(const NoticeForm& form, const std::string& control)
{
    const auto text = form.text(control);
    if (!platform::isNumeric(text))
        return std::nullopt;
    try {
        const double number = platform::readNumber(text);
        const auto stored = platform::roundToLong(number);
        if (static_cast<double>(stored) == number)
            return std::nullopt;
        return Said{Hint::Rounded, QString::fromStdString(platform::integerText(stored))};
    } catch (const platform::RuntimeError&) {
        return std::nullopt; // its check keeps the operator in the field
    }
}

bool isSectorList(const std::string& control)
{
    return control == "max_fr" || control == "max_to";
}

Answer hintOfSectors(const NoticeForm& form)
{
    const auto starts = entriesOf(form, "max_fr").size();
    const auto ends = entriesOf(form, "max_to").size();
    if (starts + ends == 0)
        return std::nullopt;
    if (form.text("rot") != "R")
        return Said{Hint::NoRotation, {}};
    return starts != ends ? Answer({Hint::SectorsUnpaired, {}}) : std::nullopt;
}

Answer hintOfList(const NoticeForm& form, const MultiValueBox& box, const std::string& control)
{
    if (box.selectedEntry() < 0 && !box.currentText().isEmpty())
        return Said{Hint::NotEntered, {}};
    if (box.entries().size() > maxEntries)
        return Said{Hint::TooManyEntries, {}};
    return isSectorList(control) ? hintOfSectors(form) : std::nullopt;
}

// The frequency that the control, or the unit of which it is, belongs to.
Answer hintOfFrequencies(const NoticeForm& form, std::string_view control)
{
    const auto belongs = [control](const char* frequency, const char* unit) {
        return unit != nullptr && (control == frequency || control == unit);
    };
    for (const auto& row : fields::assignmentPairs) {
        if (belongs(row.control, row.unit))
            return hintOfFrequency(form, row.control, row.unit);
        if (belongs(row.target, row.targetUnit))
            return hintOfFrequency(form, row.target, row.targetUnit);
    }
    for (const auto& row : fields::frequencies) {
        if (belongs(row.control, row.unit))
            return hintOfFrequency(form, row.control, row.unit);
    }
    return std::nullopt;
}

bool isOfDate(const fields::DateRow& row, std::string_view control)
{
    return control == row.day || control == row.month || control == row.year;
}

Answer hintOfRemarks(const NoticeForm& form)
{
    const auto text = form.text("TxtRemarks");
    if (text.find('\r') != std::string::npos)
        return Said{Hint::RemarkLines, {}};
    // The file takes what stands on both sides of the last separator.
    const auto separators = std::count(text.begin(), text.end(), ';');
    return separators > 1 ? Answer({Hint::RemarkParts, {}}) : std::nullopt;
}

std::string withUnit(const NoticeForm& form, const char* control, const char* unit)
{
    const auto text = form.text(control);
    return unit == nullptr || text.empty() ? text : text + ' ' + form.text(unit);
}

// An empty target takes the notice's value, where it does, so that both are the same.
template <class Rows>
Answer hintOfOwnValue(const NoticeForm& form, const Rows& rows, std::string_view control)
{
    for (const auto& row : rows) {
        if (control != row.control && (row.unit == nullptr || control != row.unit))
            continue;
        const auto own = withUnit(form, row.control, row.unit);
        const auto target = withUnit(form, row.target, row.targetUnit);
        const bool isReplaced = own != target && (!target.empty() || !row.fallsBack);
        if (isReplaced && !own.empty())
            return Said{Hint::TakenFromTarget,
                        target.empty() ? QStringLiteral("\u2013") : QString::fromStdString(target)};
    }
    return std::nullopt;
}

Answer hintOfReplacedValue(const NoticeForm& form, std::string_view control)
{
    if (!form.isSelected("Int_Sup") && !form.isSelected("Int_Wdraw"))
        return std::nullopt;
    if (auto said = hintOfOwnValue(form, fields::assignmentPairs, control))
        return said;
    if (auto said = hintOfOwnValue(form, fields::positionPairs, control))
        return said;
    return hintOfOwnValue(form, fields::zonePairs, control);
}

// Stations, an area or sectors: what goes with the antenna.
bool anyStationGiven(const NoticeForm& form)
{
    auto names = fields::antennaControls(form.type());
    std::erase_if(names, [](const std::string& name) {
        return std::any_of(fields::antennaTexts.begin(), fields::antennaTexts.end(),
                           [&name](const auto& row) { return name == row.control; });
    });
    return std::any_of(names.begin(), names.end(), [&form](const std::string& name) {
        return !form.text(name).empty() || !entriesOf(form, name).empty();
    });
}

bool isAnyStationListTooLong(const NoticeForm& form)
{
    const auto lists = listedStationControls();
    return std::any_of(lists.begin(), lists.end(), [&form](const std::string& list) {
        return entriesOf(form, list).size() > maxEntries;
    });
}

bool anyAntennaValueGiven(const NoticeForm& form)
{
    return std::any_of(fields::antennaTexts.begin(), fields::antennaTexts.end(), [&form](const auto& row) {
        return contains(row.screens, form.type()) && !form.text(row.control).empty();
    });
}

bool isPoint(const NtcRx& station)
{
    return station.present && station.geo.geo_type == "POINT";
}

// An area of several points is lost beside stations: these take its rows.
int hiddenOnT11(const NtcAntenna& antenna)
{
    const auto& first = antenna.rx[0];
    const auto presents = std::count_if(antenna.rx.begin(), antenna.rx.end(),
                                        [](const NtcRx& station) { return station.present; });
    const auto further = std::count_if(antenna.rx.begin() + 1, antenna.rx.end(), isPoint);
    const bool firstIsShown = first.present && first.geo.present && (isPoint(first) || further == 0);
    return static_cast<int>(presents - further - (firstIsShown ? 1 : 0));
}

// What the screen shows is of the kind of the last station that has one.
std::string shownKind(ScreenType screen, const NtcAntenna& antenna)
{
    std::string kind;
    for (const auto& station : antenna.rx) {
        const bool known =
            std::any_of(fields::areaOptions.begin(), fields::areaOptions.end(), [&](const auto& option) {
                return contains(option.screens, screen) && station.geo.geo_type == option.word;
            });
        if (station.present && known)
            kind = station.geo.geo_type;
    }
    return kind;
}

// Of a circle the last one stays, of the points of one area those of the first station, of zones each that
// has a name.
int hiddenOfAreas(ScreenType screen, const NtcAntenna& antenna)
{
    const auto kind = shownKind(screen, antenna);
    int hidden = 0;
    int circles = 0;
    for (const auto& station : antenna.rx) {
        if (!station.present)
            continue;
        const bool isShown = (kind == "ZONE" && !station.geo.zone_id.empty()) ||
                             (kind == "CIRCLE" && station.geo.geo_type == kind && ++circles == 1) ||
                             (kind == "MULTIPOINT" && &station == &antenna.rx[0]);
        hidden += isShown ? 0 : 1;
    }
    return hidden;
}

int hiddenOfSection(ScreenType screen, const NtcAntenna& antenna)
{
    if (!antenna.present)
        return 0;
    if (screen == ScreenType::T11)
        return hiddenOnT11(antenna);
    return hiddenOfAreas(screen, antenna); // all of them where the screen has no areas
}

} // namespace

std::optional<Said> hintOfField(const NoticeForm& form, const std::string& control)
{
    if (isAmong(fields::controlsNotStored(form.type()), control))
        return Said{Hint::NotStored, {}};
    if (control == "TxtRemarks")
        return hintOfRemarks(form);
    if (auto said = hintOfReplacedValue(form, control))
        return said;
    if (const auto* const box = form.multiValueBox(control))
        return hintOfList(form, *box, control);
    for (const auto& row : fields::dates) {
        if (isOfDate(row, control))
            return hintOfDate(form, row);
    }
    if (isWholeNumber(control))
        return hintOfWholeNumber(form, control);
    return hintOfFrequencies(form, control);
}

std::optional<Said> hintOfSection(const NoticeForm& form)
{
    if (form.hidden().coordination)
        return Said{Hint::CoordinationNotShown, {}};
    const int number = antennaNumber(form);
    if (number < 1 || number > static_cast<int>(form.hidden().stations.size()))
        return std::nullopt;
    if (const int hidden = form.hidden().stations[static_cast<std::size_t>(number - 1)]; hidden > 0)
        return Said{Hint::StationsNotShown, QString::number(hidden)};
    if (form.type() == ScreenType::T11 && isAnyStationListTooLong(form))
        return Said{Hint::TooManyStations, {}};
    if (!anyAntennaValueGiven(form) && anyStationGiven(form))
        return Said{Hint::SectionNotStored, {}};
    return std::nullopt;
}

Hidden hiddenOf(ScreenType screen, const Ntc& notice)
{
    Hidden hidden;
    hidden.coordination = !notice.coord.adm[fields::coordinationsKept].empty();
    if (notice.intent != "SUPPRESS")
        std::transform(notice.antenna.begin(), notice.antenna.end(), hidden.stations.begin(),
                       [screen](const NtcAntenna& antenna) { return hiddenOfSection(screen, antenna); });
    return hidden;
}

} // namespace screens
