#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

#include <QTemporaryDir>

#include <cmath>

namespace {

using drawing::placeOf;
using drawing::realOf;
using geometry::Vector;
using testing::ElementsAre;
using testing::HasSubstr;

class AreaCommand : public CommandTest
{
protected:
    double area() { return std::stod(evaluate("(rtos (getvar \"AREA\") 2 12)").substr(1)); }
    double perimeter() { return std::stod(evaluate("(rtos (getvar \"PERIMETER\") 2 12)").substr(1)); }
};

TEST_F(AreaCommand, OfPoints)
{
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.area\" \"0,0\" \"4,0\" \"4,3\" \"\")");
    EXPECT_EQ(area(), 6);
    EXPECT_EQ(perimeter(), 12);
    EXPECT_THAT(takePrinted(), HasSubstr("Area = 6.0000, Perimeter = 12.0000"));
}

TEST_F(AreaCommand, OfACircleAnEllipseAndAPolylineWithArcs)
{
    evaluate("(command \"_.circle\" \"5,5\" 2) (command \"_.area\" \"_o\" (entlast))");
    EXPECT_NEAR(area(), 4 * M_PI, 1e-11);
    EXPECT_NEAR(perimeter(), 4 * M_PI, 1e-11);
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"_a\" \"10,10\" \"_l\" \"0,10\" \"_c\") (command \"_.area\" "
             "\"_o\" (entlast))");
    EXPECT_NEAR(area(), 100 + 12.5 * M_PI, 1e-10);
    EXPECT_NEAR(perimeter(), 30 + 5 * M_PI, 1e-10);
    evaluate(
        "(entmake '((0 . \"ELLIPSE\") (100 . \"AcDbEntity\") (100 . \"AcDbEllipse\") (10 7 7 0) (11 3 0 0) (40 . 0.5) "
        "(41 . 0.0) (42 . 6.283185307179586))) (command \"_.area\" \"_o\" (entlast))");
    EXPECT_NEAR(area(), M_PI * 3 * 1.5, 1e-11);
    EXPECT_NEAR(perimeter(), 14.53267233082153, 1e-9); // summed in another way
}

TEST_F(AreaCommand, WithoutThicknessAndWidth)
{
    add({{0, u"CIRCLE"}, {8, u"0"}, {39, 1.0}, {10, drawing::Point{}}, {40, 1.0}});
    evaluate("(command \"_.area\" \"_o\" (entlast))");
    EXPECT_NEAR(area(), M_PI, 1e-11);
    EXPECT_NEAR(perimeter(), 2 * M_PI, 1e-11);
    evaluate(
        "(command \"_.pline\" \"0,0\" \"_w\" 0.5 0.5 \"10,0\" \"10,10\" \"0,10\" \"_c\" \"_.area\" \"_o\" \"_l\")");
    EXPECT_NEAR(area(), 100, 1e-10);
    EXPECT_NEAR(perimeter(), 40, 1e-10);
}

// The knots make it two parabolas, between (0,0), (2,0) and back: each has an area of 2/3 of 2 by 1.
TEST_F(AreaCommand, OfAClosedSpline)
{
    drawing::GroupList spline{{0, u"SPLINE"},        {100, u"AcDbEntity"},  {8, u"0"},
                              {100, u"AcDbSpline"},  {70, std::int64_t{1}}, {71, std::int64_t{2}},
                              {72, std::int64_t{8}}, {73, std::int64_t{5}}};
    for (const double knot : {0.0, 0.0, 0.0, 1.0, 1.0, 2.0, 2.0, 2.0})
        spline.push_back(drawing::realGroup(40, knot));
    for (const Vector &place : {Vector{0, 0, 0}, {1, 2, 0}, {2, 0, 0}, {1, -2, 0}, {0, 0, 0}})
        spline.push_back(drawing::pointGroup(10, place));
    add(spline);
    evaluate("(command \"_.area\" \"_o\" (entlast))");
    EXPECT_NEAR(area(), 2 * 2.0 / 3 * 2, 1e-11);
    EXPECT_NEAR(perimeter(), 2 * (2 * std::sqrt(1.25) + std::asinh(2.0) / 2), 1e-9);
}

