// The pictures of dimensions that entmake makes and entmod changes.

#include "host/drawing/Blocks.h"
#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;

// What a linear dimension from 0,0 to 40,30 has beside its kind; and the functions that the tests go by.
constexpr const char *Functions = R"(
  (defun linear (more) (append '((0 . "DIMENSION") (100 . "AcDbEntity") (100 . "AcDbDimension") (10 40.0 50.0 0.0)
    (70 . 0)) more '((100 . "AcDbAlignedDimension") (13 0.0 0.0 0.0) (14 40.0 30.0 0.0)
    (100 . "AcDbRotatedDimension"))))
  (defun value (code e) (cdr (assoc code (entget e))))
  (defun change (e new / data old) (setq data (entget e) old (assoc (car new) data))
    (entmod (if old (subst new old data) (append data (list new)))))
  (defun parts (e type / p l) (setq p (tblobjname "BLOCK" (value 2 e)))
    (while (setq p (entnext p)) (if (= type (value 0 p)) (setq l (cons p l)))) (reverse l))
  (defun shown (e) (value 1 (car (parts e "TEXT"))))
  (defun blocks (/ b n) (setq n 0) (while (setq b (tblnext "BLOCK" (null b))) (setq n (1+ n))) n))";

class DimensionEntities : public CommandTest
{
protected:
    DimensionEntities() { evaluate(Functions); }

    // Numbers with two decimals, so that rounding does not show.
    std::string places(const std::string &expression)
    {
        return evaluate("(mapcar '(lambda (n) (rtos n 2 2)) " + expression + ")");
    }
};

TEST_F(DimensionEntities, AMadeOneHasItsPicture)
{
    EXPECT_NE(evaluate("(entmake (linear nil))"), "nil");
    EXPECT_EQ(textOf(lastGroups(), 2), u"*D1");
    EXPECT_EQ(integerOf(lastGroups(), 70), 32);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 40);
    EXPECT_EQ(textOf(lastGroups(), 3), u"Standard");
    EXPECT_EQ(evaluate("(setq d (entlast)) (mapcar '(lambda (type) (length (parts d type)))"
                       " '(\"LINE\" \"SOLID\" \"TEXT\" \"POINT\"))"),
              "(3 2 1 3)");
    EXPECT_EQ(evaluate("(shown d)"), "\"40.00\"");
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{20, 50 + 0.625 + 1.25, 0}));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DimensionEntities, AMeasurementThatIsGivenIsMeasured)
{
    evaluate("(entmakex (linear '((42 . -1.0))))");
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 40);
}

TEST_F(DimensionEntities, TheTextStandsWhereItIsGiven)
{
    evaluate("(setq d (entmakex (linear '((11 20.0 60.0 0.0)))))");
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{20, 60, 0}));
    EXPECT_EQ(evaluate("(value 11 (car (parts d \"TEXT\")))"), "(20.0 60.0 0.0)");
    evaluate("(change d '(11 10.0 70.0 0.0))");
    EXPECT_EQ(evaluate("(value 11 (car (parts d \"TEXT\")))"), "(10.0 70.0 0.0)");
    evaluate("(change d '(10 40.0 55.0 0.0))");
    EXPECT_EQ(places("(value 11 d)"), "(\"20.00\" \"56.88\" \"0.00\")");
    evaluate("(change d '(70 . 160)) (change d '(11 10.0 70.0 0.0)) (change d '(10 40.0 50.0 0.0))");
    EXPECT_EQ(evaluate("(value 11 d)"), "(10.0 70.0 0.0)");
}

