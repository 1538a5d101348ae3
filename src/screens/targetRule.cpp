#include "screens/targetRule.h"

#include "screens/controlValues.h"

#include <algorithm>

namespace screens {

namespace {

bool endsAssignment(const NoticeForm& form)
{
    return form.isSelected("Int_Sup") || form.isSelected("Int_Wdraw");
}

std::string valueOf(const NoticeForm& form, const char* control, const char* unit)
{
    return unit ? frequencyOf(form, control, unit) : form.text(control);
}

template <class Record>
void readPair(const NoticeForm& form, const fields::PairRow<Record>& row, Record& record, NtcTarget& target)
{
    auto& own = record.*row.member;
    auto& targets = target.*row.targetMember;
    own = valueOf(form, row.control, row.unit);
    targets = valueOf(form, row.target, row.targetUnit);
    if (row.fallsBack && target.present && targets.empty())
        targets = own;
    if (endsAssignment(form))
        own = targets;
}

template <class Rows, class Record>
void readRows(const NoticeForm& form, const Rows& rows, Record& record, NtcTarget& target)
{
    forRowsOf(form, rows, [&](const auto& row) { readPair(form, row, record, target); });
}

bool anyCoordinateGiven(const NoticeForm& form)
{
    return std::any_of(fields::positionPairs.begin(), fields::positionPairs.end(),
                       [&](const auto& row) { return !form.text(row.control).empty(); });
}

// The later of these wins: a zone with any coordinate is a circle.
std::string derivedGeoType(const NoticeForm& form)
{
    if (anyCoordinateGiven(form))
        return "CIRCLE";
    if (!form.text("zoneID").empty())
        return "ZONE";
    return form.text("radius").empty() ? "" : "CIRCLE";
}

} // namespace

void readPairs(const NoticeForm& form, Ntc& notice)
{
    readRows(form, fields::assignmentPairs, notice, notice.target);
    readRows(form, fields::positionPairs, notice.geo.pt[0], notice.target);
    readRows(form, fields::zonePairs, notice.geo, notice.target);
}

void readGeoType(const NoticeForm& form, Ntc& notice)
{
    notice.geo.geo_type = derivedGeoType(form);
    if (notice.target.present)
        notice.target.trg_geo_type = notice.geo.geo_type;
    if (endsAssignment(form))
        notice.geo.geo_type = notice.target.trg_geo_type;
}

} // namespace screens
