#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

// The way between the notice record and the controls, in both directions, for all four screens.
namespace screens {

void InitalizeNotice(NoticeForm& form);
void InitalizeAntenna(NoticeForm& form);

// fillT11Screen to fillT14Screen: empties the controls, then the record into them, the antenna section
// included. Throws RuntimeError 5 for a date of the record that is none.
void fillScreen(NoticeForm& form, const Ntc& notice);
// fillNtcFromT11Screen to fillNtcFromT14Screen: the notice section into the record, which is emptied first
// but for its antennas.
void fillNtcFromScreen(NoticeForm& form, Ntc& notice);

// The section that TxtAntennaCnt names, from 1. False, with a beep, when there is none.
bool fillScreenFromAntenna(NoticeForm& form, const Ntc& notice);
// Throws RuntimeError 9 for a number beyond the record's sections.
void fillAntennaFromScreen(NoticeForm& form, Ntc& notice);

// The number in TxtAntennaCnt.
[[nodiscard]] int antennaNumber(const NoticeForm& form);
void setAntennaNumber(NoticeForm& form, int number);

// Blanks all target fields.
void clearTargetControls(NoticeForm& form);

} // namespace screens
