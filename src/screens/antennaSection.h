#pragma once

#include "model/Ntc.h"
#include "screens/noticeForm.h"

// One antenna section between its record and its controls.
namespace screens {

// Into controls that were emptied before.
void showAntenna(const NoticeForm& form, const NtcAntenna& antenna);
[[nodiscard]] NtcAntenna antennaOf(const NoticeForm& form);

} // namespace screens
