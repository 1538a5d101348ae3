#include "screens/antennaSection.h"

#include "screens/areas.h"
#include "screens/controlValues.h"
#include "screens/receivingStations.h"
#include "screens/sectionTests.h"

namespace screens {

namespace {

// Both azimuths of a sector go into the lists, an empty one too: they pair up by their places.
void showRotation(const NoticeForm& form, const NtcAntenna& antenna)
{
    if (antenna.is_rot != "TRUE")
        return;
    form.setText("rot", "R");
    for (const auto& sector : antenna.rot) {
        if (!sector.present)
            continue;
        addEntry(form, "max_fr", sector.azm_fr);
        addEntry(form, "max_to", sector.azm_to);
    }
    showFirstEntry(form, "max_fr");
    showFirstEntry(form, "max_to");
}

void readRotation(const NoticeForm& form, NtcAntenna& antenna)
{
    if (form.text("rot") != "R")
        return;
    antenna.is_rot = "TRUE";
    if (!rotationPairsFit(form))
        return;
    const auto starts = entriesOf(form, "max_fr");
    const auto ends = entriesOf(form, "max_to");
    for (std::size_t slot = 0; slot < starts.size(); ++slot)
        antenna.rot[slot] = {starts[slot], ends[slot], true};
}

// What makes a section present: neither a rotation nor a station does.
void readAntennaTexts(const NoticeForm& form, NtcAntenna& antenna)
{
    forRowsOf(form, fields::antennaTexts, [&](const auto& row) {
        auto& member = antenna.*row.member;
        takeText(form, row.control, member);
        antenna.present = antenna.present || !member.empty();
    });
}

} // namespace

void showAntenna(const NoticeForm& form, const NtcAntenna& antenna)
{
    showTexts(form, fields::antennaTexts, antenna);
    if (contains(fields::withRotation, form.type()))
        showRotation(form, antenna);
    if (form.type() == ScreenType::T11)
        showStations(form, antenna);
    if (contains(onT12 | onT13, form.type()))
        showAreas(form, antenna);
}

NtcAntenna antennaOf(const NoticeForm& form)
{
    NtcAntenna antenna;
    readAntennaTexts(form, antenna);
    if (contains(fields::withRotation, form.type()))
        readRotation(form, antenna);
    if (form.type() == ScreenType::T11)
        readStations(form, antenna);
    if (contains(onT12 | onT13, form.type()))
        readAreas(form, antenna);
    return antenna;
}

} // namespace screens
