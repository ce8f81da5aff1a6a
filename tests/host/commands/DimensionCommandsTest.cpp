#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;

class DimensionCommands : public CommandTest
{
protected:
    // The texts of the last dimension's picture, and its types.
    std::string picture(const std::string &type)
    {
        return evaluate("(setq e (tblobjname \"BLOCK\" (cdr (assoc 2 (entget (entlast))))) l nil)"
                        "(while (setq e (entnext e)) (if (= \"" +
                        type + "\" (cdr (assoc 0 (entget e)))) (setq l (cons (entget e) l)))) (length l)");
    }
};

TEST_F(DimensionCommands, ALinearOneMeasuresAlongTheAxisOnWhoseSideItStands)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,30\" \"20,50\")");
    EXPECT_EQ(textOf(lastGroups(), 0), u"DIMENSION");
    EXPECT_EQ(integerOf(lastGroups(), 70), 32);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 40);
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{40, 50, 0}));
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,30\" \"70,10\")");
    EXPECT_NEAR(realOf(lastGroups(), 42), 30, 1e-12);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 50), 90);
}

TEST_F(DimensionCommands, TheBlockIsThePicture)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,30\" \"20,50\")");
    EXPECT_EQ(evaluate("(substr (cdr (assoc 2 (entget (entlast)))) 1 2)"), "\"*D\"");
    EXPECT_EQ(picture("LINE"), "3");
    EXPECT_EQ(picture("SOLID"), "2");
    EXPECT_EQ(picture("POINT"), "3");
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"40.00\"");
}

TEST_F(DimensionCommands, VariablesChangeThePicture)
{
    evaluate("(setvar \"DIMTSZ\" 2.0) (setvar \"DIMSE1\" 1) (setvar \"DIMDEC\" 3) (setvar \"DIMPOST\" \"<> mm\")");
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"_t\" \"L=<>\" \"20,10\")");
    EXPECT_EQ(picture("SOLID"), "0");
    EXPECT_EQ(picture("LINE"), "4");
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"L=40.000 mm\"");
    EXPECT_EQ(textOf(lastGroups(), 1), u"L=<>");
}

TEST_F(DimensionCommands, TheTextIsTurnedAsItIsTold)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,30\" \"_a\" 30 \"_v\" \"70,10\")");
    EXPECT_NEAR(realOf(lastGroups(), 53), 360 + 30 - 90, 1e-9);
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(rtos (* (/ 180 pi) (cdr (assoc 50 (car l)))) 2 6)"), "\"30.000000\"");
    evaluate("(command \"_.circle\" \"0,0\" 10) (setq a (entlast))"
             "(command \"_.dimradius\" (list a '(10 0 0)) \"_t\" \"<> about\" \"_a\" 45 \"20,0\")");
    EXPECT_NEAR(realOf(lastGroups(), 53), 45, 1e-9);
    EXPECT_EQ(textOf(lastGroups(), 1), u"<> about");
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"R10.00 about\"");
    EXPECT_EQ(evaluate("(rtos (* (/ 180 pi) (cdr (assoc 50 (car l)))) 2 6)"), "\"45.000000\"");
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,30\" \"20,50\")");
    EXPECT_EQ(evaluate("(assoc 53 (entget (entlast)))"), "nil");
}

TEST_F(DimensionCommands, Dim1AsksForTheTextAtTheEnd)
{
    evaluate("(command \"_.dim1\" \"_hor\" \"0,0\" \"40,30\" \"20,50\" \"\")");
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 40);
    evaluate("(command \"_.dim1\" \"_ver\" \"0,0\" \"40,30\" \"70,10\" \"tall\")");
    EXPECT_NEAR(realOf(lastGroups(), 42), 30, 1e-12);
    EXPECT_EQ(textOf(lastGroups(), 1), u"tall");
    evaluate("(command \"_.dim1\" \"_ali\" \"0,0\" \"40,30\" \"20,50\" \"\")");
    EXPECT_NEAR(realOf(lastGroups(), 42), 50, 1e-12);
    EXPECT_EQ(integerOf(lastGroups(), 70), 33);
}

TEST_F(DimensionCommands, DimGoesOnUntilExit)
{
    evaluate("(command \"_.dim\" \"_hor\" \"0,0\" \"40,30\" \"20,50\" \"\" \"_ver\" \"0,0\" \"40,30\" \"70,10\" \"\" "
             "\"_e\")");
    EXPECT_EQ(types().size(), 2u);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(DimensionCommands, AnObjectGivesItsEnds)
{
    evaluate("(command \"_.line\" \"5,5\" \"25,5\" \"\") (setq a (entlast))");
    evaluate("(command \"_.dimlinear\" \"\" (list a '(10 5 0)) \"10,15\")");
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 20);
    EXPECT_EQ(placeOf(lastGroups(), 13), (Vector{5, 5, 0}));
}

