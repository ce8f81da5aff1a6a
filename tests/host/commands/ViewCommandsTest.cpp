#include "tests/host/commands/CommandTest.h"

namespace {

class ViewCommands : public CommandTest
{
protected:
    void SetUp() override { evaluate("(command \"_.zoom\" \"_w\" \"0,0\" \"160,100\")"); }
    std::string view() { return evaluate("(list (getvar \"VIEWCTR\") (getvar \"VIEWSIZE\"))"); }
};

TEST_F(ViewCommands, AWindowIsSeenWhole)
{
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 100.0)"); // the screen has these proportions
    evaluate("(command \"_.zoom\" '(0 0) '(320 10))");
    EXPECT_EQ(view(), "((160.0 5.0 0.0) 200.0)");
}

TEST_F(ViewCommands, ScaleCenterAndPrevious)
{
    evaluate("(command \"_.zoom\" \"2x\")");
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 50.0)");
    evaluate("(command \"_.zoom\" \"_s\" \"0.5x\")");
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 100.0)");
    evaluate("(command \"_.zoom\" \"_c\" \"1,2\" 30)");
    EXPECT_EQ(view(), "((1.0 2.0 0.0) 30.0)");
    evaluate("(command \"_.zoom\" \"_c\" \"1,2\" \"3x\")");
    EXPECT_EQ(view(), "((1.0 2.0 0.0) 10.0)");
    evaluate("(command \"_.zoom\" \"_p\")");
    EXPECT_EQ(view(), "((1.0 2.0 0.0) 30.0)");
}

TEST_F(ViewCommands, ExtentsAndObject)
{
    evaluate("(command \"_.line\" \"0,0\" \"16,10\" \"\" \"_.circle\" \"100,100\" 50 \"_.zoom\" \"_e\")");
    EXPECT_EQ(view(), "((75.0 75.0 0.0) 150.0)");
    EXPECT_EQ(evaluate("(getvar \"EXTMAX\")"), "(150.0 150.0 0.0)");
    evaluate("(command \"_.zoom\" \"_o\" \"_l\" \"\")");
    EXPECT_EQ(view(), "((100.0 100.0 0.0) 100.0)");
}

TEST_F(ViewCommands, PanMovesTheView)
{
    evaluate("(command \"_.-pan\" \"0,0\" \"10,5\")");
    EXPECT_EQ(view(), "((70.0 45.0 0.0) 100.0)");
}

TEST_F(ViewCommands, WhatIsNoScaleIsSaid)
{
    evaluate("(command \"_.zoom\" \"_s\" \"wide\")");
    EXPECT_EQ(takePrinted(), "\nRequires a distance, numberX, or option keyword.\n");
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 100.0)");
}

TEST_F(ViewCommands, RegenAndRedrawAreThere)
{
    EXPECT_EQ(evaluate("(vl-cmdf \"_.regen\" \"_.regenall\" \"_.redraw\")"), "T");
}

} // namespace
