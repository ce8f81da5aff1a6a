// What is asked of Qt, in order. It is written down, not done.

#include "functions/system.h"

#include "tests/support/HandlerTest.h"

#include <QApplication>
#include <QThread>
#include <QWidget>

namespace {

std::vector<std::string> calls;

} // namespace

// In place of Qt's own in this program.

void QThread::msleep(unsigned long milliseconds)
{
    calls.push_back("msleep " + std::to_string(milliseconds));
}

void QWidget::setWindowState(Qt::WindowStates state)
{
    calls.push_back("setWindowState " + std::to_string(int(state)));
}

void QWidget::showNormal()
{
    calls.push_back("showNormal");
}

void QWidget::setFocus(Qt::FocusReason)
{
    calls.push_back("setFocus");
}

void QWidget::raise()
{
    calls.push_back("raise");
}

class SystemCalls : public HandlerTest
{
protected:
    SystemCalls() { calls.clear(); }
};

TEST_F(SystemCalls, AnIntegerIsSignExtendedAndTakenAsUnsignedForAPause)
{
    for (const std::int16_t time : {-1, -32768, 0, 32767})
        call(acetSysSleep, {shortInteger(time)});
    EXPECT_EQ(calls, (std::vector<std::string>{"msleep 4294967295", "msleep 4294934528", "msleep 0", "msleep 32767"}));
}

TEST_F(SystemCalls, ARefusedTimeIsNoPause)
{
    call(acetSysSleep, {longInteger(32768)});
    call(acetSysSleep, {});
    EXPECT_EQ(calls, std::vector<std::string>());
}

TEST_F(SystemCalls, TheWindowIsMaximisedAndActiveThenShownNormalFocusedAndRaised)
{
    int count = 3;
    char name[] = "test", option[] = "-platform", platform[] = "offscreen";
    char *arguments[] = {name, option, platform, nullptr};
    const QApplication application(count, arguments);
    QWidget window;
    host().setWindow(&window);
    EXPECT_EQ(call(acetSysForeground, {}), Operations{"retNil"});
    EXPECT_EQ(calls, (std::vector<std::string>{"setWindowState 10", "showNormal", "setFocus", "raise"}));
}
