#pragma once

#include "lisp/LispStatus.h"
#include "tests/support/RecordingHost.h"

#include <gtest/gtest.h>

// Calls handlers as an interpreter does. Every handler here is one that always ends normally.
class HandlerTest : public testing::Test
{
protected:
    // Everything that the handler asked of the interpreter, in order.
    Operations call(LispHandler handler, const Arguments &arguments)
    {
        m_host.setArguments(arguments);
        EXPECT_EQ(handler(), StatusNormal);
        return m_host.operations();
    }

    RecordingHost &host() { return m_host; }

private:
    RecordingHost m_host;
};

inline const std::string tooFewArguments = operation("prompt", "\nError: Too few arguments.");
inline const std::string wrongType = operation("prompt", "\nError: wrong type of argument.");