TEST_F(AreaCommand, AddedAndSubtracted)
{
    evaluate("(command \"_.circle\" \"5,5\" 1) (command \"_.area\" \"_a\" \"0,0\" \"10,0\" \"10,10\" \"0,10\" \"\" "
             "\"_s\" \"_o\" (entlast) \"\" \"\")");
    EXPECT_NEAR(area(), 100 - M_PI, 1e-10);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(AreaCommand, ObjectsAreAddedUntilEnter)
{
    evaluate("(command \"_.rectang\" \"0,0\" \"10,10\") (setq r1 (entlast))"
             "(command \"_.rectang\" \"20,0\" \"25,5\") (setq r2 (entlast))"
             "(command \"_.point\" \"0,0\") (setq none (entlast))");
    evaluate("(command \"_.area\" \"_a\" \"_o\" r1 none r2 \"\" \"_s\" \"_o\" r2 r2 \"\" \"\")");
    EXPECT_EQ(takePrinted(), "\nSelected object does not have an area.\n");
    EXPECT_EQ(area(), 75);
    EXPECT_EQ(perimeter(), 20);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(AreaCommand, WhatHasNoAreaIsSaid)
{
    evaluate("(command \"_.point\" \"0,0\") (command \"_.area\" \"_o\" (entlast))");
    EXPECT_EQ(takePrinted(), "\nSelected object does not have an area.\n");
}

class DistanceCommands : public CommandTest
{
};

TEST_F(DistanceCommands, IdTellsAPlaceWhichIsTheLastPointThen)
{
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.id\" \"1,2.5,3\")");
    EXPECT_THAT(takePrinted(), HasSubstr("X = 1.0000     Y = 2.5000     Z = 3.0000"));
    EXPECT_EQ(evaluate("(getvar \"LASTPOINT\")"), "(1.0 2.5 3.0)");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(DistanceCommands, IdWithinAnotherCommandSaysWhereToGoOn)
{
    evaluate("(command \"_.line\" \"0,0\" \"'_id\" \"10,0\" \"@0,5\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{10, 5, 0}));
}

TEST_F(DistanceCommands, DistTellsTheWayBetweenTwoPlaces)
{
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.dist\" \"1,1,0\" \"4,5,-5\")");
    const std::string printed = takePrinted();
    EXPECT_THAT(printed, HasSubstr("\nDistance = 7.0711,  Angle in XY Plane = 53,  Angle from XY Plane = 315"));
    EXPECT_THAT(printed, HasSubstr("\nDelta X = 3.0000,  Delta Y = 4.0000,   Delta Z = -5.0000"));
    EXPECT_EQ(evaluate("(rtos (getvar \"DISTANCE\") 2 8)"), "\"7.07106781\"");
    EXPECT_EQ(evaluate("(getvar \"PERIMETER\")"), "0.0");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(DistanceCommands, DistCountsAnglesFromAngbase)
{
    evaluate("(setvar \"ANGBASE\" (/ pi 2)) (setvar \"CMDECHO\" 1) (command \"_.di\" \"0,0\" \"-5,0\")");
    EXPECT_THAT(takePrinted(), HasSubstr("Angle in XY Plane = 90,"));
}

TEST_F(DistanceCommands, DistAddsUpMultiplePoints)
{
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.dist\" \"0,0\" \"_m\" \"3,0\" \"50,50\" \"_u\" \"3,4\")");
    EXPECT_THAT(takePrinted(), HasSubstr("Distance = 7.0000"));
    evaluate("(command \"\")");
    EXPECT_EQ(evaluate("(getvar \"DISTANCE\")"), "7.0");
    evaluate("(command \"_.dist\" \"0,0\" \"_m\" \"3,0\" \"3,4\" \"_c\")");
    EXPECT_EQ(evaluate("(getvar \"DISTANCE\")"), "12.0");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

class OffsetCommand : public CommandTest
{
};

TEST_F(OffsetCommand, OfAnEllipseIsASplineAtTheDistance)
{
    evaluate("(command \"_.ellipse\" \"_c\" \"0,0\" \"10,0\" 5) (command \"_.offset\" 2 (entlast) \"30,0\" \"\")");
    EXPECT_EQ(types().back(), "SPLINE");
    const drawing::Group first = *drawing::findGroup(lastGroups(), 10);
    EXPECT_NEAR(std::get<drawing::Point>(first.value).x, 12, 1e-9);
}

TEST_F(OffsetCommand, OfALineACircleAndAnArc)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.offset\" 2 (entlast) \"5,-1\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, -2, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{10, -2, 0}));
    evaluate("(command \"_.circle\" \"0,0\" 5) (command \"_.offset\" 2 (entlast) \"0,0\" \"\")");
    EXPECT_EQ(realOf(lastGroups(), 40), 3);
    evaluate("(command \"_.offset\" 1 (entlast) \"9,0\" \"\")");
    EXPECT_EQ(realOf(lastGroups(), 40), 4);
}

TEST_F(OffsetCommand, OfAClosedPolylineMeetsAtItsCorners)
{
    evaluate("(command \"_.rectang\" \"0,0\" \"10,5\") (command \"_.offset\" 1 (entlast) \"5,2\" \"\")");
    evaluate("(command \"_.area\" \"_o\" (entlast))");
    EXPECT_EQ(evaluate("(getvar \"AREA\")"), "24.0");
    evaluate("(command \"_.erase\" \"_l\" \"\") (command \"_.offset\" 1 \"_l\" \"50,2\" \"\") (command \"_.area\" "
             "\"_o\" (entlast))");
    EXPECT_EQ(evaluate("(getvar \"AREA\")"), "84.0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(OffsetCommand, OfAPolylineWithAnArcStaysSmooth)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"_a\" \"10,10\" \"_l\" \"0,10\" \"\") (command \"_.offset\" 1 "
             "(entlast) \"5,20\" \"\")");
    std::vector<double> bulges;
    std::vector<Vector> places;
    for (const drawing::Group &group : lastGroups()) {
        if (group.code == 42)
            bulges.push_back(std::get<double>(group.value));
        if (group.code == 10)
            places.push_back(geometry::vectorOf(std::get<drawing::Point>(group.value)));
    }
    ASSERT_EQ(places.size(), 4u);
    EXPECT_LT(geometry::length(places[0] - Vector{0, -1, 0}), 1e-9);
    EXPECT_LT(geometry::length(places[1] - Vector{10, -1, 0}), 1e-9);
    EXPECT_LT(geometry::length(places[2] - Vector{10, 11, 0}), 1e-9);
    EXPECT_NEAR(bulges[1], 1, 1e-9);
}

TEST_F(OffsetCommand, ThroughAPoint)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.offset\" \"_t\" (entlast) \"3,7\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 7, 0}));
}

TEST_F(OffsetCommand, MultipleGoesOnFromTheCurveBefore)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\") (setq first (entlast))"
             "(command \"_.offset\" 2 first \"_m\" \"5,9\" \"5,9\" \"5,-9\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "LINE", "LINE"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 2, 0}));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    evaluate("(command \"_.offset\" \"_e\" \"_y\" \"_t\" first \"_m\" \"5,9\" \"5,11\" \"_e\" \"_e\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 11, 0}));
    EXPECT_EQ(evaluate("(entget first)"), "nil");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "LINE", "LINE", "LINE"));
}

