#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

// Positions at the other end of the link: rows of points, numbered from 1, and the centre of a circle.
namespace screens {

void showPointRow(const NoticeForm& form, int number, const NtcGeoPt& point);
// The texts of the row as they stand, blank ones too.
[[nodiscard]] NtcGeoPt pointOf(const NoticeForm& form, int number);

void showCentre(const NoticeForm& form, const NtcGeoPt& point);
[[nodiscard]] NtcGeoPt centreOf(const NoticeForm& form);

// Whether any of the eight coordinates is given.
[[nodiscard]] bool anyPointKeyGiven(const NtcGeoPt& point);
// Stores the row's point in its slot if any of its coordinates is given.
void readPointRow(const NoticeForm& form, int number, NtcGeo& area);

// The one area of several points, or around one, that the first station of a section is.
[[nodiscard]] NtcGeo& startArea(NtcAntenna& antenna, const char* geoType);

} // namespace screens
