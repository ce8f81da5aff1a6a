#include "tests/host/commands/CommandTest.h"

#include "host/drawing/HeaderVariables.h"
#include "host/drawing/geometry/Matrix.h"
#include "tests/host/drawing/Audit.h"

#include <QTemporaryDir>

namespace {

using drawing::placeOf;
using drawing::realOf;
using geometry::Vector;

class UcsCommand : public CommandTest
{
protected:
    std::string system() { return evaluate("(list (getvar \"UCSORG\") (getvar \"UCSXDIR\") (getvar \"UCSYDIR\"))"); }
    static constexpr const char *World = "((0.0 0.0 0.0) (1.0 0.0 0.0) (0.0 1.0 0.0))";
};

TEST_F(UcsCommand, OriginMovesIt)
{
    evaluate("(command \"_.ucs\" \"_o\" '(10 20 30))");
    EXPECT_EQ(system(), "((10.0 20.0 30.0) (1.0 0.0 0.0) (0.0 1.0 0.0))");
    EXPECT_EQ(evaluate("(getvar \"WORLDUCS\")"), "0");
    evaluate("(command \"_.point\" \"1,2\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{11, 22, 30}));
    evaluate("(command \"_.ucs\" \"_w\")");
    EXPECT_EQ(system(), World);
    EXPECT_EQ(evaluate("(getvar \"WORLDUCS\")"), "1");
}

TEST_F(UcsCommand, ThreePointsAndPrevious)
{
    evaluate("(command \"_.ucs\" \"_3\" '(0 0 0) '(0 5 0) '(-5 0 0))");
    EXPECT_EQ(system(), "((0.0 0.0 0.0) (0.0 1.0 0.0) (-1.0 0.0 0.0))");
    evaluate("(command \"_.ucs\" \"_p\")");
    EXPECT_EQ(system(), World);
}

TEST_F(UcsCommand, APointAloneOrWithAxes)
{
    evaluate("(command \"_.ucs\" '(1 2 3) \"\")");
    EXPECT_EQ(system(), "((1.0 2.0 3.0) (1.0 0.0 0.0) (0.0 1.0 0.0))");
}

TEST_F(UcsCommand, WhatIsDrawnOnATiltedPlaneHasItsExtrusion)
{
    evaluate("(command \"_.ucs\" \"_x\" 90) (command \"_.circle\" \"1,2\" 3)");
    const Vector extrusion = drawing::extrusionOf(lastGroups());
    EXPECT_LT(geometry::length(extrusion - Vector{0, -1, 0}), 1e-12);
    const auto toWorld = geometry::Matrix::ofExtrusion(extrusion);
    EXPECT_LT(geometry::length(toWorld.place(placeOf(lastGroups(), 10)) - Vector{1, 0, 2}), 1e-12);
}

TEST_F(UcsCommand, SaveRestoreAndDelete)
{
    evaluate("(command \"_.ucs\" \"_o\" '(1 2 3)) (command \"_.ucs\" \"_s\" \"Roof\") (command \"_.ucs\" \"_w\")"
             "(command \"_.ucs\" \"_r\" \"roof\")");
    EXPECT_EQ(evaluate("(getvar \"UCSNAME\")"), "\"Roof\"");
    EXPECT_EQ(system(), "((1.0 2.0 3.0) (1.0 0.0 0.0) (0.0 1.0 0.0))");
    evaluate("(command \"_.ucs\" \"_d\" \"Roof\") (command \"_.ucs\" \"_r\" \"Roof\")");
    EXPECT_EQ(takePrinted(), "\nCannot find UCS \"Roof\".\n");
}

TEST_F(UcsCommand, AnObjectsOwn)
{
    evaluate("(command \"_.line\" \"5,5\" \"5,9\" \"\") (command \"_.ucs\" \"_ob\" (entlast))");
    EXPECT_EQ(system(), "((5.0 5.0 0.0) (0.0 1.0 0.0) (-1.0 0.0 0.0))");
    evaluate("(command \"_.ucs\" \"_w\") (command \"_.ucs\" \"_e\" (entlast))");
    EXPECT_EQ(system(), "((5.0 5.0 0.0) (0.0 1.0 0.0) (-1.0 0.0 0.0))");
}

TEST_F(UcsCommand, WhatIsSeenStays)
{
    evaluate(
        "(command \"_.zoom\" \"_c\" '(10 20) 30) (command \"_.ucs\" \"_o\" '(10 0)) (command \"_.ucs\" \"_z\" 90)");
    EXPECT_EQ(evaluate("(mapcar '(lambda (c) (rtos c 2 6)) (getvar \"VIEWCTR\"))"),
              "(\"20.000000\" \"0.000000\" \"0.000000\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (c) (rtos c 2 6)) (trans '(1 0 0) 2 0 t))"),
              "(\"1.000000\" \"0.000000\" \"0.000000\")");
    evaluate("(command \"_.ucs\" \"_w\")");
    EXPECT_EQ(evaluate("(mapcar '(lambda (c) (rtos c 2 6)) (getvar \"VIEWCTR\"))"),
              "(\"10.000000\" \"20.000000\" \"0.000000\")");
}

TEST_F(UcsCommand, WithUcsfollowItsPlanIsSeen)
{
    evaluate("(setvar \"UCSFOLLOW\" 1) (command \"_.ucs\" \"_x\" 90)");
    EXPECT_EQ(evaluate("(mapcar '(lambda (c) (rtos c 2 6)) (trans '(0 1 0) 2 0 t))"),
              "(\"0.000000\" \"0.000000\" \"1.000000\")");
}

TEST_F(UcsCommand, UndoBringsTheOneBeforeBackAndNoOther)
{
    evaluate("(command \"_.ucs\" \"_o\" '(10 20)) (command \"_.line\" '(0 0) '(1 0) \"\") (command \"_.u\")");
    EXPECT_EQ(system(), "((10.0 20.0 0.0) (1.0 0.0 0.0) (0.0 1.0 0.0))");
    EXPECT_EQ(evaluate("(getvar \"WORLDUCS\")"), "0");
    evaluate("(command \"_.zoom\" \"_c\" '(0 0) 5) (command \"_.u\")");
    EXPECT_EQ(system(), World);
    EXPECT_EQ(evaluate("(getvar \"WORLDUCS\")"), "1");
    EXPECT_EQ(evaluate("(getvar \"VIEWCTR\")"), "(10.0 20.0 0.0)");
}

TEST_F(UcsCommand, ASavedDrawingHasIt)
{
    const QTemporaryDir folder;
    const std::string path = '"' + folder.filePath(QStringLiteral("a.dxf")).toStdString() + '"';
    evaluate("(command \"_.ucs\" \"_o\" '(1 2 3)) (command \"_.ucs\" \"_s\" \"Roof\") (command \"_.saveas\" \"\" " +
             path + ") (command \"_.ucs\" \"_w\") (command \"_.open\" \"_y\" " + path + ")");
    EXPECT_EQ(system(), "((1.0 2.0 3.0) (1.0 0.0 0.0) (0.0 1.0 0.0))");
    EXPECT_EQ(evaluate("(list (getvar \"WORLDUCS\") (getvar \"UCSNAME\"))"), "(0 \"Roof\")");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(UcsCommand, ThatOfALayoutIsNotTheModelsInTheDrawing)
{
    const auto origin = [this](std::string_view name) {
        return geometry::vectorOf(std::get<drawing::Point>(drawing::variable(database(), name)->value));
    };
    evaluate(
        "(command \"_.ucs\" \"_o\" '(1 2)) (setvar \"TILEMODE\" 0) (command \"_.ucs\" \"_w\" \"_.ucs\" \"_o\" '(5 5))");
    EXPECT_EQ(origin("$UCSORG"), (Vector{1, 2, 0}));
    EXPECT_EQ(origin("$PUCSORG"), (Vector{5, 5, 0}));
    evaluate("(command \"_.line\" '(0 0) '(1 0) \"\" \"_.u\")"); // the line, and nothing else
    EXPECT_EQ(evaluate("(getvar \"UCSORG\")"), "(5.0 5.0 0.0)");
    evaluate("(command \"_.u\")");
    EXPECT_EQ(evaluate("(getvar \"UCSORG\")"), "(0.0 0.0 0.0)");
    EXPECT_EQ(origin("$UCSORG"), (Vector{1, 2, 0}));
}

TEST_F(UcsCommand, ModelAndPaperHaveOneEach)
{
    const auto origin = [this] { return evaluate("(getvar \"UCSORG\")"); };
    evaluate("(command \"_.ucs\" \"_o\" '(1 2)) (setvar \"CTAB\" \"Layout1\")");
    EXPECT_EQ(origin(), "(0.0 0.0 0.0)");
    EXPECT_EQ(evaluate("(getvar \"WORLDUCS\")"), "1");
    evaluate("(command \"_.ucs\" \"_o\" '(5 5)) (setvar \"CTAB\" \"Model\")");
    EXPECT_EQ(origin(), "(1.0 2.0 0.0)");
    evaluate("(command \"_.point\" '(0 0))");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (entlast))))"), "(1.0 2.0 0.0)");
    const QTemporaryDir folder;
    const std::string path = '"' + folder.filePath(QStringLiteral("a.dxf")).toStdString() + '"';
    evaluate("(setvar \"CTAB\" \"Layout1\") (command \"_.saveas\" \"\" " + path +
             ") (command \"_.ucs\" \"_w\")"
             "(command \"_.open\" \"_y\" " +
             path + ")");
    EXPECT_EQ(origin(), "(5.0 5.0 0.0)");
    evaluate("(setvar \"CTAB\" \"Model\")");
    EXPECT_EQ(origin(), "(1.0 2.0 0.0)");
}

TEST_F(UcsCommand, TheViewsOwnKeepsTheOrigin)
{
    evaluate("(command \"_.ucs\" \"_z\" 90) (command \"_.plan\" \"\") (command \"_.ucs\" \"_w\")"
             "(command \"_.ucs\" \"_o\" '(1 2 3)) (command \"_.ucs\" \"_v\")");
    EXPECT_EQ(evaluate("(getvar \"UCSORG\")"), "(1.0 2.0 3.0)");
    EXPECT_EQ(evaluate("(mapcar '(lambda (c) (rtos c 2 6)) (getvar \"UCSXDIR\"))"),
              "(\"0.000000\" \"1.000000\" \"0.000000\")");
}

} // namespace
