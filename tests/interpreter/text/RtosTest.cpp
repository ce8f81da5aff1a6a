#include "host/interpreter/text/LinearUnits.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct Row
{
    double number;
    int mode, precision;
    const char16_t *text;
    int zeroSuppression = 0, unitMode = 0;
};

class Rtos : public testing::TestWithParam<Row>
{
};

TEST_P(Rtos, writesTheNumberInTheUnits)
{
    const Row &row = GetParam();
    EXPECT_EQ(lisp::rtos(row.number, *lisp::linearUnits(row.mode), row.precision, {row.unitMode, row.zeroSuppression}),
              row.text);
}

constexpr Row modes[] = {
    {17.5, 1, 4, u"1.7500E+01"},
    {17.5, 2, 2, u"17.50"},
    {17.5, 3, 2, u"1'-5.50\""},
    {17.5, 4, 2, u"1'-5 1/2\""},
    {17.5, 5, 2, u"17 1/2"},
    {17.5, 3, 2, u"1'5.50\"", 0, 1},
    {17.5, 4, 2, u"1'5-1/2\"", 0, 1},
    {17.5, 5, 2, u"17-1/2", 0, 1},
    {-17.5, 1, 1, u"-1.8E+01"},
    {-17.5, 2, 2, u"-17.50"},
    {-17.5, 3, 2, u"-1'-5.50\""},
    {-17.5, 4, 2, u"-1'-5 1/2\""},
    {-0.5, 5, 2, u"-1/2"},
    {0, 1, 2, u"0.00E+00"},
    {0, 2, 2, u"0.00"},
    {0, 3, 2, u"0.00\""},
    {0, 4, 2, u"0\""},
    {0, 5, 2, u"0"},
    {1.0 / 3.0, 2, 15, u"0.333333333333333"},
    {1e20, 2, 0, u"100000000000000000000"},
    {17.5, 2, -3, u"18"},
    {1.5, 2, 1000, u"1.50000000000000000000"},
};

constexpr Row rounding[] = {
    {0.5, 2, 0, u"1"},                    // exactly half-way goes away from zero
    {2.5, 2, 0, u"3"},                    // and not to the even neighbour
    {-2.5, 2, 0, u"-3"},                  // on both sides
    {0.125, 2, 2, u"0.13"},               // with decimals too
    {-0.001, 2, 2, u"0.00"},              // no negative zero
    {-0.001, 4, 2, u"0\""},               // in any mode
    {11.99999, 3, 2, u"1'"},              // inches carry into feet
    {11.99999, 3, 2, u"1'-0.00\"", 1},    //
    {11.99999, 4, 4, u"1'"},              //
    {11.99999, 4, 4, u"1'-0\"", 1},       //
    {719.99999, 4, 4, u"60'"},            // never 59'-12"
    {719.99999, 3, 3, u"60'-0.000\"", 3}, //
    {0.99999, 5, 4, u"1"},                //
    {0.5, 5, 4, u"1/2"},                  // fractions are reduced
    {0.375, 5, 8, u"3/8"},                //
    {0.00390625, 5, 8, u"1/256"},         //
    {0.00390625, 5, 99, u"1/256"},        // the smallest fraction
    {0.5, 5, 0, u"1"},                    // no fraction at precision 0
};

constexpr Row zeros[] = {
    {0.25, 4, 2, u"1/4\"", 0},
    {4, 4, 2, u"4\"", 0},
    {12, 4, 2, u"1'", 0},
    {12.5, 4, 2, u"1'-0 1/2\"", 0},
    {0.25, 4, 2, u"0'-0 1/4\"", 1},
    {4, 4, 2, u"0'-4\"", 1},
    {12, 4, 2, u"1'-0\"", 1},
    {12.5, 4, 2, u"1'-0 1/2\"", 1},
    {0.25, 4, 2, u"0'-0 1/4\"", 2},
    {4, 4, 2, u"0'-4\"", 2},
    {12, 4, 2, u"1'", 2},
    {12.5, 4, 2, u"1'-0 1/2\"", 2},
    {0.25, 4, 2, u"1/4\"", 3},
    {4, 4, 2, u"4\"", 3},
    {12, 4, 2, u"1'-0\"", 3},
    {12.5, 4, 2, u"1'-0 1/2\"", 3},
    {0, 4, 2, u"0'-0\"", 1},
    {0, 4, 2, u"0'", 2},
    {0, 4, 2, u"0\"", 3},
    {6, 3, 1, u"0'-6.0\"", 2},
    {12, 3, 1, u"1'-0.0\"", 3},
    {12, 3, 1, u"1'", 2},
    {0.5, 2, 4, u".5000", 4},
    {-0.5, 2, 4, u"-.5000", 4},
    {12.5, 2, 4, u"12.5", 8},
    {12, 2, 4, u"12", 8},
    {0.5, 2, 4, u".5", 12},
    {0, 2, 4, u"0", 8},
    {0, 2, 4, u"0", 12},
    {100, 2, 0, u"100", 8},
    {17.5, 3, 4, u"1'-5.5\"", 8},
    {17.5, 1, 4, u"1.75E+01", 8},
    {12.5, 4, 2, u"1'0-1/2\"", 0, 1},
};

INSTANTIATE_TEST_SUITE_P(modes, Rtos, testing::ValuesIn(modes));
INSTANTIATE_TEST_SUITE_P(rounding, Rtos, testing::ValuesIn(rounding));
INSTANTIATE_TEST_SUITE_P(zeros, Rtos, testing::ValuesIn(zeros));

TEST(LinearUnits, knowFiveModes)
{
    EXPECT_EQ(lisp::linearUnits(0), std::nullopt);
    EXPECT_EQ(lisp::linearUnits(1), lisp::LinearUnits::Scientific);
    EXPECT_EQ(lisp::linearUnits(5), lisp::LinearUnits::Fractional);
    EXPECT_EQ(lisp::linearUnits(6), std::nullopt);
}

TEST(Rtos, writesWhatIsNoNumberInEveryMode)
{
    for (int mode = 1; mode <= 5; ++mode)
        EXPECT_EQ(lisp::rtos(-std::numeric_limits<double>::infinity(), *lisp::linearUnits(mode), 2, {}), u"-inf");
}

} // namespace
