#pragma once

#include <chrono>
#include <thread>

// Waits for what another thread does; false when it hasn't come about after a minute.
template <class Condition>
bool waitUntil(Condition condition)
{
    using namespace std::chrono_literals;
    for (int wait = 0; wait < 6000 && !condition(); ++wait)
        std::this_thread::sleep_for(10ms);
    return condition();
}
