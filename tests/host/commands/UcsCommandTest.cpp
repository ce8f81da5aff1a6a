#include "tests/host/commands/CommandTest.h"

#include "host/drawing/geometry/Matrix.h"

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
}

} // namespace
