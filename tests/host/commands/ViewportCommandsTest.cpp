#include "tests/host/commands/CommandTest.h"

namespace {

class ViewportCommands : public CommandTest
{
protected:
    void SetUp() override { evaluate("(command \"_.rectang\" '(100 100) '(300 200)) (setvar \"TILEMODE\" 0)"); }
    std::string group(int code) { return evaluate("(cdr (assoc " + std::to_string(code) + " (entget (entlast))))"); }
};

TEST_F(ViewportCommands, AWindowShowsAllOfTheModel)
{
    evaluate("(command \"_.mview\" '(10 10) '(110 110))");
    EXPECT_EQ(group(0), "\"VIEWPORT\"");
    EXPECT_EQ(group(10), "(60.0 60.0 0.0)");
    EXPECT_EQ(group(12), "(200.0 150.0 0.0)");
    EXPECT_EQ(group(45), "200.0"); // as wide as the model, and square
    EXPECT_EQ(group(69), "2");
    evaluate("(command \"_.mspace\")");
    EXPECT_EQ(evaluate("(getvar \"CVPORT\")"), "2");
}

TEST_F(ViewportCommands, FitFillsThePaper)
{
    evaluate("(command \"_.-vports\" \"\")");
    EXPECT_EQ(group(40), "405.0");
    EXPECT_EQ(group(41), "257.0");
}

TEST_F(ViewportCommands, WhatIsFrozenInAViewportAloneIsNotSelectedThroughIt)
{
    evaluate("(setvar \"TILEMODE\" 1) (command \"_.-layer\" \"_n\" \"COLD\" \"_n\" \"ICY\" \"\")");
    add({{0, u"POINT"}, {8, u"COLD"}, {10, drawing::Point{150, 150, 0}}});
    add({{0, u"POINT"}, {8, u"ICY"}, {10, drawing::Point{250, 150, 0}}});
    evaluate("(setvar \"TILEMODE\" 0) (command \"_.mview\" '(10 10) '(110 110))");
    const std::string all = "(sslength (ssget \"_C\" '(90 90) '(310 210)))",
                      cold = "(ssget \"_C\" '(149 149) '(151 151))";
    evaluate("(setq view (entlast)) (command \"_.mspace\")");
    EXPECT_EQ(evaluate(all), "3");
    evaluate("(entmod (append (entget view) (list (cons 331 (tblobjname \"LAYER\" \"COLD\"))"
             "                                    (cons 341 (tblobjname \"LAYER\" \"ICY\")))))");
    EXPECT_EQ(evaluate(all), "1");
    EXPECT_EQ(evaluate("(sslength (ssget \"_A\"))"), "1");
    EXPECT_EQ(evaluate(cold), "nil");
    EXPECT_EQ(evaluate("(progn (command \"_.select\" \"_all\" \"\") (sslength (ssget \"_P\")))"), "1");
    evaluate("(command \"_.erase\" \"_c\" '(149 149) '(251 151) \"\")");
    evaluate("(setvar \"TILEMODE\" 1)");
    EXPECT_EQ(evaluate(all), "3"); // elsewhere they are seen
}

TEST_F(ViewportCommands, SwitchesOffAndLocks)
{
    evaluate("(command \"_.mview\" '(10 10) '(110 110) \"_.mview\" \"_off\" \"_l\" \"\")");
    EXPECT_EQ(evaluate("(= 131072 (logand 131072 (cdr (assoc 90 (entget (entlast))))))"), "T");
    evaluate("(command \"_.mview\" \"_on\" \"_l\" \"\" \"_.mview\" \"_l\" \"_on\" \"_l\" \"\")");
    EXPECT_EQ(evaluate("(logand 147456 (cdr (assoc 90 (entget (entlast)))))"), "16384");
}

TEST_F(ViewportCommands, WhereItMakesNoSenseItSaysSo)
{
    evaluate("(command \"_.mview\" '(10 10) '(10 110))");
    EXPECT_EQ(takePrinted(), "\nThe viewport has no size.\n");
    evaluate("(command \"_.mview\" '(10 10) '(20 110) \"_.mspace\" \"_.mview\")");
    EXPECT_EQ(takePrinted(), "\n** Command only valid in Paper space **\n");
    evaluate("(setvar \"TILEMODE\" 1) (command \"_.-vports\" \"_si\") (command \"_.-vports\" \"2\" \"_v\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

} // namespace