TEST_F(DimensionEntities, ABlockThatIsThereIsKept)
{
    evaluate("(entmake '((0 . \"BLOCK\") (2 . \"mine\") (70 . 0) (10 0.0 0.0 0.0)))"
             "(entmake '((0 . \"LINE\") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0))) (entmake '((0 . \"ENDBLK\")))");
    evaluate("(setq n (blocks)) (entmake (linear '((2 . \"mine\"))))");
    EXPECT_EQ(textOf(lastGroups(), 2), u"mine");
    EXPECT_EQ(evaluate("(= n (blocks))"), "T");
    evaluate("(entmake (linear '((2 . \"*D7\"))))");
    EXPECT_EQ(evaluate("(shown (entlast))"), "\"40.00\"");
}

TEST_F(DimensionEntities, SubclassMarkersMayBeMissing)
{
    EXPECT_NE(evaluate("(entmake '((0 . \"DIMENSION\") (8 . \"0\") (10 0.0 10.0 0.0) (13 0.0 0.0 0.0)"
                       " (14 30.0 40.0 0.0) (70 . 1)))"),
              "nil");
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 50);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DimensionEntities, RadiiAndDiametersHaveTheirSigns)
{
    const std::string radial = "(entmake '((0 . \"DIMENSION\") (10 0.0 0.0 0.0) (15 10.0 0.0 0.0) (40 . 5.0) (70 . ";
    evaluate(radial + "4)))");
    EXPECT_EQ(evaluate("(shown (entlast))"), "\"R10.00\"");
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 10);
    evaluate(radial + "3)))");
    EXPECT_EQ(evaluate("(shown (entlast))"), "\"%%c10.00\"");
    evaluate("(change (entlast) '(15 0.0 24.0 0.0))");
    EXPECT_EQ(evaluate("(shown (entlast))"), "\"%%c24.00\"");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DimensionEntities, AnAngleIsThatBetweenTheLinesInWhichTheArcIs)
{
    evaluate(
        "(setq d (entmakex '((0 . \"DIMENSION\") (100 . \"AcDbEntity\") (100 . \"AcDbDimension\") (10 40.0 40.0 0.0)"
        " (70 . 2) (100 . \"AcDb2LineAngularDimension\") (13 0.0 0.0 0.0) (14 60.0 0.0 0.0) (15 0.0 0.0 0.0)"
        " (16 45.0 20.0 0.0))))");
    EXPECT_EQ(evaluate("(shown d)"), "\"45%%d\"");
    EXPECT_NEAR(realOf(lastGroups(), 42), geometry::FullTurn / 8, 1e-12);
    EXPECT_EQ(evaluate("(mapcar '(lambda (type) (length (parts d type))) '(\"ARC\" \"LINE\" \"SOLID\" \"POINT\"))"),
              "(1 0 2 4)");
    evaluate("(change d '(16 5.0 25.0 0.0))");
    EXPECT_EQ(evaluate("(shown d)"), "\"135%%d\"");
    EXPECT_EQ(evaluate("(length (parts d \"LINE\"))"), "1"); // on the side of the vertex where the line is not
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DimensionEntities, AnAngleAboutAVertex)
{
    evaluate(
        "(setq d (entmakex '((0 . \"DIMENSION\") (100 . \"AcDbEntity\") (100 . \"AcDbDimension\") (10 10.0 10.0 0.0)"
        " (70 . 5) (1 . \"about <>\") (100 . \"AcDb3PointAngularDimension\") (13 20.0 0.0 0.0) (14 0.0 30.0 0.0)"
        " (15 0.0 0.0 0.0))))");
    EXPECT_EQ(evaluate("(shown d)"), "\"about 90%%d\"");
    evaluate("(change d '(10 -10.0 -10.0 0.0))");
    EXPECT_EQ(evaluate("(shown d)"), "\"about 270%%d\"");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DimensionEntities, AnOrdinateShowsHowFarItIsAlongOneAxis)
{
    evaluate("(setq d (entmakex '((0 . \"DIMENSION\") (100 . \"AcDbEntity\") (100 . \"AcDbDimension\") (10 2.0 3.0 0.0)"
             " (70 . 6) (100 . \"AcDbOrdinateDimension\") (13 -10.0 12.0 0.0) (14 -30.0 12.0 0.0))))");
    EXPECT_EQ(evaluate("(list (shown d) (value 42 d))"), "(\"9.00\" 9.0)");
    EXPECT_EQ(evaluate("(length (parts d \"LINE\"))"), "1");
    evaluate("(change d '(70 . 102)) (change d '(14 -15.0 40.0 0.0))");
    EXPECT_EQ(evaluate("(list (shown d) (value 42 d))"), "(\"12.00\" 12.0)");
    EXPECT_EQ(evaluate("(length (parts d \"LINE\"))"), "3"); // with a step
    EXPECT_EQ(drawing::auditOf(database()), "");
}

