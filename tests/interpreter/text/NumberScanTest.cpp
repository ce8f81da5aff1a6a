#include "host/interpreter/text/RealText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

namespace {

using lisp::Number;

struct Row
{
    const char16_t *token;
    std::optional<Number> number;
};

class NumberScan : public testing::TestWithParam<Row>
{
};

TEST_P(NumberScan, tellsIntegersRealsAndSymbolsApart)
{
    EXPECT_EQ(lisp::scanNumber(GetParam().token), GetParam().number);
}

constexpr double Infinity = std::numeric_limits<double>::infinity();

const Row rows[] = {
    {u"0", 0},
    {u"42", 42},
    {u"+7", 7},
    {u"-7", -7},
    {u"007", 7},
    {u"42.", 42.0},
    {u".5", 0.5},
    {u"-.5", -0.5},
    {u"+1.25", 1.25},
    {u"1.0e3", 1000.0},
    {u"1E3", 1000.0},
    {u"1.e-2", 0.01},
    {u"2147483647", 2147483647},
    {u"-2147483647", -2147483647},
    {u"2147483648", 2147483648.0},
    {u"-2147483648", -2147483648.0},
    {u"99999999999999999999", 1e20},
    {u"1e999", Infinity},
    {u"-1e999", -Infinity},
    {u"1e-999", 0.0},
    {u"1e99999999999999999999", Infinity},
    {u"1e-99999999999999999999", 0.0},
    {u"0e99999999999999999999", 0.0},
    {u"", std::nullopt},
    {u"-", std::nullopt},
    {u"+", std::nullopt},
    {u".", std::nullopt},
    {u"-.", std::nullopt},
    {u"1+", std::nullopt},
    {u"1-", std::nullopt},
    {u"1e", std::nullopt},
    {u"1e+", std::nullopt},
    {u"e5", std::nullopt},
    {u".e5", std::nullopt},
    {u"1.2.3", std::nullopt},
    {u"1,5", std::nullopt},
    {u"0x10", std::nullopt},
    {u"inf", std::nullopt},
    {u"nan", std::nullopt},
    {u"4\u0661", std::nullopt}, // a digit of another script is a letter of a name
    {u" 1", std::nullopt},
};

INSTANTIATE_TEST_SUITE_P(rows, NumberScan, testing::ValuesIn(rows));

TEST(LeadingNumbers, takeWhatTheTextBeginsWith)
{
    EXPECT_EQ(lisp::leadingInteger(u"97"), 97);
    EXPECT_EQ(lisp::leadingInteger(u"  -3.9 mm"), -3);
    EXPECT_EQ(lisp::leadingInteger(u"12abc"), 12);
    EXPECT_EQ(lisp::leadingInteger(u"+5"), 5);
    EXPECT_EQ(lisp::leadingInteger(u"1e3"), 1);
    EXPECT_EQ(lisp::leadingReal(u"97.1"), 97.1);
    EXPECT_EQ(lisp::leadingReal(u"\t3"), 3.0);
    EXPECT_EQ(lisp::leadingReal(u"1.5e2x"), 150.0);
    EXPECT_EQ(lisp::leadingReal(u"2em"), 2.0);
}

TEST(LeadingNumbers, areZeroWithoutANumber)
{
    for (const char16_t *text : {u"", u"  ", u"abc", u"-", u".", u"-.x", u"\u00A05"}) {
        EXPECT_EQ(lisp::leadingInteger(text), 0);
        EXPECT_EQ(lisp::leadingReal(text), 0.0);
    }
    EXPECT_EQ(lisp::leadingInteger(u".5"), 0);
}

TEST(LeadingNumbers, stopAtTheLimitsOfAnInteger)
{
    EXPECT_EQ(lisp::leadingInteger(u"99999999999999999999"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(lisp::leadingInteger(u"-99999999999999999999"), std::numeric_limits<std::int32_t>::min());
}

RC_GTEST_PROP(NumberScanProperty, everyIntegerButTheLowestReadsBack, (std::int32_t number))
{
    const std::string digits = std::to_string(number);
    const auto scanned = lisp::scanNumber(std::u16string(digits.begin(), digits.end()));
    if (number == std::numeric_limits<std::int32_t>::min())
        RC_ASSERT(scanned == std::optional<Number>(static_cast<double>(number)));
    else
        RC_ASSERT(scanned == std::optional<Number>(number));
}

RC_GTEST_PROP(NumberScanProperty, everyPrintedRealReadsBackAsThatReal, (double number))
{
    const std::u16string text = lisp::realText(number);
    const auto scanned = lisp::scanNumber(text);
    RC_ASSERT(scanned.has_value() && std::holds_alternative<double>(*scanned));
    RC_ASSERT(lisp::realText(std::get<double>(*scanned)) == text);
}

RC_GTEST_PROP(NumberScanProperty, anyTextIsScannedWithoutFailure, (std::u16string text))
{
    RC_ASSERT(lisp::scanReal(text).length <= text.size());
    lisp::leadingInteger(text);
    lisp::scanNumber(text);
}

} // namespace
