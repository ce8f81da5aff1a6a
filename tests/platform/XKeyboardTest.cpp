// The keyboard and mouse of a real X server without a screen, pressed by xdotool.

#include "platform/KeyState.h"
#include "platform/KeySymbols.h"

#include <QProcess>

#include <tuple>

#include <gtest/gtest.h>

namespace {

class XKeyboardTest : public testing::Test
{
protected:
    // One server for all tests: the library keeps its connection as long as the process runs.
    static void SetUpTestSuite()
    {
        server.setReadChannel(QProcess::StandardOutput);
        server.start(QStringLiteral("Xvfb"),
                     {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-noreset"),
                      QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("320x240x24")});
        ASSERT_TRUE(server.waitForReadyRead(20000)) << "Xvfb does not start";
        qputenv("DISPLAY", ":" + server.readLine().trimmed());
    }
    static void TearDownTestSuite()
    {
        server.kill();
        server.waitForFinished();
    }
    static void xdotool(const QStringList &arguments)
    {
        EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
    }
    static bool isDown(int virtualKey) { return GetKeyState(virtualKey) < 0; }

    static QProcess server;
};

QProcess XKeyboardTest::server;

} // namespace

TEST_F(XKeyboardTest, KeysAreDownWhileTheyArePressed)
{
    const std::pair<const char *, int> keys[] = {
        {"Shift_L", 0x10}, {"Shift_L", 0xA0}, {"Control_R", 0x11}, {"a", 'A'},       {"7", '7'},      {"F5", 0x74},
        {"Escape", 0x1B},  {"Left", 0x25},    {"space", 0x20},     {"KP_Add", 0x6B}, {"period", 0xBE}};
    for (const auto &[name, virtualKey] : keys) {
        EXPECT_FALSE(isDown(virtualKey)) << name;
        xdotool({QStringLiteral("keydown"), QString::fromLatin1(name)});
        EXPECT_EQ(GetKeyState(virtualKey), -128) << name;
        xdotool({QStringLiteral("keyup"), QString::fromLatin1(name)});
        EXPECT_FALSE(isDown(virtualKey)) << name;
    }
}

TEST_F(XKeyboardTest, TheOtherControlKeyIsNotDown)
{
    constexpr int Left = 0xA2, Right = 0xA3;
    // By their codes: for the name of the right one xdotool presses both.
    for (const auto &[code, pressed, other] : {std::tuple("37", Left, Right), std::tuple("105", Right, Left)}) {
        xdotool({QStringLiteral("keydown"), QString::fromLatin1(code)});
        EXPECT_TRUE(isDown(pressed)) << code;
        EXPECT_FALSE(isDown(other)) << code;
        xdotool({QStringLiteral("keyup"), QString::fromLatin1(code)});
    }
}

TEST_F(XKeyboardTest, MouseButtonsAreDownWhileTheyArePressed)
{
    const std::pair<const char *, int> buttons[] = {{"1", VK_LBUTTON}, {"2", VK_MBUTTON}, {"3", VK_RBUTTON}};
    for (const auto &[button, pressed] : buttons) {
        xdotool({QStringLiteral("mousedown"), QString::fromLatin1(button)});
        for (const auto &[unused, virtualKey] : buttons)
            EXPECT_EQ(isDown(virtualKey), virtualKey == pressed) << button;
        xdotool({QStringLiteral("mouseup"), QString::fromLatin1(button)});
        EXPECT_FALSE(isDown(pressed));
    }
}

// Each key of the number pad is one of two, and Num Lock says which.
TEST_F(XKeyboardTest, NumLockTellsWhatTheKeysOfTheNumberPadAre)
{
    const struct
    {
        const char *code; // by which an X server knows the key
        int withNumLock, without;
    } keys[] = {{"90", VK_NUMPAD0, VK_INSERT}, {"87", VK_NUMPAD1, VK_END},   {"88", VK_NUMPAD2, VK_DOWN},
                {"89", VK_NUMPAD3, VK_NEXT},   {"83", VK_NUMPAD4, VK_LEFT},  {"84", VK_NUMPAD5, VK_CLEAR},
                {"85", VK_NUMPAD6, VK_RIGHT},  {"79", VK_NUMPAD7, VK_HOME},  {"80", VK_NUMPAD8, VK_UP},
                {"81", VK_NUMPAD9, VK_PRIOR},  {"91", VK_DECIMAL, VK_DELETE}};
    for (const bool isOn : {false, true}) {
        EXPECT_EQ(GetKeyState(VK_NUMLOCK), isOn ? 1 : 0);
        for (const auto &[code, withNumLock, without] : keys) {
            xdotool({QStringLiteral("keydown"), QString::fromLatin1(code)});
            EXPECT_EQ(isDown(withNumLock), isOn) << code;
            EXPECT_EQ(isDown(without), !isOn) << code;
            xdotool({QStringLiteral("keyup"), QString::fromLatin1(code)});
            EXPECT_FALSE(isDown(withNumLock) || isDown(without)) << code;
        }
        xdotool({QStringLiteral("key"), QStringLiteral("Num_Lock")});
    }
    // The keys that move the cursor without the number pad do not depend on it.
    for (const bool isOn : {false, true}) {
        EXPECT_EQ(GetKeyState(VK_NUMLOCK), isOn ? 1 : 0);
        xdotool({QStringLiteral("keydown"), QStringLiteral("118")});
        EXPECT_TRUE(isDown(VK_INSERT));
        EXPECT_FALSE(isDown(VK_NUMPAD0));
        xdotool({QStringLiteral("keyup"), QStringLiteral("118")});
        xdotool({QStringLiteral("key"), QStringLiteral("Num_Lock")});
    }
}

