// Keys that nobody presses, and tones, held to what Windows says of them: on Windows this file tests the system itself.

#include "platform/Beep.h"
#include "platform/KeyState.h"

#include <gtest/gtest.h>

class KeyConformance : public testing::TestWithParam<int>
{
};

TEST_P(KeyConformance, IsUp)
{
    EXPECT_GE(GetKeyState(GetParam()), 0);
}

INSTANTIATE_TEST_SUITE_P(Buttons, KeyConformance, testing::Values(VK_LBUTTON, VK_RBUTTON, VK_MBUTTON, 0x05, 0x06));
INSTANTIATE_TEST_SUITE_P(Modifiers, KeyConformance, testing::Values(0x10, 0x11, 0x12, 0xA0, 0xA1, 0xA2, 0xA3, 0xA4));
INSTANTIATE_TEST_SUITE_P(Keys, KeyConformance,
                         testing::Values(0x08, 0x09, 0x0D, 0x1B, 0x20, 0x25, '0', 'A', 'Z', 0x60, 0x70, 0xBA, 0xE2));
class NoKeyConformance : public testing::TestWithParam<int>
{
};

TEST_P(NoKeyConformance, IsUpAndHasNoToggle)
{
    EXPECT_EQ(GetKeyState(GetParam()), 0);
}

INSTANTIATE_TEST_SUITE_P(NoKeys, NoKeyConformance, testing::Values(0x00, 0x07, 0x3A, 0x88, 0xFF));

class ToneConformance : public testing::TestWithParam<DWORD>
{
};

TEST_P(ToneConformance, IsSounded)
{
    EXPECT_EQ(Beep(GetParam(), 1), TRUE);
}

INSTANTIATE_TEST_SUITE_P(Hertz, ToneConformance, testing::Values(37, 400, 700, 1200, 32767));
