#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

#include <string>
#include <vector>

// The receiving stations of a section of the T11 screen: either rows 1 to 5 with a station each and row 6
// with lists of further ones, or one area of several points.
namespace screens {

void showStations(const NoticeForm& form, const NtcAntenna& antenna);
void readStations(const NoticeForm& form, NtcAntenna& antenna);

// Whether the site's name, its country or any of its coordinates is given.
[[nodiscard]] bool anyRxKeyGiven(const NtcRx& station);

// The boxes of row 6, whose entries are further stations.
[[nodiscard]] std::vector<std::string> listedStationControls();

} // namespace screens
