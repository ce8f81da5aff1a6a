#include "host/kernel/input/Prompter.h"
#include "host/kernel/HostServices.h"
#include "lisp/LispStatus.h"

#include <gtest/gtest.h>

#include <numbers>

constexpr double Pi = std::numbers::pi;

namespace {

class PrompterTest : public testing::Test
{
protected:
    PrompterTest()
    {
        m_services.print = [this](std::u16string_view text) { m_printed += text; };
    }
    void answer(QStringView text) { m_services.answers = AnswersFile::fromText(text, QString()); }
    int integer() { return m_prompter.integer(u"?", m_integer); }
    int real() { return m_prompter.real(u"?", m_real); }

    HostServices m_services;
    lisp::Machine m_machine;
    Prompter m_prompter{m_services, m_machine};
    std::u16string m_printed, m_text;
    std::int32_t m_integer = 77;
    double m_real = 77;
    LispPoint m_point{7, 7, 7};
};

} // namespace

TEST_F(PrompterTest, EnterAloneLeavesTheValueAlone)
{
    answer(u"\n");
    EXPECT_EQ(integer(), StatusNoInput);
    EXPECT_EQ(m_integer, 77);
}

TEST_F(PrompterTest, EscCancels)
{
    answer(u"@esc\n");
    EXPECT_EQ(real(), StatusCancelled);
}

TEST_F(PrompterTest, IntegersHaveSixteenBits)
{
    answer(u"32768\n-32769\n1.5\nx\n-32768\n");
    EXPECT_EQ(integer(), StatusNormal);
    EXPECT_EQ(m_integer, -32768);
    const std::u16string range = u"Requires an integer between -32768 and 32767.\n",
                         kind = u"Requires an integer value.\n";
    EXPECT_EQ(m_printed, u"?32768\n" + range + u"?-32769\n" + range + u"?1.5\n" + kind + u"?x\n" + kind + u"?-32768\n");
}

TEST_F(PrompterTest, ASnapStandsBeforeAPoint)
{
    m_prompter.snapper = [](const LispPoint &near, snap::Modes modes,
                            const LispPoint &from) -> std::optional<LispPoint> {
        if (near.x > 50)
            return std::nullopt;
        return LispPoint{near.x + modes, near.y, from.z};
    };
    m_prompter.lastPoint = {0, 0, 9};
    answer(u"_end\n60,2\n_mid\n1,2\n");
    EXPECT_EQ(m_prompter.point(u"?", nullptr, m_point), StatusNormal);
    EXPECT_EQ(m_point.x, 1 + snap::Middle);
    EXPECT_EQ(m_point.z, 9);
    EXPECT_EQ(m_printed, u"?_end\nof 60,2\nInvalid point.\n?_mid\nof 1,2\n");
}

TEST_F(PrompterTest, LimitsComplainAndAskAgain)
{
    answer(u"0\n-1\n3\n");
    m_prompter.initGet(InputOptions::NoZero | InputOptions::NoNegative, u"");
    EXPECT_EQ(integer(), StatusNormal);
    EXPECT_EQ(m_integer, 3);
    EXPECT_EQ(m_printed, u"?0\nValue must be positive and nonzero.\n?-1\nValue must be positive and nonzero.\n?3\n");
}

TEST_F(PrompterTest, EachLimitHasItsOwnWords)
{
    answer(u"0\n-1\n");
    m_prompter.initGet(InputOptions::NoZero, u"");
    EXPECT_EQ(real(), StatusNormal);
    EXPECT_EQ(m_real, -1);
    EXPECT_EQ(m_printed, u"?0\nValue must be nonzero.\n?-1\n");
    m_printed.clear();
    answer(u"-1\n0\n");
    m_prompter.initGet(InputOptions::NoNegative, u"");
    EXPECT_EQ(real(), StatusNormal);
    EXPECT_EQ(m_printed, u"?-1\nValue must be positive.\n?0\n");
}

TEST_F(PrompterTest, OptionsHoldForOneRequest)
{
    answer(u"5\n0\n");
    m_prompter.initGet(InputOptions::NoZero, u"Yes");
    integer();
    EXPECT_EQ(integer(), StatusNormal);
    EXPECT_EQ(m_integer, 0);
}

TEST_F(PrompterTest, EnterCanBeRefused)
{
    answer(u"\n4\n");
    m_prompter.initGet(InputOptions::NoEmptyInput, u"");
    EXPECT_EQ(integer(), StatusNormal);
    EXPECT_EQ(m_printed, u"?\nRequires an integer value.\n?4\n");
}

