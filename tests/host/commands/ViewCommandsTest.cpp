#include "tests/host/commands/CommandTest.h"

namespace {

class ViewCommands : public CommandTest
{
protected:
    void SetUp() override { evaluate("(command \"_.zoom\" \"_w\" \"0,0\" \"160,100\")"); }
    // The directions of the display's axes to the right and up, in the user's coordinates, and of the eye.
    std::string axes()
    {
        return evaluate("(mapcar '(lambda (axis) (mapcar '(lambda (c) (atof (rtos (+ c 0.0) 2 6))) (trans axis 2 1 t)))"
                        " '((1 0 0) (0 1 0) (0 0 1)))");
    }
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

TEST_F(ViewCommands, WhatIsNoScaleIsSaidAndAskedForAgain)
{
    const std::string complaint = "\nRequires a distance or numberX.\n";
    evaluate("(command \"_.zoom\" \"_s\" \"wide\" 0 \"-2x\")");
    EXPECT_EQ(takePrinted(), complaint + complaint + complaint);
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 100.0)");
    evaluate("(command \"2x\" \"_.zoom\" \"_c\" \"80,50\" 0 40)");
    EXPECT_EQ(takePrinted(), complaint);
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 40.0)");
    evaluate("(command \"_.zoom\" \"wide\" -1 0.5)");
    EXPECT_EQ(takePrinted(), "\nRequires a distance, numberX, or option keyword.\n"
                             "\nRequires a distance, numberX, or option keyword.\n");
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 80.0)");
}

TEST_F(ViewCommands, PlanLooksStraightDownOnTheCurrentSystem)
{
    evaluate("(command \"_.ucs\" \"_x\" 90) (command \"_.ucs\" \"_z\" 30) (command \"_.plan\" \"\")");
    EXPECT_EQ(axes(), "((1.0 0.0 0.0) (0.0 1.0 0.0) (0.0 0.0 1.0))");
    EXPECT_EQ(evaluate("(mapcar '(lambda (c) (rtos c 2 6)) (getvar \"VIEWDIR\"))"),
              "(\"0.000000\" \"0.000000\" \"1.000000\")");
}

TEST_F(ViewCommands, ThePlanOfATurnedSystemIsTwistedAgainstIt)
{
    evaluate("(command \"_.ucs\" \"_z\" 30) (command \"_.plan\" \"_c\")");
    EXPECT_EQ(evaluate("(rtos (* 180 (/ (getvar \"VIEWTWIST\") pi)) 2 6)"), "\"330.000000\"");
    evaluate("(command \"_.plan\" \"_w\")");
    EXPECT_EQ(evaluate("(getvar \"VIEWTWIST\")"), "0.0");
    EXPECT_EQ(evaluate("(rtos (angle '(0 0) (trans '(1 0) 2 1 t)) 2 6)"), evaluate("(rtos (* pi (/ 330.0 180)) 2 6)"));
}

TEST_F(ViewCommands, PlanShowsAllOfTheDrawingAsItIsSeen)
{
    // A line along the x axis of the system, which is turned by a quarter in the world.
    evaluate("(command \"_.line\" '(0 0) '(0 160) \"\" \"_.line\" '(0 0) '(-50 0) \"\")"
             "(command \"_.ucs\" \"_z\" 90) (command \"_.plan\" \"\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (c) (rtos c 2 6)) (cons (getvar \"VIEWSIZE\") (getvar \"VIEWCTR\")))"),
              "(\"100.000000\" \"80.000000\" \"25.000000\" \"0.000000\")");
    evaluate("(command \"_.plan\" \"_w\")");
    EXPECT_EQ(evaluate("(rtos (getvar \"VIEWSIZE\") 2 6)"), "\"160.000000\"");
}

TEST_F(ViewCommands, ACircleIsSeenWholeFromAnyDirection)
{
    evaluate("(command \"_.circle\" '(0 0) 50) (command \"_.ucs\" \"_z\" 45) (command \"_.plan\" \"\")");
    EXPECT_EQ(evaluate("(rtos (getvar \"VIEWSIZE\") 2 6)"), "\"100.000000\"");
    evaluate("(command \"_.ucs\" \"_x\" 60) (command \"_.plan\" \"\" \"_.zoom\" \"_o\" \"_l\" \"\")");
    EXPECT_EQ(evaluate("(rtos (getvar \"VIEWSIZE\") 2 6)"), "\"62.500000\""); // as wide as 100
}

