#include "lisp/GuardedHandler.h"

#include <gtest/gtest.h>

#include <new>

namespace {

int failing()
{
    throw std::bad_alloc();
}

int refusing()
{
    return StatusError;
}

} // namespace

TEST(GuardedHandler, LetsNoExceptionEscape)
{
    EXPECT_EQ(guarded<failing>(), StatusNormal);
}

TEST(GuardedHandler, PassesTheStatusOn)
{
    EXPECT_EQ(guarded<refusing>(), StatusError);
}
