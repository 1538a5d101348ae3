#pragma once

#include "platform/runtimeError.h"

#include <gtest/gtest.h>

// The number of the failure that an action ends with, 0 for none.
template <class Action>
int failureOf(Action action)
{
    try {
        action();
    } catch (const platform::RuntimeError& failure) {
        return failure.number;
    }
    return 0;
}

// Expects a statement to throw RuntimeError with the number.
#define EXPECT_FAILURE(number_, statement)                                                                   \
    try {                                                                                                    \
        statement;                                                                                           \
        ADD_FAILURE() << "no failure: " #statement;                                                          \
    } catch (const platform::RuntimeError& failure_) {                                                       \
        EXPECT_EQ(failure_.number, number_) << failure_.what();                                              \
    }
