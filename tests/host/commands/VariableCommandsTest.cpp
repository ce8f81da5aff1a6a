#include "tests/host/commands/CommandTest.h"

#include "host/commands/Colors.h"

namespace {

using VariableCommands = CommandTest;

TEST_F(VariableCommands, SetvarTakesEveryKindOfValue)
{
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"ltscale\" \"2.5\") (getvar \"LTSCALE\")"), "2.5");
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"USERS1\" \"some text\") (getvar \"USERS1\")"), "\"some text\"");
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"USERS1\" \".\") (getvar \"USERS1\")"), "\"\"");
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"INSBASE\" '(1 2 3)) (getvar \"INSBASE\")"), "(1.0 2.0 3.0)");
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"LUPREC\" \"\") (getvar \"LUPREC\")"), "4");
}

TEST_F(VariableCommands, TheNameOfAVariableAsksForItsValue)
{
    EXPECT_EQ(evaluate("(command \"regenmode\" \"0\") (getvar \"REGENMODE\")"), "0");
}

TEST_F(VariableCommands, WhatCannotBeSetIsSaid)
{
    evaluate("(command \"_.luprec\" 99)");
    EXPECT_EQ(takePrinted(), "\nCannot set LUPREC to 99.\n");
    evaluate("(command \"_.setvar\" \"NOSUCHNAME\")");
    EXPECT_EQ(takePrinted(), "\nUnknown variable name: NOSUCHNAME\n");
}

TEST_F(VariableCommands, ColorsByNameNumberAndValues)
{
    EXPECT_EQ(evaluate("(command \"_.color\" \"red\") (getvar \"CECOLOR\")"), "\"1\"");
    EXPECT_EQ(evaluate("(command \"-color\" 33) (getvar \"CECOLOR\")"), "\"33\"");
    EXPECT_EQ(evaluate("(command \"_.color\" \"_bylayer\") (getvar \"CECOLOR\")"), "\"BYLAYER\"");
    EXPECT_EQ(evaluate("(command \"_.color\" \"_byblock\") (getvar \"CECOLOR\")"), "\"BYBLOCK\"");
    EXPECT_EQ(evaluate("(command \"_.color\" \"_t\" \"10,20,30\") (getvar \"CECOLOR\")"), "\"RGB:10,20,30\"");
    evaluate("(command \"_.color\" \"reddish\")");
    EXPECT_EQ(takePrinted(), "\nA color number or standard color name is required.\n");
    EXPECT_EQ(evaluate("(getvar \"CECOLOR\")"), "\"RGB:10,20,30\"");
}

TEST_F(VariableCommands, OsnapSetsTheSnapsThatHold)
{
    EXPECT_EQ(evaluate("(command \"_.-osnap\" \"_end,_int\") (getvar \"OSMODE\")"), "33");
    EXPECT_EQ(evaluate("(command \"_.osnap\" \"_non\") (getvar \"OSMODE\")"), "0");
    EXPECT_EQ(evaluate("(command \"_.osnap\" \"_mid\" \"_.osnap\" \"\") (getvar \"OSMODE\")"), "0");
    evaluate("(command \"_.osnap\" \"_mid\" \"_.osnap\" \"foo\")");
    EXPECT_EQ(takePrinted(), "\nInvalid object snap mode.\n");
    EXPECT_EQ(evaluate("(getvar \"OSMODE\")"), "2");
}

class LimitsCommand : public CommandTest
{
protected:
    std::string corners() { return evaluate("(list (getvar \"LIMMIN\") (getvar \"LIMMAX\"))"); }
};

TEST_F(LimitsCommand, SetsBothCorners)
{
    evaluate("(command \"_.limits\" \"-5,-6\" '(100 200.5))");
    EXPECT_EQ(corners(), "((-5.0 -6.0) (100.0 200.5))");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    evaluate("(command \"_.u\")");
    EXPECT_EQ(corners(), "((0.0 0.0) (420.0 297.0))");
}

TEST_F(LimitsCommand, EnterKeepsACorner)
{
    evaluate("(command \"_.limits\" \"\")");
    EXPECT_EQ(evaluate("(getvar \"LASTPROMPT\")"), "\"Specify upper right corner <420.0000,297.0000>: \"");
    evaluate("(command \"10,20\" \"_.limits\" \"1,1\" \"\")");
    EXPECT_EQ(corners(), "((1.0 1.0) (10.0 20.0))");
}

TEST_F(LimitsCommand, SwitchesTheCheck)
{
    EXPECT_EQ(evaluate("(command \"_.limits\" \"_on\") (getvar \"LIMCHECK\")"), "1");
    EXPECT_EQ(evaluate("(command \"_.limits\" \"_off\") (getvar \"LIMCHECK\")"), "0");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

} // namespace
