#pragma once

#include "screens/noticeForm.h"

namespace screens {

// Whether the notice changes one that is there, so that target fields are asked for.
[[nodiscard]] bool takesTarget(const NoticeForm& form);
// From now on a target field that is refused says so when it gets the focus, whatever brought it there, and
// sends it to freq.
void refuseTargetFields(NoticeForm& form);

} // namespace screens
