#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

// The area at the other end of the link on the T12 and T13 screens: several points (T12 alone), a circle or
// zones.
namespace screens {

void showAreas(const NoticeForm& form, const NtcAntenna& antenna);
// The controls of the areas that are not selected lose what they hold.
void readAreas(const NoticeForm& form, NtcAntenna& antenna);

} // namespace screens
