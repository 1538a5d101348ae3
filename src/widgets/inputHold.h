#pragma once

class QEvent;
class QObject;

// Work that answers to nobody while it runs: what an operator types and clicks meanwhile is dropped, not done
// when it ends.
namespace widgets {

// While one lives, input waits with the window system, for the work runs no event loop that takes it. When
// the last one goes, what has come by then is thrown away.
class InputHold
{
public:
    InputHold();
    ~InputHold();
    InputHold(const InputHold&) = delete;
    InputHold& operator=(const InputHold&) = delete;
};

// A box in the middle of such work takes input again: what was typed and clicked before it is thrown away.
// Does nothing where no work holds the input.
class InputLeave
{
public:
    InputLeave();
    ~InputLeave();
    InputLeave(const InputLeave&) = delete;
    InputLeave& operator=(const InputLeave&) = delete;

private:
    int m_holds; // that go on afterwards
};

// For the application: whether the event is input that is being thrown away.
[[nodiscard]] bool isThrownAway(const QObject* receiver, const QEvent& event);

} // namespace widgets