TEST_F(ViewCommands, PlanOfASystemWithAName)
{
    evaluate("(command \"_.ucs\" \"_x\" 90) (command \"_.ucs\" \"_s\" \"Front\") (command \"_.ucs\" \"_w\")");
    takePrinted();
    evaluate("(command \"_.plan\" \"_u\" \"?\" \"*\" \"front\")");
    EXPECT_EQ(takePrinted(), "\n\"Front\"\n");
    EXPECT_EQ(axes(), "((1.0 0.0 0.0) (0.0 0.0 1.0) (0.0 -1.0 0.0))");
    evaluate("(command \"_.plan\" \"_u\" \"Rear\")");
    EXPECT_EQ(takePrinted(), "\nCannot find UCS \"Rear\".\n");
    EXPECT_EQ(axes(), "((1.0 0.0 0.0) (0.0 0.0 1.0) (0.0 -1.0 0.0))");
    evaluate("(command \"_.plan\" \"_w\")");
    EXPECT_EQ(axes(), "((1.0 0.0 0.0) (0.0 1.0 0.0) (0.0 0.0 1.0))");
}

TEST_F(ViewCommands, PlanTurnsTheViewOfASinglePointToo)
{
    evaluate("(command \"_.point\" '(1 2) \"_.ucs\" \"_x\" 90 \"_.plan\" \"\")");
    EXPECT_EQ(axes(), "((1.0 0.0 0.0) (0.0 1.0 0.0) (0.0 0.0 1.0))");
    EXPECT_EQ(evaluate("(getvar \"VIEWSIZE\")"), "100.0");
}

TEST_F(ViewCommands, ZoomPreviousAlsoTurnsBack)
{
    evaluate("(command \"_.ucs\" \"_x\" 90) (command \"_.plan\" \"\") (command \"_.ucs\" \"_w\")"
             "(command \"_.zoom\" \"_p\")");
    EXPECT_EQ(axes(), "((1.0 0.0 0.0) (0.0 1.0 0.0) (0.0 0.0 1.0))");
    EXPECT_EQ(view(), "((80.0 50.0 0.0) 100.0)");
}

TEST_F(ViewCommands, WindowAndPanAreInTheUsersCoordinates)
{
    evaluate("(command \"_.ucs\" \"_o\" '(1000 0)) (command \"_.zoom\" \"_w\" '(0 0) '(16 10))");
    EXPECT_EQ(view(), "((8.0 5.0 0.0) 10.0)");
    evaluate("(command \"_.pan\" '(0 0) '(1 2)) (command \"_.ucs\" \"_w\")");
    EXPECT_EQ(view(), "((1007.0 3.0 0.0) 10.0)");
}

TEST_F(ViewCommands, TheSizeStaysAPositiveNumber)
{
    evaluate("(command \"_.zoom\" \"1e300x\" \"_.zoom\" \"1e300x\")");
    EXPECT_EQ(evaluate("(> (getvar \"VIEWSIZE\") 0)"), "T");
    evaluate("(setq size (getvar \"VIEWSIZE\")) (command \"_.zoom\" \"2x\")");
    EXPECT_EQ(evaluate("(= (getvar \"VIEWSIZE\") (/ size 2))"), "T");
    for (int i = 0; i < 4; ++i)
        evaluate("(command \"_.zoom\" \"1e-300x\")");
    EXPECT_EQ(evaluate("(< (getvar \"VIEWSIZE\") 1e308)"), "T");
    evaluate("(command \"_.zoom\" \"_c\" '(0 0) 5)");
    EXPECT_EQ(view(), "((0.0 0.0 0.0) 5.0)");
}

TEST_F(ViewCommands, RegenAndRedrawAreThere)
{
    EXPECT_EQ(evaluate("(vl-cmdf \"_.regen\" \"_.regenall\" \"_.redraw\")"), "T");
}

} // namespace