TEST_F(OffsetCommand, ACircleThatWouldVanishIsSaid)
{
    evaluate("(command \"_.circle\" \"0,0\" 5) (command \"_.offset\" 6 (entlast) \"0,0\" \"\")");
    EXPECT_EQ(takePrinted(), "\nCannot offset that object.\n");
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
}

class StyleCommand : public CommandTest
{
};

TEST_F(StyleCommand, MakesAStyleAndTheCurrentOne)
{
    evaluate("(command \"_.-style\" \"Notes\" \"romans.shx\" 3.5 0.8 15 \"_n\" \"_n\" \"_n\")");
    EXPECT_EQ(evaluate("(getvar \"TEXTSTYLE\")"), "\"Notes\"");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    const auto record = m_document.drawing().tables().find(drawing::known::Style, u"Notes");
    EXPECT_EQ(realOf(database().groups(record), 40), 3.5);
    EXPECT_DOUBLE_EQ(realOf(database().groups(record), 50), 15);
    EXPECT_EQ(drawing::textOf(database().groups(record), 3), u"romans.shx");
    evaluate("(command \"_.text\" \"0,0\" 0 \"a\")"); // the style has a height
    EXPECT_EQ(realOf(lastGroups(), 40), 3.5);
    EXPECT_EQ(realOf(lastGroups(), 41), 0.8);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(StyleCommand, ATrueTypeFontIsNotAskedForVertical)
{
    evaluate("(command \"_.style\" \"Plain\" \"arial.ttf\" 0 1 0 \"_n\" \"_n\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

class FileCommands : public CommandTest
{
protected:
    std::string path(const char *name) { return m_folder.filePath(QString::fromUtf8(name)).toStdString(); }
    QTemporaryDir m_folder;
};

TEST_F(FileCommands, SaveasNamesTheDrawingAndOpenReadsIt)
{
    evaluate("(command \"_.circle\" \"1,2\" 3) (command \"_.saveas\" \"\" \"" + path("one.dwg") + "\")");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("one.dxf"));
    evaluate("(command \"_.erase\" \"_l\" \"\") (command \"_.open\" \"_y\" \"" + path("one.dxf") + "\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
    evaluate("(command \"_.erase\" \"_l\" \"\") (command \"_.qsave\") (command \"_.open\" \"" + path("one.dxf") +
             "\")");
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(FileCommands, SaveasAsksForTheAccuracyOfADxfFile)
{
    evaluate("(command \"_.circle\" \"1,2\" 3 \"_.saveas\" \"_dxf\" \"16\" \"" + path("typed.dxf") + "\")");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("typed.dxf"));
    evaluate("(command \"_.saveas\" \"DXF\" 4 \"" + path("four.dxf") + "\")");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("four.dxf"));
    evaluate("(command \"_.saveas\" \"_dxf\" \"_b\" \"" + path("binary.dxf") + "\")");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("binary.dxf"));
    evaluate("(command \"_.saveas\" \"_dxf\" \"" + path("named.dxf") + "\")");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("named.dxf"));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(takePrinted(), "");
    evaluate("(command \"_.saveas\" \"_dxf\" 17 16 \"" + path("again.dxf") + "\")");
    EXPECT_EQ(takePrinted(), "\nRequires an integer between 0 and 16.\n");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("again.dxf"));
}

