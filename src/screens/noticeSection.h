#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

// The notice section of a screen: all but the antennas.
namespace screens {

// Into controls that were emptied before. Throws RuntimeError 5 for a date that is none.
void showNoticeSection(const NoticeForm& form, const Ntc& notice);
// Into a record that was emptied before but for its antennas.
void readNoticeSection(NoticeForm& form, Ntc& notice);

} // namespace screens
