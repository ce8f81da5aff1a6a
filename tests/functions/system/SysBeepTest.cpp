#include "functions/system.h"

#include "platform/ObservedCalls.h"
#include "tests/support/HandlerTest.h"

#include <QElapsedTimer>

namespace {

class SysBeep : public HandlerTest
{
protected:
    SysBeep()
    {
        setBeepObserver([this](DWORD frequency, DWORD milliseconds) {
            m_frequency = frequency;
            m_milliseconds = milliseconds;
        });
    }
    ~SysBeep() override { setBeepObserver({}); }

    DWORD frequencyOf(std::int16_t tone)
    {
        m_frequency = 0;
        EXPECT_EQ(call(acetSysBeep, {shortInteger(tone)}), (Operations{"getArgs", "releaseRb 1"}));
        return m_frequency;
    }

    DWORD m_frequency = 0, m_milliseconds = 0;
};

} // namespace

TEST_F(SysBeep, Of0Sounds700HertzFor300Milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(frequencyOf(0), 700U);
    EXPECT_EQ(m_milliseconds, 300U);
#ifndef _WIN32 // Wine does not wait for the end of a tone
    EXPECT_GE(timer.elapsed(), 299);
#endif
}

TEST_F(SysBeep, EveryOtherToneIsSoManyTimes400Hertz)
{
    EXPECT_EQ(frequencyOf(1), 400U);
    EXPECT_EQ(frequencyOf(3), 1200U);
    EXPECT_EQ(frequencyOf(-1), 400U);
}

TEST_F(SysBeep, AToneBeyondWhatTheSystemSoundsIsSilent)
{
    EXPECT_EQ(frequencyOf(32767), 0U);
    EXPECT_EQ(frequencyOf(-32768), 0U);
}

TEST_F(SysBeep, AMissingOrWrongToneIsSilent)
{
    EXPECT_EQ(call(acetSysBeep, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetSysBeep, {text(u"x")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(m_frequency, 0U);
}
