#pragma once

class QWidget;

namespace screens {

// The image of the screen on one landscape page of the default printer. Throws RuntimeError 482 when that
// can't be done.
void printScreen(QWidget& screen);

} // namespace screens