TEST_F(FileCommands, SaveasWritesObjectsIntoAnotherFile)
{
    evaluate("(command \"_.circle\" \"1,2\" 3 \"_.saveas\" \"\" \"" + path("whole.dxf") + "\" \"_.point\" \"7,8\")");
    evaluate("(command \"_.saveas\" \"_dxf\" \"_o\" (entlast) \"\" 16 \"" + path("part.dxf") + "\")");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("whole.dxf"));
    EXPECT_EQ(evaluate("(getvar \"DBMOD\")"), "1");
    evaluate("(command \"_.open\" \"_y\" \"" + path("part.dxf") + "\")");
    EXPECT_THAT(types(), ElementsAre("POINT"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{7, 8, 0}));
}

TEST_F(FileCommands, DxfoutAsksForTheAccuracyBehindTheName)
{
    evaluate("(command \"_.circle\" \"1,2\" 3 \"_.saveas\" \"\" \"" + path("own.dxf") + "\" \"_.point\" \"7,8\")");
    evaluate("(command \"_.dxfout\" \"" + path("all.dxf") + "\" 17 \"many\" 6)");
    EXPECT_EQ(takePrinted(), "\nRequires an integer between 0 and 16.\n\nRequires an integer between 0 and 16.\n");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(m_document.drawing().path().toStdString(), path("own.dxf"));
    EXPECT_EQ(evaluate("(getvar \"DBMOD\")"), "1");
    evaluate("(command \"_.dxfout\" \"" + path("part.dxf") + "\" \"_o\" (entlast) \"\" \"\")");
    evaluate("(command \"_.open\" \"_y\" \"" + path("all.dxf") + "\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE", "POINT"));
    evaluate("(command \"_.open\" \"" + path("part.dxf") + "\")");
    EXPECT_THAT(types(), ElementsAre("POINT"));
    EXPECT_EQ(takePrinted(), "");
}