TEST_F(PrompterTest, AKeywordIsAStatusOfItsOwn)
{
    answer(u"tru\n");
    m_prompter.initGet(0, u"TRuecolor");
    EXPECT_EQ(integer(), StatusKeyword);
    EXPECT_EQ(m_prompter.lastInput(), u"TRuecolor");
}

TEST_F(PrompterTest, ArbitraryInputIsLetThrough)
{
    answer(u"what ever\n");
    m_prompter.initGet(InputOptions::ArbitraryInput, u"");
    EXPECT_EQ(m_prompter.point(u"?", nullptr, m_point), StatusKeyword);
    EXPECT_EQ(m_prompter.lastInput(), u"what ever");
}

TEST_F(PrompterTest, KeywordRequestsTakeNothingElse)
{
    answer(u"x\ny\n");
    m_prompter.initGet(0, u"Yes No");
    EXPECT_EQ(m_prompter.keyword(u"?"), StatusNormal);
    EXPECT_EQ(m_prompter.lastInput(), u"Yes");
    EXPECT_EQ(m_printed, u"?x\nInvalid option keyword.\n?y\n");
}

TEST_F(PrompterTest, ATextEndsAtABlankUnlessBlanksAreAllowed)
{
    answer(u"one two\none two\n\n");
    EXPECT_EQ(m_prompter.string(false, u"?", m_text), StatusNormal);
    EXPECT_EQ(m_text, u"one");
    EXPECT_EQ(m_prompter.string(true, u"?", m_text), StatusNormal);
    EXPECT_EQ(m_text, u"one two");
    EXPECT_EQ(m_prompter.string(true, u"?", m_text), StatusNormal);
    EXPECT_EQ(m_text, u"");
}

TEST_F(PrompterTest, APointBecomesTheLastPoint)
{
    answer(u"1,2,3\n@1,1\n");
    m_prompter.point(u"?", nullptr, m_point);
    EXPECT_EQ(m_prompter.corner(u"?", m_point, m_point), StatusNormal);
    EXPECT_EQ(m_point.x, 2);
    EXPECT_EQ(m_point.y, 3);
    EXPECT_EQ(m_point.z, 3);
}

TEST_F(PrompterTest, ADistanceIsTypedOrMeasuredFromTheBase)
{
    answer(u"2.5\n3,4\n");
    const LispPoint base{0, 0, 0};
    EXPECT_EQ(m_prompter.distance(u"?", &base, m_real), StatusNormal);
    EXPECT_EQ(m_real, 2.5);
    EXPECT_EQ(m_prompter.distance(u"?", &base, m_real), StatusNormal);
    EXPECT_EQ(m_real, 5);
}

TEST_F(PrompterTest, WithoutABaseTwoPointsMakeADistance)
{
    answer(u"1,1\n@0,7\n");
    EXPECT_EQ(m_prompter.distance(u"?", nullptr, m_real), StatusNormal);
    EXPECT_EQ(m_real, 7);
    EXPECT_EQ(m_printed, u"?1,1\nSpecify second point: @0,7\n");
}

TEST_F(PrompterTest, AnglesCountFromTheBaseOrientationsFromTheXAxis)
{
    m_prompter.angleBase = Pi / 2;
    const LispPoint base{0, 0, 0};
    answer(u"45\n45\n0,1\n0,1\n");
    m_prompter.angle(u"?", &base, m_real);
    EXPECT_NEAR(m_real, Pi / 4, 1e-12);
    m_prompter.orientation(u"?", &base, m_real);
    EXPECT_NEAR(m_real, Pi * 3 / 4, 1e-12);
    m_prompter.angle(u"?", &base, m_real);
    EXPECT_NEAR(m_real, 0, 1e-12);
    m_prompter.orientation(u"?", &base, m_real);
    EXPECT_NEAR(m_real, Pi / 2, 1e-12);
}

TEST_F(PrompterTest, TwoPointsMakeADirection)
{
    answer(u"1,1\n1,5\n");
    EXPECT_EQ(m_prompter.orientation(u"?", nullptr, m_real), StatusNormal);
    EXPECT_NEAR(m_real, Pi / 2, 1e-12);
}

TEST_F(PrompterTest, WhenTheSecondPointIsCancelledThereIsNoValue)
{
    answer(u"1,1\n@esc\n");
    EXPECT_EQ(m_prompter.distance(u"?", nullptr, m_real), StatusCancelled);
    EXPECT_EQ(m_real, 77);
}
