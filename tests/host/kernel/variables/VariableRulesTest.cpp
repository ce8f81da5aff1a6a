#include "host/kernel/variables/VariableRules.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

bool isInRange(std::u16string_view name, const VariableValue &value)
{
    return ::isInRange(*findVariable(name), value);
}

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

std::string narrow(std::u16string_view name)
{
    return {name.begin(), name.end()};
}

} // namespace

TEST(VariableRules, EveryFirstValueIsInItsRange)
{
    const SystemVariables variables;
    for (const VariableRow &row : variableTable())
        EXPECT_TRUE(::isInRange(row, variables.get(row))) << narrow(row.name);
}

TEST(VariableRules, ScalesAndSizesAreLargerThanNothing)
{
    for (const std::u16string_view name : {u"LTSCALE", u"CELTSCALE", u"HPSCALE", u"TEXTSIZE", u"DIMTXT", u"DONUTOD"}) {
        EXPECT_FALSE(isInRange(name, 0.0)) << narrow(name);
        EXPECT_FALSE(isInRange(name, -1.0)) << narrow(name);
        EXPECT_TRUE(isInRange(name, 1e-6)) << narrow(name);
    }
}

TEST(VariableRules, LengthsThatCanVanishAreNotNegative)
{
    for (const std::u16string_view name :
         {u"DIMSCALE", u"DIMASZ", u"DIMTSZ", u"DIMEXE", u"DIMEXO", u"DIMDLI", u"DIMDLE", u"DIMRND", u"FILLETRAD",
          u"CHAMFERA", u"CHAMFERB", u"CHAMFERC", u"CIRCLERAD", u"DONUTID", u"PLINEWID", u"TRACEWID", u"SKETCHINC"}) {
        EXPECT_FALSE(isInRange(name, -1e-6)) << narrow(name);
        EXPECT_TRUE(isInRange(name, 0.0)) << narrow(name);
        EXPECT_TRUE(isInRange(name, 1e6)) << narrow(name);
    }
}

TEST(VariableRules, WhatHasAMeaningBelowZeroMayLieThere)
{
    for (const std::u16string_view name : {u"OFFSETDIST", u"PDSIZE", u"DIMCEN", u"DIMGAP", u"DIMLFAC", u"DIMTM",
                                           u"DIMTP", u"ELEVATION", u"THICKNESS", u"HPANG", u"SNAPANG", u"USERR1"})
        EXPECT_TRUE(isInRange(name, -1.0)) << narrow(name);
}

TEST(VariableRules, GapsOfHatchesHaveAnUpperLimit)
{
    EXPECT_TRUE(isInRange(u"HPGAPTOL", 5000.0));
    EXPECT_FALSE(isInRange(u"HPGAPTOL", 5000.1));
    EXPECT_FALSE(isInRange(u"HPGAPTOL", -0.1));
}

TEST(VariableRules, NoVariableIsWhatIsNoFiniteNumber)
{
    for (const VariableRow &row : variableTable())
        for (const double value : {Infinity, -Infinity, NotANumber}) {
            EXPECT_FALSE(row.type == VariableType::Real && ::isInRange(row, value)) << narrow(row.name);
            if (row.type != VariableType::Point2d && row.type != VariableType::Point3d)
                continue;
            EXPECT_FALSE(::isInRange(row, LispPoint{value, 1, 0})) << narrow(row.name);
            EXPECT_FALSE(::isInRange(row, LispPoint{1, value, 0})) << narrow(row.name);
        }
    EXPECT_FALSE(isInRange(u"INSBASE", LispPoint{0, 0, NotANumber}));
}

TEST(VariableRules, BothCoordinatesOfASpacingAreInItsRange)
{
    EXPECT_TRUE(isInRange(u"SNAPUNIT", LispPoint{0.5, 0.25, 0}));
    EXPECT_FALSE(isInRange(u"SNAPUNIT", LispPoint{0, 1, 0}));
    EXPECT_FALSE(isInRange(u"SNAPUNIT", LispPoint{1, -1, 0}));
    EXPECT_TRUE(isInRange(u"GRIDUNIT", LispPoint{0, 0, 0})); // that of the snap
    EXPECT_FALSE(isInRange(u"GRIDUNIT", LispPoint{1, -1, 0}));
    EXPECT_TRUE(isInRange(u"SNAPBASE", LispPoint{-1, -1, 0}));
}

TEST(VariableRules, LineweightsAreTheStandardOnes)
{
    std::vector<int> allowed, allowedAtFirst;
    for (int value = -10; value <= 300; ++value) {
        if (isInRange(u"CELWEIGHT", value))
            allowed.push_back(value);
        if (isInRange(u"LWDEFAULT", value))
            allowedAtFirst.push_back(value);
    }
    const std::vector<int> widths = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                     53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    std::vector<int> all = {-3, -2, -1};
    all.insert(all.end(), widths.begin(), widths.end());
    EXPECT_EQ(allowed, all);
    EXPECT_EQ(allowedAtFirst, widths);
}

TEST(VariableRules, PointsHaveFiveFiguresAndTwoFrames)
{
    for (int value = -1; value <= 128; ++value)
        EXPECT_EQ(isInRange(u"PDMODE", value), value >= 0 && value / 32 < 4 && value % 32 < 5) << value;
}

TEST(VariableRules, IntegersHaveSixteenBits)
{
    EXPECT_TRUE(isInRange(u"USERI1", -32768));
    EXPECT_TRUE(isInRange(u"USERI1", 32767));
    EXPECT_FALSE(isInRange(u"USERI1", 32768));
    EXPECT_FALSE(isInRange(u"USERI1", -32769));
}