TEST_F(DimensionCommands, RadiusAndDiameter)
{
    evaluate(
        "(command \"_.circle\" \"0,0\" 10) (setq a (entlast)) (command \"_.dimradius\" (list a '(10 0 0)) \"20,0\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 36);
    EXPECT_EQ(placeOf(lastGroups(), 15), (Vector{10, 0, 0}));
    picture("TEXT");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"R10.00\"");
    evaluate("(command \"_.dimdiameter\" (list a '(10 0 0)) \"20,0\")");
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 42), 20);
}

TEST_F(DimensionCommands, ScaledOnesShowWhatTheyMeasureThen)
{
    const auto shown = [&](const std::string &draw) {
        evaluate(draw + "(command \"_.scale\" (entlast) \"\" \"0,0\" 1.5)");
        picture("TEXT");
        return evaluate("(cdr (assoc 1 (car l)))");
    };
    evaluate("(command \"_.circle\" \"0,0\" 10) (setq a (entlast))");
    EXPECT_EQ(shown("(command \"_.dimlinear\" \"0,0\" \"40,30\" \"20,50\")"), "\"60.00\"");
    EXPECT_EQ(shown("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"_t\" \"2 x <> typ\" \"20,10\")"), "\"2 x 60.00 typ\"");
    EXPECT_EQ(shown("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"_t\" \"40.00\" \"20,10\")"), "\"40.00\"");
    EXPECT_EQ(shown("(command \"_.dimradius\" (list a '(10 0 0)) \"20,0\")"), "\"R15.00\"");
    EXPECT_EQ(shown("(command \"_.dimdiameter\" (list a '(10 0 0)) \"_t\" \"hole <>\" \"20,0\")"), "\"hole %%c30.00\"");
}

TEST_F(DimensionCommands, AScaledCopyShowsItsOwnMeasurement)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,10\") (setq a (entlast))"
             "(command \"_.scale\" a \"\" \"0,0\" \"_c\" 2)");
    picture("TEXT");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"80.00\"");
    evaluate("(command \"_.erase\" (entlast) \"\")");
    picture("TEXT");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"40.00\"");
}

TEST_F(DimensionCommands, TheStyleSaysHowAMeasurementIsWrittenWhereTheVariablesDoNot)
{
    evaluate("(setvar \"DIMDEC\" 3) (command \"_.-dimstyle\" \"_save\" \"fine\")"
             "(command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,10\") (setvar \"DIMDEC\" 1)"
             "(command \"_.scale\" (entlast) \"\" \"0,0\" 2)");
    picture("TEXT");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"80.000\"");
}

TEST_F(DimensionCommands, TheyShowTheSizeThatTheirExplodedBlockHad)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,10\")"
             "(command \"_.-block\" \"part\" \"0,0\" (entlast) \"\")"
             "(command \"_.-insert\" \"part\" \"0,0\" 3 3 0) (command \"_.explode\" (entlast))");
    EXPECT_EQ(textOf(lastGroups(), 0), u"DIMENSION");
    picture("TEXT");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (car l)))"), "\"120.00\"");
}

TEST_F(DimensionCommands, MovedOnesTakeTheirPictureAlongAndCopiesHaveTheirOwn)
{
    evaluate("(command \"_.dimlinear\" \"0,0\" \"40,0\" \"20,10\") (setq a (entlast))"
             "(command \"_.copy\" a \"\" \"0,0\" \"100,0\") (setq b (entlast))");
    EXPECT_EQ(evaluate("(= (cdr (assoc 2 (entget a))) (cdr (assoc 2 (entget b))))"), "nil");
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(car (cdr (assoc 11 (car l))))"), "120.0");
    evaluate("(command \"_.move\" a \"\" \"0,0\" \"0,50\")");
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(car (cdr (assoc 11 (car l))))"), "120.0");
    evaluate("(entdel b)");
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(> (cadr (cdr (assoc 11 (car l)))) 60)"), "T");
    evaluate("(command \"_.u\")");
    EXPECT_EQ(picture("TEXT"), "1");
    EXPECT_EQ(evaluate("(< (cadr (cdr (assoc 11 (car l)))) 20)"), "T");
}

} // namespace
