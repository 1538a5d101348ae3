#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

namespace screens {

// The values that a notice shares with its target, from the controls of both. An empty target takes the
// notice's value where there is a target. Notices that end an assignment (Int_Sup, Int_Wdraw) then take all
// of the target's values.
void readPairs(const NoticeForm& form, Ntc& notice);

// T14 alone: the own geo_type follows from what is filled, and the target's follows it.
void readGeoType(const NoticeForm& form, Ntc& notice);

} // namespace screens
