#include "support/fakeHost.h"

#include <gtest/gtest.h>

FakeHost::FakeHost()
{
    platform::setHost(this);
}

FakeHost::~FakeHost()
{
    platform::setHost(nullptr);
}

platform::Answer FakeHost::msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                                  const std::string& title)
{
    messages.push_back(text);
    boxes.push_back({title, text, icon, buttons});
    if (buttons == platform::Buttons::Ok)
        return platform::Answer::Ok;
    if (answers.empty()) {
        ADD_FAILURE() << "no answer for: " << text;
        return platform::Answer::No;
    }
    const auto answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> FakeHost::openFile(const platform::FileChoice& choice)
{
    fileChoices.push_back(choice);
    if (chosenFiles.empty()) {
        ADD_FAILURE() << "no file chosen for: " << choice.filter;
        return std::nullopt;
    }
    auto chosen = chosenFiles.front();
    chosenFiles.pop_front();
    return chosen;
}

void FakeHost::addErrorLine(const std::string& line)
{
    errorLines.push_back(line);
    checkSteps.push_back("line " + line);
}

void FakeHost::openCheck(const platform::CheckStart& start)
{
    errorLines.clear();
    checkStart = start;
    checkText = start.countText;
    checkSteps.emplace_back("open");
}

void FakeHost::appendCheckText(const std::string& text)
{
    checkText += text;
    checkSteps.push_back("text " + text);
}

void FakeHost::selectErrorLine(int line)
{
    checkSteps.push_back("select " + std::to_string(line));
}

void FakeHost::endCheck()
{
    checkSteps.emplace_back("end");
}

void FakeHost::showWaiting()
{
    if (!waitingLoads)
        platform::raise(platform::errObjectRequired);
    checkSteps.emplace_back("show waiting");
}
