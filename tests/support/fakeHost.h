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
    void addErrorLine(const std::string& line) override { errorLines.push_back(line); }

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
    int beeps = 0;
};
