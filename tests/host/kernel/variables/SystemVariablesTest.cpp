#include "host/kernel/variables/SystemVariables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

class SystemVariablesTest : public testing::Test
{
protected:
    VariableValue get(std::u16string_view name) { return m_variables.get(*findVariable(name)); }
    bool set(std::u16string_view name, const VariableValue &value)
    {
        return m_variables.set(*findVariable(name), value);
    }
    int integer(std::u16string_view name) { return std::get<int>(get(name)); }

    SystemVariables m_variables;
};

} // namespace

TEST(VariableTable, NamesAreFoundInAnyCase)
{
    EXPECT_EQ(findVariable(u"OsMode"), findVariable(u"OSMODE"));
    ASSERT_NE(findVariable(u"osmode"), nullptr);
    EXPECT_EQ(findVariable(u""), nullptr);
    EXPECT_EQ(findVariable(u"OSMODES"), nullptr);
    EXPECT_EQ(findVariable(u"ZZZ"), nullptr);
}

TEST(VariableTable, EveryFirstValueCanBeSet)
{
    SystemVariables variables;
    for (const VariableRow &row : variableTable()) {
        EXPECT_EQ(findVariable(row.name), &row);
        const bool isSettable = row.access == VariableAccess::ReadWrite;
        EXPECT_EQ(variables.set(row, variables.get(row)), isSettable) << std::string(row.name.begin(), row.name.end());
    }
}

TEST_F(SystemVariablesTest, AnIntegerWillDoForARealButNotTheOtherWayRound)
{
    EXPECT_TRUE(set(u"LTSCALE", 2));
    EXPECT_EQ(std::get<double>(get(u"LTSCALE")), 2.0);
    EXPECT_FALSE(set(u"OSMODE", 1.0));
    EXPECT_FALSE(set(u"OSMODE", u"1"));
    EXPECT_FALSE(set(u"CLAYER", 1));
    EXPECT_FALSE(set(u"SNAPBASE", 1.0));
}

TEST_F(SystemVariablesTest, IntegersHaveARange)
{
    EXPECT_TRUE(set(u"LUPREC", 8));
    EXPECT_FALSE(set(u"LUPREC", 9));
    EXPECT_FALSE(set(u"LUPREC", -1));
    EXPECT_EQ(integer(u"LUPREC"), 8);
}

TEST_F(SystemVariablesTest, RealsHaveARange)
{
    EXPECT_TRUE(set(u"LTSCALE", 2.5));
    EXPECT_FALSE(set(u"LTSCALE", 0));
    EXPECT_FALSE(set(u"LTSCALE", -1.0));
    EXPECT_FALSE(set(u"LTSCALE", INFINITY));
    EXPECT_EQ(std::get<double>(get(u"LTSCALE")), 2.5);
}

TEST_F(SystemVariablesTest, WhatTheDrawingWasOpenedWithCanBePutBack)
{
    m_variables.load(*findVariable(u"TEXTSIZE"), -1.0);
    m_variables.load(*findVariable(u"ATTMODE"), 77);
    EXPECT_TRUE(set(u"TEXTSIZE", -1.0)); // what it is
    EXPECT_TRUE(set(u"ATTMODE", 1));
    m_variables.load(*findVariable(u"ATTMODE"), 2); // a step undone
    EXPECT_TRUE(set(u"ATTMODE", 77));
    EXPECT_EQ(integer(u"ATTMODE"), 77);
    EXPECT_FALSE(set(u"ATTMODE", 78));
}

TEST_F(SystemVariablesTest, NothingOfADrawingIsLeftForTheNext)
{
    int place = 0;
    m_variables.bind(u"LUPREC", place);
    m_variables.load(*findVariable(u"LUPREC"), 77);
    m_variables.load(*findVariable(u"CLAYER"), u"Walls");
    int computedWrites = 0;
    m_variables.compute(
        u"CTAB", [] { return u"Layout1"; }, [&](const VariableValue &) { return ++computedWrites > 0; });
    EXPECT_TRUE(set(u"OSMODE", 5)); // of the session

    m_variables.forgetDrawing();

    EXPECT_EQ(place, 4);
    EXPECT_FALSE(set(u"LUPREC", 77));
    EXPECT_EQ(std::get<std::u16string>(get(u"CLAYER")), u"0");
    EXPECT_EQ(computedWrites, 0); // the host's own affair
    EXPECT_EQ(integer(u"OSMODE"), 5);
}

TEST_F(SystemVariablesTest, NamesAreSpelledByWhoKnowsThem)
{
    std::vector<NameOf> asked;
    m_variables.spellNames([&](NameOf what, std::u16string_view name) {
        asked.push_back(what);
        return name == u"walls" ? std::optional<std::u16string>(u"Walls") : std::nullopt;
    });
    std::vector<VariableValue> kept;
    m_variables.keepInDrawing([&](const VariableRow &, const VariableValue &value) { kept.push_back(value); });
    EXPECT_TRUE(set(u"CLAYER", u"walls"));
    EXPECT_FALSE(set(u"CLAYER", u"none"));
    EXPECT_TRUE(set(u"USERS1", u"none")); // no name of anything
    EXPECT_EQ(std::get<std::u16string>(get(u"CLAYER")), u"Walls");
    EXPECT_EQ(kept, std::vector<VariableValue>{u"Walls"});
    EXPECT_EQ(asked, (std::vector{NameOf::Layer, NameOf::Layer}));
}

TEST_F(SystemVariablesTest, ReadOnlyOnesChangeThroughTheHostAlone)
{
    EXPECT_FALSE(set(u"DWGNAME", u"x.dwg"));
    m_variables.assign(u"DWGNAME", u"x.dwg");
    EXPECT_EQ(std::get<std::u16string>(get(u"DWGNAME")), u"x.dwg");
}

TEST_F(SystemVariablesTest, ABoundVariableStaysInStepWithItsPlace)
{
    int place = 99;
    m_variables.bind(u"LUPREC", place);
    EXPECT_EQ(place, 4); // begins with the first value of the table
    EXPECT_TRUE(set(u"LUPREC", 6));
    EXPECT_EQ(place, 6);
    place = 2;
    EXPECT_EQ(integer(u"LUPREC"), 2);
    EXPECT_FALSE(set(u"LUPREC", 9));
    EXPECT_EQ(place, 2);
}

TEST_F(SystemVariablesTest, AFlagIsTheIntegerZeroOrOne)
{
    bool flag = true;
    m_variables.bind(u"ANGDIR", flag);
    EXPECT_FALSE(flag);
    EXPECT_TRUE(set(u"ANGDIR", 1));
    EXPECT_TRUE(flag);
    EXPECT_EQ(integer(u"ANGDIR"), 1);
}

TEST_F(SystemVariablesTest, AComputedVariableIsReadAnewEachTime)
{
    int reads = 0;
    m_variables.compute(u"EXPERT", [&] { return ++reads; });
    EXPECT_EQ(integer(u"EXPERT"), 1);
    EXPECT_EQ(integer(u"EXPERT"), 2);
    EXPECT_FALSE(set(u"EXPERT", 5));
}
