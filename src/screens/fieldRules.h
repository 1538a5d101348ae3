#pragma once

#include "screens/noticeForm.h"

namespace screens {

// Attaches to the controls of the form the checks on leaving, the keys of the multi-value boxes, the refusal
// of target fields and the jumps of the focus, each with its messages in the language of the session at the
// moment when it is shown.
void attachFieldRules(NoticeForm& form);

} // namespace screens