TEST_F(XKeyboardTest, AKeyWithALampIsToggledByEveryPress)
{
    constexpr int CapsLock = 0x14;
    EXPECT_EQ(GetKeyState(CapsLock), 0);
    xdotool({QStringLiteral("key"), QStringLiteral("Caps_Lock")});
    EXPECT_EQ(GetKeyState(CapsLock), 1);
    xdotool({QStringLiteral("keydown"), QStringLiteral("Caps_Lock")});
    EXPECT_EQ(GetKeyState(CapsLock), -127);
    xdotool({QStringLiteral("keyup"), QStringLiteral("Caps_Lock")});
    EXPECT_EQ(GetKeyState(CapsLock), 0);
}

TEST_F(XKeyboardTest, CodesThatAreNoKeyAreUp)
{
    for (const int virtualKey : {-1, 0, 0x07, 0x3A, 0x88, 0xFF, 256, 30000})
        EXPECT_EQ(GetKeyState(virtualKey), 0) << virtualKey;
}

// What keys are on other layouts, by their places. On Windows no two keys are the same, and none is two.
TEST_F(XKeyboardTest, AKeyIsOneKeyOnEveryLayout)
{
    const struct
    {
        const char *layout;
        std::vector<std::pair<const char *, int>> keys; // by the codes of an X server
    } layouts[] = {
        {"us", {{"19", '0'}, {"16", '7'}, {"20", VK_OEM_MINUS}, {"29", 'Y'}, {"34", VK_OEM_4}, {"51", VK_OEM_5}}},
        {"de",
         {{"19", '0'},
          {"16", '7'},
          {"17", '8'},
          {"29", 'Z'},
          {"52", 'Y'},
          {"34", VK_OEM_4},
          {"35", VK_OEM_PLUS},
          {"47", VK_OEM_1},
          {"48", VK_OEM_7},
          {"49", VK_OEM_3},
          {"51", VK_OEM_5},
          {"59", VK_OEM_COMMA},
          {"61", VK_OEM_MINUS},
          {"94", VK_OEM_102},
          {"20", VK_OEM_2},
          {"21", VK_OEM_6}}},
        {"fr",
         {{"10", '1'}, {"15", '6'}, {"17", '8'}, {"24", 'A'}, {"47", 'M'}, {"58", VK_OEM_COMMA}, {"48", VK_OEM_7}}},
        {"ru", {{"10", '1'}, {"24", 'Q'}, {"38", 'A'}, {"47", VK_OEM_1}, {"59", VK_OEM_COMMA}}}};
    for (const auto &[layout, keys] : layouts) {
        ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), {QString::fromLatin1(layout)}), 0);
        for (const auto &[code, virtualKey] : keys) {
            xdotool({QStringLiteral("keydown"), QString::fromLatin1(code)});
            for (int other = 1; other < 256; ++other)
                EXPECT_EQ(isDown(other), other == virtualKey) << layout << ' ' << code << ' ' << other;
            xdotool({QStringLiteral("keyup"), QString::fromLatin1(code)});
        }
    }
    ASSERT_EQ(QProcess::execute(QStringLiteral("setxkbmap"), {QStringLiteral("us")}), 0);
}

// The answer of an X server about its pointer has no room for them.
TEST_F(XKeyboardTest, TheButtonsBesideTheFirstThreeAreNeverDown)
{
    constexpr int Back = 0x05, Forward = 0x06;
    for (const char *button : {"8", "9"}) {
        xdotool({QStringLiteral("mousedown"), QString::fromLatin1(button)});
        EXPECT_FALSE(isDown(Back) || isDown(Forward)) << button;
        xdotool({QStringLiteral("mouseup"), QString::fromLatin1(button)});
    }
}

// Comes last: the server does not come back.
TEST_F(XKeyboardTest, WhenTheServerHasGoneEveryKeyIsUp)
{
    xdotool({QStringLiteral("keydown"), QStringLiteral("a")});
    EXPECT_TRUE(isDown('A'));
    server.kill();
    server.waitForFinished();
    EXPECT_EQ(GetKeyState('A'), 0);
    EXPECT_EQ(GetKeyState(VK_LBUTTON), 0);
}
