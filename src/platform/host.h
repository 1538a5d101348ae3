#pragma once

#include "platform/runtimeError.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform {

enum class Icon : std::uint8_t
{
    None,
    Information,
    Exclamation,
    Question,
    Critical
};
enum class Buttons : std::uint8_t
{
    Ok,
    YesNo,         // Yes is in hand
    YesNoDefaultNo // for what can't be undone
};
enum class Answer : std::uint8_t
{
    Ok,
    Yes,
    No
};

// Numbers of the mouse pointers in use.
enum Pointer : int
{
    pointerDefault = 0,
    pointerHourglass = 11
};

// What a dialog for an existing file offers: pairs of a description and a pattern, all parted by "|", and a
// name that stands in its field at first.
struct FileChoice
{
    std::string filter;
    std::string fileName;
};

// A picture to print: rows of pixels from the top, each 32 bits as 0xffRRGGBB in the host's order of bytes.
struct Picture
{
    int width = 0, height = 0;
    std::vector<std::uint8_t> pixels;
};

// How the list of messages begins that a check of site names fills.
struct CheckStart
{
    std::string title, countText;
    bool hidesSave = false; // besides the button that closes
};

// What the core tells the operator. The main screen implements it; tests watch it and answer.
class Host
{
public:
    virtual ~Host() = default;

    // Shows a modal box and returns the button that ended it. An empty title stands for none.
    virtual Answer msgBox(const std::string& text, Buttons buttons, Icon icon, const std::string& title) = 0;
    virtual void beep() = 0;
    virtual void setPointer(int pointer) = 0;
    // Lets the operator pick an existing file and returns its path; nothing when that was cancelled.
    virtual std::optional<std::string> openFile(const FileChoice& choice) = 0;
    // On one landscape page of the default printer, as large as it fits. Throws RuntimeError 482 without a
    // printer, or when the job fails.
    virtual void print(const Picture& picture) = 0;
    // The list box of the screen that shows the lines of a load or of a check.
    virtual void clearErrorLines() = 0;
    virtual void addErrorLine(const std::string& line) = 0;

    // The same screen during a check of site names: unloaded first where it stands, then shown beside the
    // others without waiting for it. All of these paint it at once, for the check does not return to the
    // host's events.
    virtual void openCheck(const CheckStart& start) = 0;
    virtual void appendCheckText(const std::string& text) = 0; // to the text of the count
    virtual void selectErrorLine(int line) = 0;                // from 0
    virtual void endCheck() = 0;                               // brings the hidden buttons back

    // The window that stands while indexes are made. Throws RuntimeError 424 where it can't be loaded.
    virtual void showWaiting() = 0;
    virtual void paintWaiting() = 0;
    virtual void closeWaiting() = 0;
};

// The one host of the process. Before the first setHost there is none: telling it anything is failure 91.
[[nodiscard]] Host& host();
// Not owned; null for none.
void setHost(Host* newHost);

// A plain box with an OK button and no title.
void showMessage(const std::string& text);
// The default pointer, then the general error message.
void showFailure(const RuntimeError& failure);

} // namespace platform
