#pragma once

#include "screens/noticeForm.h"

#include <string>

namespace screens {

// Sets title, captions and tips of the screen in the language of the session: "F" French, "S" Spanish, any
// other letter English. A notice type other than that of the screen does nothing. A control without text in a
// language keeps what it had.
void setScreenLabels(const std::string& noticeType, NoticeForm& form);

} // namespace screens