// Two parallel lines have no angle, and an arc of no radius cannot be drawn.
TEST_F(DimensionEntities, WhatCannotBeDrawnStaysAsItIs)
{
    evaluate("(entmake '((0 . \"DIMENSION\") (100 . \"AcDbEntity\") (100 . \"AcDbDimension\") (10 5.0 9.0 0.0)"
             " (70 . 2) (100 . \"AcDb2LineAngularDimension\") (13 0.0 0.0 0.0) (14 5.0 0.0 0.0) (15 0.0 9.0 0.0)"
             " (16 1.0 2.0 0.0)))");
    EXPECT_EQ(evaluate("(assoc 2 (entget (entlast)))"), "nil");
    EXPECT_EQ(evaluate("(entmod (subst '(14 6.0 0.0 0.0) (assoc 14 (entget (entlast))) (entget (entlast)))) "
                       "(list (assoc 2 (entget (entlast))) (assoc 14 (entget (entlast))))"),
              "(nil (14 6.0 0.0 0.0))");
    evaluate("(entmake '((0 . \"DIMENSION\") (100 . \"AcDbEntity\") (100 . \"AcDbDimension\") (10 0.0 0.0 0.0)"
             " (70 . 5) (100 . \"AcDb3PointAngularDimension\") (13 20.0 0.0 0.0) (14 0.0 30.0 0.0) (15 0.0 0.0 0.0)))");
    EXPECT_EQ(evaluate("(assoc 2 (entget (entlast)))"), "nil");
    EXPECT_EQ(evaluate("(blocks)"), "0");
}

TEST_F(DimensionEntities, AChangedOneShowsWhatItMeasuresAndSays)
{
    evaluate("(setq d (entmakex (linear nil)))");
    evaluate("(change d '(14 75.0 30.0 0.0))");
    EXPECT_EQ(evaluate("(list (shown d) (value 42 d))"), "(\"75.00\" 75.0)");
    evaluate("(change d '(1 . \"<> mm\"))");
    EXPECT_EQ(evaluate("(shown d)"), "\"75.00 mm\"");
    evaluate("(change d (cons 50 (/ pi 2)))");
    EXPECT_EQ(evaluate("(shown d)"), "\"30.00 mm\"");
    evaluate("(entmod (list (cons -1 d) '(1 . \"\")))");
    EXPECT_EQ(evaluate("(shown d)"), "\"30.00\"");
}

TEST_F(DimensionEntities, ItsBlockIsFilledAnewAndNoOtherIsMade)
{
    evaluate("(setq d (entmakex (linear nil)) n (blocks))");
    evaluate("(change d '(14 75.0 30.0 0.0)) (change d '(14 80.0 30.0 0.0))");
    EXPECT_EQ(evaluate("(list (= n (blocks)) (value 2 d) (length (parts d \"TEXT\")))"), "(T \"*D1\" 1)");
}

TEST_F(DimensionEntities, ABlockThatAnotherShowsStaysWhatItIs)
{
    evaluate("(setq d (entmakex (linear nil)) e (entmakex (entget d)))");
    EXPECT_EQ(evaluate("(= (value 2 d) (value 2 e))"), "T");
    evaluate("(change e '(14 75.0 30.0 0.0))");
    EXPECT_EQ(evaluate("(list (shown d) (shown e))"), "(\"40.00\" \"75.00\")");
}