TEST_F(FileCommands, DbmodTellsWhetherTheFileLacksChanges)
{
    EXPECT_EQ(evaluate("(getvar \"DBMOD\")"), "0");
    EXPECT_EQ(evaluate("(command \"_.circle\" \"1,2\" 3) (getvar \"DBMOD\")"), "1");
    EXPECT_EQ(evaluate("(command \"_.saveas\" \"\" \"" + path("one.dxf") + "\") (getvar \"DBMOD\")"), "0");
    EXPECT_EQ(evaluate("(entdel (entlast)) (getvar \"DBMOD\")"), "1");
    EXPECT_EQ(evaluate("(command \"_.save\" \"" + path("two.dxf") + "\") (getvar \"DBMOD\")"), "1"); // not its own
    EXPECT_EQ(evaluate("(command \"_.qsave\") (getvar \"DBMOD\")"), "0");
    EXPECT_EQ(evaluate("(command \"_.circle\" \"1,2\" 3) (command \"_.open\" \"_y\" \"" + path("one.dxf") +
                       "\") (getvar \"DBMOD\")"),
              "0");
}

TEST_F(FileCommands, OpenAsksBeforeChangesAreLost)
{
    evaluate("(command \"_.circle\" \"1,2\" 3 \"_.saveas\" \"\" \"" + path("one.dxf") + "\")");
    evaluate("(command \"_.erase\" \"_l\" \"\" \"_.open\" \"_n\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_THAT(types(), ElementsAre());
    evaluate("(command \"_.open\" \"\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    evaluate("(command \"_.open\" \"_y\" \"" + path("one.dxf") + "\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
    evaluate("(command \"_.open\" \"" + path("one.dxf") + "\")"); // nothing is lost
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(takePrinted(), "");
}

TEST_F(FileCommands, OpenWaitsForTheEndOfAnotherCommand)
{
    evaluate("(command \"_.save\" \"" + path("a.dxf") + "\")");
    for (const std::string name : {"'_.open", "'_.u", "'_undo", "'redo"}) {
        evaluate("(command \"_.line\" \"0,0\" \"1,1\" \"" + name + "\")");
        EXPECT_EQ(takePrinted(), "\n** That command may not be invoked transparently **\n");
        EXPECT_EQ(evaluate("(getvar \"CMDNAMES\")"), "\"LINE\"");
        evaluate("(command \"2,2\" \"\")");
    }
    EXPECT_EQ(evaluate("(sslength (ssget \"X\"))"), "8");
}

TEST_F(FileCommands, SelectionSetsOfTheDrawingBeforeAreEmpty)
{
    evaluate("(command \"_.save\" \"" + path("a.dxf") + "\" \"_.circle\" \"1,2\" 3)");
    evaluate("(setq set (ssget \"X\")) (command \"_.open\" \"_y\" \"" + path("a.dxf") + "\")");
    EXPECT_EQ(evaluate("(list (sslength set) (ssname set 0) (ssnamex set))"), "(0 nil nil)");
    evaluate("(command \"_.point\" \"1,2\") (ssadd (entlast) set) (command \"_.erase\" set \"\")");
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(FileCommands, AFileIsReplacedOnlyWhenConfirmed)
{
    evaluate("(command \"_.save\" \"" + path("a.dxf") + "\") (command \"_.circle\" \"1,2\" 3)");
    m_document.drawing().setPath(QString());
    evaluate("(command \"_.save\" \"" + path("a.dxf") + "\" \"_n\")");
    EXPECT_EQ(takePrinted(), "\nThe drawing was not saved.\n");
    evaluate("(command \"_.save\" \"" + path("a.dxf") + "\" \"_y\") (command \"_.open\" \"" + path("a.dxf") + "\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
}

TEST_F(FileCommands, WhatCannotBeReadOrWrittenIsSaid)
{
    evaluate("(command \"_.circle\" \"1,2\" 3) (command \"_.open\" \"_y\" \"" + path("nothing.dxf") + "\")");
    EXPECT_THAT(takePrinted(), HasSubstr("nothing.dxf"));
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
    evaluate("(command \"_.save\" \"" + path("no/such/folder.dxf") + "\")");
    EXPECT_THAT(takePrinted(), HasSubstr("folder.dxf"));
}

} // namespace
