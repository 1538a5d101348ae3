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

platform::Answer FakeHost::msgBox(const std::string& text, platform::Buttons buttons, platform::Icon,
                                  const std::string&)
{
    messages.push_back(text);
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
