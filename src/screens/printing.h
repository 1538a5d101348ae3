#pragma once

namespace screens {

class NoticeForm;

// The whole screen on one landscape page of the default printer, as it stands with what a small window
// scrolls out of sight, in the colours of paper. Throws RuntimeError 482 when that can't be done.
void printScreen(const NoticeForm& form);

} // namespace screens
