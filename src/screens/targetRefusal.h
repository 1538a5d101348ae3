#pragma once

#include "screens/noticeForm.h"

#include <string_view>

namespace screens {

// Whether the notice changes one that is there, so that target fields are asked for.
[[nodiscard]] bool takesTarget(const NoticeForm& form);
// Whether the control is a target field that refuses the focus now.
[[nodiscard]] bool isRefused(const NoticeForm& form, std::string_view control);
// From now on a target field that is refused says so when it gets the focus, whatever brought it there, and
// sends it to freq.
void refuseTargetFields(NoticeForm& form);

} // namespace screens
