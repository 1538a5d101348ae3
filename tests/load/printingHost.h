#pragma once

#include "platform/host.h"

#include <cstdio>

// The host of a program that is meant to be killed: it prints each line as it comes, and what a box says as
// an error.
class PrintingHost : public platform::Host
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons, platform::Icon,
                            const std::string&) override
    {
        std::fprintf(stderr, "%s\n", text.c_str());
        return platform::Answer::Ok;
    }
    void beep() override {}
    void setPointer(int) override {}
    std::optional<std::string> openFile(const platform::FileChoice&) override { return std::nullopt; }
    void print(const platform::Picture&) override {}
    void clearErrorLines() override {}
    void addErrorLine(const std::string& line) override
    {
        std::puts(line.c_str());
        std::fflush(stdout);
    }
    void openCheck(const platform::CheckStart&) override {}
    void appendCheckText(const std::string&) override {}
    void selectErrorLine(int) override {}
    void endCheck() override {}
    void showWaiting() override {}
    void paintWaiting() override {}
    void closeWaiting() override {}
};
