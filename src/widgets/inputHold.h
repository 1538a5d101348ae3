#pragma once

class QEvent;
class QObject;

// Work that answers to nobody while it runs: what an operator types and clicks meanwhile is dropped, not done
// when it ends.
namespace widgets {

// While one lives, input waits with the window system, for the work runs no event loop that takes it but
// those of its boxes, and a box keeps it from all other windows. When the last one goes, what has come by
// then is thrown away.
class InputHold
{
public:
    InputHold();
    ~InputHold();
    InputHold(const InputHold&) = delete;
    InputHold& operator=(const InputHold&) = delete;
};

// For the application: whether the event is input that is being thrown away.
[[nodiscard]] bool isThrownAway(const QObject* receiver, const QEvent& event);

} // namespace widgets