TEST_F(DimensionEntities, ABlockThatAnInsertShowsStaysWhatItIs)
{
    evaluate("(setq d (entmakex (linear nil)) e (entmakex '((0 . \"INSERT\") (2 . \"*D1\") (10 0.0 0.0 0.0))))"
             "(change d '(14 75.0 30.0 0.0))");
    EXPECT_EQ(evaluate("(list (shown d) (shown e))"), "(\"75.00\" \"40.00\")");
}

TEST_F(DimensionEntities, AColourOrALayerLeavesThePicture)
{
    evaluate("(setq d (entmakex (linear nil)) p (parts d \"TEXT\"))");
    evaluate("(change d '(62 . 3)) (change d '(8 . \"dims\"))");
    EXPECT_EQ(evaluate("(equal p (parts d \"TEXT\"))"), "T");
}

TEST_F(DimensionEntities, UndoGivesBackEveryByte)
{
    evaluate("(setq d (entmakex (linear nil)))");
    const auto bytes = [this] {
        const QTemporaryDir folder;
        QString failure;
        const QString path = folder.filePath(QStringLiteral("saved.dxf"));
        EXPECT_TRUE(drawing::saveDrawing(database(), path, drawing::Backup::None, failure));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    };
    const std::string before = bytes();
    evaluate("(command \"_.undo\" \"_mark\") (change d '(14 75.0 30.0 0.0)) (change d '(1 . \"L=<>\"))");
    EXPECT_NE(bytes(), before);
    evaluate("(command \"_.undo\" \"_back\")");
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(evaluate("(shown d)"), "\"40.00\"");
}

TEST_F(DimensionEntities, TheStyleSaysHowItIsDrawn)
{
    evaluate("(entmake '((0 . \"DIMSTYLE\") (2 . \"Big\") (70 . 0) (3 . \"<>m\") (40 . 2.0) (41 . 3.0) (42 . 1.0)"
             " (44 . 1.0) (75 . 1) (140 . 5.0) (144 . 0.5) (147 . 1.0) (271 . 3)))");
    evaluate("(setq d (entmakex (linear '((3 . \"Big\")))) text (car (parts d \"TEXT\")))");
    EXPECT_EQ(evaluate("(list (shown d) (value 40 text) (length (parts d \"LINE\")))"), "(\"20.000m\" 10.0 4)");
    evaluate("(change d '(3 . \"Standard\"))");
    EXPECT_EQ(evaluate("(list (shown d) (value 40 (car (parts d \"TEXT\"))))"), "(\"40.00\" 2.5)");
}

TEST_F(DimensionEntities, ItsOwnValuesGoBeforeThoseOfTheStyle)
{
    const std::string own = "'(-3 (\"ACAD\" (1000 . \"before\") (1000 . \"DSTYLE\") (1002 . \"{\") (1070 . 140)"
                            " (1040 . 7.0) (1070 . 271) (1070 . 1) (1070 . 78) (1070 . 0) (1070 . 3)"
                            " (1000 . \"about <>\") (1002 . \"}\") (1070 . 140) (1040 . 99.0)))";
    evaluate("(setq d (entmakex (append (linear nil) (list " + own + "))))");
    EXPECT_EQ(evaluate("(list (shown d) (value 40 (car (parts d \"TEXT\"))))"), "(\"about 40.0\" 7.0)");
    evaluate("(entmod (list (cons -1 d) '(-3 (\"ACAD\"))))");
    EXPECT_EQ(evaluate("(list (shown d) (value 40 (car (parts d \"TEXT\"))))"), "(\"40.00\" 2.5)");
}

