#pragma once

#include "platform/host.h"

#include <deque>
#include <string>
#include <vector>

// A host that writes down what it was told, and answers from a queue. It is the process's host while it
// lives.
class FakeHost : public platform::Host
{
public:
    FakeHost();
    ~FakeHost() override;
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    platform::Answer msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                            const std::string& title) override;
    void beep() override { ++beeps; }
    void setPointer(int pointer) override { pointers.push_back(pointer); }
    std::optional<std::string> openFile(const platform::FileChoice& choice) override;
    void print(const platform::Picture& picture) override { printed.push_back(picture); }
    void clearErrorLines() override { errorLines.clear(); }
    void addErrorLine(const std::string& line) override;
    void openCheck(const platform::CheckStart& start) override;
    void appendCheckText(const std::string& text) override;
    void selectErrorLine(int line) override;
    void endCheck() override;
    void showWaiting() override;
    void paintWaiting() override { checkSteps.emplace_back("paint waiting"); }
    void closeWaiting() override { checkSteps.emplace_back("close waiting"); }

    // What a box showed, for those to whom the text alone is not enough.
    struct Box
    {
        std::string title, text;
        platform::Icon icon;
        platform::Buttons buttons;
        bool operator==(const Box&) const = default;
    };

    std::vector<std::string> messages;    // the text of each box
    std::vector<Box> boxes;               // the same in full
    std::deque<platform::Answer> answers; // for boxes with Yes and No; one that finds none is a test failure
    std::deque<std::optional<std::string>> chosenFiles; // what the operator picks; a missing one is a failure
    std::vector<platform::FileChoice> fileChoices;      // that were offered
    std::vector<int> pointers;
    std::vector<std::string> errorLines;
    std::vector<platform::Picture> printed;
    std::optional<platform::CheckStart> checkStart; // of the check that was opened last
    std::string checkText;                          // the text of its count
    // What a check and the window that waits showed, in turn: "open", "text ...", "line ...", "select N",
    // "end", "show waiting", "paint waiting", "close waiting".
    std::vector<std::string> checkSteps;
    bool waitingLoads = false; // otherwise loading it is failure 424, as in the program
    int beeps = 0;
};
