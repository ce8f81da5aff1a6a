#include "functions/system.h"

#include "platform/ObservedCalls.h"
#include "tests/support/HandlerTest.h"

#include <map>

namespace {

constexpr std::int16_t Down = -128;

class KeyState : public HandlerTest
{
protected:
    KeyState()
    {
        setKeyStateSource([this](int virtualKey) { return m_states[virtualKey]; });
    }
    ~KeyState() override { setKeyStateSource({}); }

    std::map<int, std::int16_t> m_states;
};

} // namespace

TEST_F(KeyState, WhileShiftIsHeldGivesTheNegativeState)
{
    m_states[16] = Down;
    EXPECT_EQ(call(acetSysKeystate, {shortInteger(16)}), (Operations{"getArgs", "retInt -128", "releaseRb 1"}));
    m_states[16] = static_cast<std::int16_t>(-127);
    EXPECT_EQ(call(acetSysKeystate, {shortInteger(16)}), (Operations{"getArgs", "retInt -127", "releaseRb 1"}));
}

TEST_F(KeyState, WithShiftReleasedGives0EvenWhenAToggleBitIsSet)
{
    for (const std::int16_t state : {0, 1}) {
        m_states[16] = state;
        EXPECT_EQ(call(acetSysKeystate, {shortInteger(16)}), (Operations{"getArgs", "retInt 0", "releaseRb 1"}));
    }
}

TEST_F(KeyState, AMissingOrWrongKeyEndsWithNoResultOfItsOwn)
{
    EXPECT_EQ(call(acetSysKeystate, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetSysKeystate, {text(u"x")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}

TEST_F(KeyState, EachMouseButtonHasItsFunction)
{
    constexpr int Left = 1, Right = 2, Middle = 4;
    for (const int pressed : {Left, Right, Middle}) {
        m_states = {{pressed, Down}};
        const auto answer = [pressed](int button) { return Operations{button == pressed ? "retT" : "retNil"}; };
        EXPECT_EQ(call(acetSysLmouseDown, {}), answer(Left));
        EXPECT_EQ(call(acetSysRmouseDown, {}), answer(Right));
        EXPECT_EQ(call(acetSysMmouseDown, {text(u"any")}), answer(Middle));
    }
}

TEST_F(KeyState, AToggledButtonThatIsUpIsNotDown)
{
    m_states[1] = 1;
    EXPECT_EQ(call(acetSysLmouseDown, {}), Operations{"retNil"});
}