TEST_F(DimensionEntities, ValuesThatNothingCanBeDrawnByAreTakenAsTheStandardOnes)
{
    evaluate("(setq d (entmakex (append (linear nil) (list '(-3 (\"ACAD\" (1000 . \"DSTYLE\") (1002 . \"{\")"
             " (1070 . 40) (1040 . 1e300) (1070 . 271) (1040 . -1e300) (1070 . 140) (1002 . \"}\")))))))");
    EXPECT_EQ(evaluate("(list (shown d) (value 40 (car (parts d \"TEXT\"))))"), "(\"40.0000\" 2.5)");
}

TEST_F(DimensionEntities, WhatTheVariablesHadOtherwiseGoesOnInTheDimension)
{
    evaluate("(setvar \"DIMTXT\" 6.0) (setvar \"DIMDEC\" 3) (setvar \"DIMSCALE\" 2.0)"
             "(command \"_.dimlinear\" '(0 0) '(40 0) '(20 10)) (setq d (entlast))"
             "(setvar \"DIMTXT\" 1.0) (setvar \"DIMDEC\" 0) (change d '(14 45.0 0.0 0.0))");
    EXPECT_EQ(evaluate("(list (shown d) (value 40 (car (parts d \"TEXT\"))))"), "(\"45.000\" 12.0)");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DimensionEntities, OneOfABlockHasItsPicture)
{
    evaluate("(entmake '((0 . \"BLOCK\") (2 . \"part\") (70 . 0) (10 0.0 0.0 0.0))) (entmake (linear nil))"
             "(entmake '((0 . \"ENDBLK\")))");
    EXPECT_EQ(evaluate("(setq d (entnext (tblobjname \"BLOCK\" \"part\"))) (list (value 0 d) (shown d))"),
              "(\"DIMENSION\" \"40.00\")");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DimensionEntities, InAPlaneOfItsOwn)
{
    evaluate("(setq d (entmakex '((0 . \"DIMENSION\") (10 0.0 0.0 10.0) (13 0.0 0.0 0.0) (14 0.0 40.0 0.0) (70 . 1)"
             " (210 1.0 0.0 0.0))))");
    EXPECT_EQ(places("(value 11 d)"), "(\"20.00\" \"11.88\" \"0.00\")");
    EXPECT_EQ(places("(value 11 (last (parts d \"LINE\")))"), "(\"0.00\" \"37.50\" \"10.00\")");
}

TEST_F(DimensionEntities, TheTextIsReadFromTheSideThatItWasDrawnFor)
{
    evaluate("(command \"_.ucs\" \"_z\" 30 \"_.dimlinear\" '(0 0) '(0 40) '(-10 20) \"_.ucs\" \"_w\")"
             "(setq d (entlast)) (defun turn () (rtos (/ (value 50 (car (parts d \"TEXT\"))) pi) 2 3))");
    EXPECT_EQ(evaluate("(turn)"), "\"0.667\"");
    evaluate("(change d '(1 . \"<> mm\"))");
    EXPECT_EQ(evaluate("(list (shown d) (turn))"), "(\"40.00 mm\" \"0.667\")");
}

TEST_F(DimensionEntities, ObliqueExtensionLinesMeetTheLineElsewhere)
{
    evaluate("(setq d (entmakex (linear (list (cons 52 (/ pi 4))))))");
    EXPECT_EQ(places("(list (value 42 d))"), "(\"10.00\")"); // the lower place moves further to the side
}

TEST_F(DimensionEntities, InADrawingOfTheOldestKind)
{
    openEmptyDrawing("AC1009");
    EXPECT_NE(evaluate("(entmake '((0 . \"DIMENSION\") (10 0.0 10.0 0.0) (13 0.0 0.0 0.0) (14 30.0 0.0 0.0)))"), "nil");
    EXPECT_EQ(evaluate("(setq d (entlast)) (shown d)"), "\"30.0000\"");
    evaluate("(change d '(14 31.0 0.0 0.0))");
    EXPECT_EQ(evaluate("(shown d)"), "\"31.0000\"");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

} // namespace
