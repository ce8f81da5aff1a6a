#include "host/ui/gui/HeldKeys.h"

#include "platform/KeyState.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace {

constexpr int Shift = 0x10, CapsLock = 0x14;
constexpr std::int16_t Up = 0, Down = -128, UpAndToggled = 1, DownAndToggled = -127;

// Keys and buttons come to a window of the application, on a screen whose system tells nothing of them.
class HeldKeysTest : public testing::Test
{
protected:
    HeldKeysTest()
    {
        m_window.resize(100, 100);
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    static int state(int virtualKey) { return GetKeyState(virtualKey); }

    HeldKeys m_held;
    QWindow m_window;
};

struct KeyRow
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    int virtualKey;
};

} // namespace

TEST_F(HeldKeysTest, AKeyIsDownFromItsPressToItsRelease)
{
    EXPECT_EQ(state(Shift), Up);
    QTest::keyPress(&m_window, Qt::Key_Shift);
    EXPECT_EQ(state(Shift), Down);
    EXPECT_EQ(state('A'), Up);
    QTest::keyRelease(&m_window, Qt::Key_Shift);
    EXPECT_EQ(state(Shift), Up);
}

TEST_F(HeldKeysTest, EveryKindOfKeyHasItsCode)
{
    constexpr KeyRow rows[] = {
        {Qt::Key_A, Qt::NoModifier, 'A'},        {Qt::Key_7, Qt::NoModifier, '7'},
        {Qt::Key_7, Qt::KeypadModifier, 0x67},   {Qt::Key_Minus, Qt::KeypadModifier, 0x6D},
        {Qt::Key_Minus, Qt::NoModifier, 0xBD},   {Qt::Key_Left, Qt::KeypadModifier, 0x25},
        {Qt::Key_F1, Qt::NoModifier, 0x70},      {Qt::Key_F24, Qt::NoModifier, 0x87},
        {Qt::Key_Space, Qt::NoModifier, 0x20},   {Qt::Key_Return, Qt::NoModifier, 0x0D},
        {Qt::Key_Control, Qt::NoModifier, 0x11}, {Qt::Key_Less, Qt::NoModifier, 0xE2},
    };
    for (const auto &[key, modifiers, virtualKey] : rows) {
        QTest::keyPress(&m_window, key, modifiers);
        EXPECT_EQ(state(virtualKey), Down) << key;
        QTest::keyRelease(&m_window, key, modifiers);
        EXPECT_EQ(state(virtualKey), Up) << key;
    }
}

TEST_F(HeldKeysTest, AKeyWithALampIsToggledByEveryPress)
{
    QTest::keyPress(&m_window, Qt::Key_CapsLock);
    EXPECT_EQ(state(CapsLock), DownAndToggled);
    QTest::keyRelease(&m_window, Qt::Key_CapsLock);
    EXPECT_EQ(state(CapsLock), UpAndToggled);
    QTest::keyClick(&m_window, Qt::Key_CapsLock);
    EXPECT_EQ(state(CapsLock), Up);
    QTest::keyClick(&m_window, Qt::Key_A);
    EXPECT_EQ(state('A'), Up) << "no lamp";
}

TEST_F(HeldKeysTest, EachMouseButtonIsDownFromItsPressToItsRelease)
{
    for (const auto &[button, virtualKey] :
         {std::pair{Qt::LeftButton, VK_LBUTTON}, {Qt::RightButton, VK_RBUTTON}, {Qt::MiddleButton, VK_MBUTTON}}) {
        QTest::mousePress(&m_window, button);
        for (const int other : {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON})
            EXPECT_EQ(state(other), other == virtualKey ? Down : Up);
        QTest::mouseRelease(&m_window, button);
        EXPECT_EQ(state(virtualKey), Up);
    }
}

TEST_F(HeldKeysTest, EveryKeyIsUpWhenAnotherProgramHasTheKeyboard)
{
    QTest::keyPress(&m_window, Qt::Key_Shift);
    QApplicationStateChangeEvent inactive(Qt::ApplicationInactive); // as from the window system
    QCoreApplication::sendEvent(qApp, &inactive);
    EXPECT_EQ(state(Shift), Up);
}

TEST_F(HeldKeysTest, IsTheSourceOnlyAsLongAsItLives)
{
    {
        const HeldKeys other;
        QTest::keyPress(&m_window, Qt::Key_Shift);
        EXPECT_EQ(state(Shift), Down);
    }
    EXPECT_EQ(state(Shift), Up) << "nobody is left to ask";
    QTest::keyRelease(&m_window, Qt::Key_Shift);
}
