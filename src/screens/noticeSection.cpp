#include "screens/noticeSection.h"

#include "model/ScreenModule.h"
#include "screens/controlValues.h"
#include "screens/recordMapping.h"
#include "screens/sectionTests.h"
#include "screens/targetRule.h"

#include <algorithm>

namespace screens {

namespace {

bool addsOrModifies(const Ntc& notice)
{
    return notice.intent == "ADD" || notice.intent == "MODIFY";
}

// The own values of a pair.
template <class Rows, class Record>
void showOwn(const NoticeForm& form, const Rows& rows, const Record& record)
{
    forRowsOf(form, rows, [&](const auto& row) {
        const auto& value = record.*row.member;
        if (row.unit)
            showFrequency(form, row.control, row.unit, value);
        else
            showText(form, row.control, value);
    });
}

template <class Rows>
void showTargets(const NoticeForm& form, const Rows& rows, const NtcTarget& target)
{
    forRowsOf(form, rows, [&](const auto& row) {
        const auto& value = target.*row.targetMember;
        if (row.targetUnit)
            showFrequency(form, row.target, row.targetUnit, value);
        else
            showText(form, row.target, value);
    });
}

void showTarget(const NoticeForm& form, const NtcTarget& target)
{
    showTargets(form, fields::assignmentPairs, target);
    showTargets(form, fields::positionPairs, target);
    showTargets(form, fields::zonePairs, target);
}

void showDateReceived(const NoticeForm& form, const std::string& received)
{
    if (received.empty())
        return;
    const auto [year, month, day] = partsOf(received);
    form.setText("TxtDateRcv", year + '-' + month + '-' + day);
}

bool isOneOf(const std::array<std::string_view, 2>& words, const std::string& value)
{
    return !value.empty() && std::find(words.begin(), words.end(), value) != words.end();
}

void showProvision(const NoticeForm& form, const Ntc& notice)
{
    const auto* const row =
        std::find_if(fields::provisions.begin(), fields::provisions.end(), [&](const auto& candidate) {
            return contains(candidate.screens, form.type()) &&
                   (isOneOf(candidate.shownFragments, notice.fragment) ||
                    isOneOf(candidate.shownProvisions, notice.prov));
        });
    if (row != fields::provisions.end())
        form.setSelected(row->control, true);
}

void showOptions(const NoticeForm& form, const Ntc& notice)
{
    showOption(form, fields::intents, notice.intent);
    showProvision(form, notice);
    showOption(form, fields::resubmissions, notice.is_resub);
}

// A T14 screen shows the own area of notices that add or modify alone, the others any site.
void showSite(const NoticeForm& form, const Ntc& notice)
{
    if (!notice.geo.present || (form.type() == ScreenType::T14 && !addsOrModifies(notice)))
        return;
    const auto& point = notice.geo.pt[0];
    showTexts(form, fields::siteTexts, notice.geo);
    showOwn(form, fields::zonePairs, notice.geo);
    showOwn(form, fields::positionPairs, point);
    showTexts(form, fields::sitePointTexts, point);
}

void showCoordination(const NoticeForm& form, const NtcCoord& coord)
{
    if (!coord.present)
        return;
    showText(form, "coordProv", coord.coord_prov);
    for (int number = 1; number <= fields::coordinationsKept; ++number)
        showText(form, fields::coordinationControl(number), coord.adm[static_cast<std::size_t>(number - 1)]);
}

void showLists(const NoticeForm& form, const Ntc& notice)
{
    forRowsOf(form, fields::lists, [&](const auto& row) {
        for (const auto& entry : notice.*row.member) {
            if (!entry.empty())
                addEntry(form, row.control, entry);
        }
        showFirstEntry(form, row.control);
    });
}

void showRemarks(const NoticeForm& form, std::string remarks)
{
    showText(form, "TxtRemarks", ScreenModule::copyRemarkText(remarks));
}

void readRemarks(const NoticeForm& form, Ntc& notice)
{
    auto text = form.text("TxtRemarks");
    notice.rmk_text = ScreenModule::joinTextLines(text);
}

// Sets also whether there is a target. An Add has none, and its target fields lose what they hold.
void readIntent(NoticeForm& form, Ntc& notice)
{
    const char* word = selectedWord(form, fields::intents);
    if (!word)
        return;
    notice.intent = word;
    notice.target.present = notice.intent != "ADD";
    if (!notice.target.present)
        clearTargetControls(form);
}

// The provision itself is stored for notices that add or modify alone.
void readProvision(const NoticeForm& form, Ntc& notice)
{
    const auto* const row =
        std::find_if(fields::provisions.begin(), fields::provisions.end(), [&](const auto& candidate) {
            return contains(candidate.screens, form.type()) && form.isSelected(candidate.control);
        });
    if (row == fields::provisions.end())
        return;
    notice.fragment = row->fragment;
    if (form.isSelected("Int_Add") || form.isSelected("Int_Mod"))
        notice.prov = row->provision;
}

// A T14 screen has one button for the two words and so always stores one of them.
void readResubmission(const NoticeForm& form, Ntc& notice)
{
    const char* word = selectedWord(form, fields::resubmissions);
    if (word)
        notice.is_resub = word;
    else if (form.type() == ScreenType::T14)
        notice.is_resub = "TRUE";
}

void readSite(const NoticeForm& form, NtcGeo& geo)
{
    geo.present = true;
    auto& point = geo.pt[0];
    point.present = true;
    takeTexts(form, fields::siteTexts, geo);
    takeTexts(form, fields::sitePointTexts, point);
}

void readLists(const NoticeForm& form, Ntc& notice)
{
    forRowsOf(form, fields::lists, [&](const auto& row) {
        const auto entries = entriesThatFit(form, row.control);
        std::copy(entries.begin(), entries.end(), (notice.*row.member).begin());
    });
}

// Any filled box makes the coordination present.
void readCoordination(const NoticeForm& form, NtcCoord& coord)
{
    const auto take = [&](const std::string& control, std::string& member) {
        takeText(form, control, member);
        coord.present = coord.present || !member.empty();
    };
    take("coordProv", coord.coord_prov);
    for (int number = 1; number <= fields::coordinationsKept; ++number)
        take(fields::coordinationControl(number), coord.adm[static_cast<std::size_t>(number - 1)]);
}

} // namespace

void showNoticeSection(const NoticeForm& form, const Ntc& notice)
{
    showDateReceived(form, notice.d_rcv);
    showRemarks(form, notice.rmk_text);
    showOptions(form, notice);
    showTexts(form, fields::noticeTexts, notice);
    if (addsOrModifies(notice))
        showOwn(form, fields::assignmentPairs, notice);
    showTarget(form, notice.target);
    showLists(form, notice);
    showSite(form, notice);
    for (const auto& row : fields::frequencies)
        showFrequency(form, row.control, row.unit, notice.*row.member);
    for (const auto& row : fields::dates)
        showDate(form, row, notice.*row.member);
    showCoordination(form, notice.coord);
}

void readNoticeSection(NoticeForm& form, Ntc& notice)
{
    readRemarks(form, notice);
    readIntent(form, notice);
    readProvision(form, notice);
    readResubmission(form, notice);
    takeTexts(form, fields::noticeTexts, notice);
    readPairs(form, notice);
    for (const auto& row : fields::frequencies)
        notice.*row.member = frequencyOf(form, row.control, row.unit);
    readSite(form, notice.geo);
    if (form.type() == ScreenType::T14)
        readGeoType(form, notice);
    for (const auto& row : fields::dates)
        takeDate(form, row, notice.*row.member);
    readLists(form, notice);
    readCoordination(form, notice.coord);
}

} // namespace screens
