#pragma once

#include "play/keys.h"
#include "play/stage.h"

#include <QPoint>

// The operator's hands: key presses and mouse clicks on the real windows, as the window system reports them.
namespace play {

// What one command does with them. Each action says whether the next one may follow: not when a window came
// up meanwhile, for it had the keyboard and the mouse, and the command's turn is over when it has gone.
class OperatorHands
{
public:
    explicit OperatorHands(Stage& stage);

    // Presses and lets go. When the press brings up a window, the button is let go of there, to no effect.
    bool click(QWidget& widget, QPoint position);
    // Clicks what a person would aim at: the indicator of a check box or option, the middle of anything else.
    // Refuses when something else lies above it.
    bool clickControl(QWidget& control);
    bool doubleClick(QWidget& widget, QPoint position);
    // Goes to the pop-up that is open, otherwise to the window, and from there to where its focus is.
    bool press(QWidget& window, const Key& key) const;
    // Closes the pop-up of another control. False also when the focus did not get there.
    bool focus(QWidget& control) const;

    [[nodiscard]] bool areFree() const { return m_stage.windows.openings() == m_openings; }

private:
    bool pressButton(QWidget& widget, QPoint position);
    bool letGo(QWidget& widget, QPoint position);

    Stage& m_stage;
    int m_openings;
};

} // namespace play
