#include "platform/Beep.h"
#include "platform/LastError.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

TEST(Beep, TakesItsTimeWhateverTheMachineHas)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(Beep(37, 120), TRUE);
    EXPECT_GE(timer.elapsed(), 119);
    EXPECT_EQ(Beep(32767, 0), TRUE);
}

TEST(Beep, AFrequencyOutOfRangeIsRefusedAtOnce)
{
    for (const DWORD frequency : {0U, 36U, 32768U, 0xFFFFFFFFU}) {
        SetLastError(0);
        EXPECT_EQ(Beep(frequency, 60000), FALSE);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
}
