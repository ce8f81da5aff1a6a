#include "tests/interpreter/core/EvaluateText.h"

TEST(ConversionBuiltins, rtosWritesDistances)
{
    expectAll({
        {"(rtos 17.5 1 4)", "\"1.7500E+01\""},
        {"(rtos 17.5 2 2)", "\"17.50\""},
        {"(rtos 17.5 3 2)", "\"1'-5.50\\\"\""},
        {"(rtos 17.5 4 2)", "\"1'-5 1/2\\\"\""},
        {"(rtos 17.5 5 2)", "\"17 1/2\""},
        {"(rtos 3)", "\"3.0000\""},
        {"(rtos 3 nil 1)", "\"3.0\""},
        {"(rtos 17.5 4)", "\"1'-5 1/2\\\"\""},
        {"(rtos 1.5 6 2)", "error: bad argument value: units mode 6"},
        {"(rtos 1.5 0)", "error: bad argument value: units mode 0"},
        {"(rtos \"a\")", "error: bad argument type: numberp: \"a\""},
        {"(rtos 1.5 2.0)", "error: bad argument type: fixnump: 2.0"},
        {"(rtos 1.5 2 \"2\")", "error: bad argument type: fixnump: \"2\""},
        {"(rtos)", "error: too few arguments"},
        {"(rtos 1 2 3 4)", "error: too many arguments"},
    });
}

TEST(ConversionBuiltins, distofReadsDistances)
{
    expectAll({
        {"(distof \"17.5\" 2)", "17.5"},
        {"(distof \"17.5\")", "17.5"},
        {"(distof \"1'-5 1/2\\\"\" 4)", "17.5"},
        {"(distof \"1'-5.5\\\"\" 4)", "17.5"},
        {"(distof \"17-1/2\" 5)", "17.5"},
        {"(distof \"1'-5.5\\\"\" 2)", "nil"},
        {"(distof \"abc\")", "nil"},
        {"(distof \"1\" 9)", "error: bad argument value: units mode 9"},
        {"(distof 1)", "error: bad argument type: stringp 1"},
    });
}

TEST(ConversionBuiltins, angtosWritesAngles)
{
    expectAll({
        {"(angtos 0.785398 0 4)", "\"45.0000\""},
        {"(angtos -0.785398 0 4)", "\"315.0000\""},
        {"(angtos -0.785398 4)", "\"S 45d E\""},
        {"(angtos 0.785398 2 2)", "\"50.00g\""},
        {"(angtos 1 3 1)", "\"1.0r\""},
        {"(angtos pi)", "\"180\""},
        {"(angtos pi 1 4)", "\"180d0'0\\\"\""},
        {"(angtos 1 5)", "error: bad argument value: units mode 5"},
        {"(angtos nil)", "error: bad argument type: numberp: nil"},
    });
}

TEST(ConversionBuiltins, angtofReadsAngles)
{
    expectAll({
        {"(angtof \"45.0000\")", "0.785398"},
        {"(angtof \"45.0000\" 3)", "1.0177"},
        {"(angtof \"-90\" 0)", "4.71239"},
        {"(angtof \"N 45d E\" 4)", "0.785398"},
        {"(angtof \"up\")", "nil"},
        {"(angtof \"1\" -1)", "error: bad argument value: units mode -1"},
        {"(angtof 45)", "error: bad argument type: stringp 45"},
    });
}

TEST(ConversionBuiltins, followTheUnitVariables)
{
    lisp::Machine machine;
    machine.unitVariables() = {.lunits = 4, .luprec = 3, .aunits = 4, .auprec = 4, .unitmode = 1, .dimzin = 3};
    EXPECT_EQ(evaluateText(machine, "(list (rtos 12.125) (distof \"1'0-1/8\\\"\"))"), "(\"1'0-1/8\\\"\" 12.125)");
    EXPECT_EQ(evaluateText(machine, "(list (angtos 0.785398) (angtof \"N45dW\"))"), "(\"N45d0'0\\\"E\" 2.35619)");
    machine.unitVariables() = {.lunits = 2, .luprec = 4, .dimzin = 8};
    EXPECT_EQ(evaluateText(machine, "(rtos 2.5)"), "\"2.5\"");
}

TEST(ConversionBuiltins, integersAndReals)
{
    expectAll({
        {"(list (itoa 33) (itoa -17) (itoa 2147483647))", "(\"33\" \"-17\" \"2147483647\")"},
        {"(itoa 1.5)", "error: bad argument type: fixnump: 1.5"},
        {"(itoa nil)", "error: bad argument type: fixnump: nil"},
        {"(list (atoi \"97\") (atoi \"3\") (atoi \"3.9\") (atoi \"-5x\") (atoi \"x\") (atoi \"\"))", "(97 3 3 -5 0 0)"},
        {"(atoi 5)", "error: bad argument type: stringp 5"},
        {"(list (atof \"97.1\") (atof \"3\") (atof \".5\") (atof \"1e3\") (atof \"x\"))", "(97.1 3.0 0.5 1000.0 0.0)"},
        {"(atof nil)", "error: bad argument type: stringp nil"},
    });
}

TEST(ConversionBuiltins, cvunitConvertsNumbersAndPoints)
{
    expectAll({
        {"(cvunit 1 \"minute\" \"second\")", "60.0"},
        {"(cvunit 1.0 \"inch\" \"cm\")", "2.54"},
        {"(cvunit '(1.0 2.5) \"ft\" \"in\")", "(12.0 30.0)"},
        {"(rtos (cvunit 1.0 \"acre\" \"sq yard\") 2 6)", "\"4840.000000\""},
        {"(rtos (cvunit 1.0 \"cubic feet\" \"gallon\") 2 6)", "\"7.480519\""},
        {"(rtos (cvunit 212 \"fahrenheit\" \"celsius\") 2 6)", "\"100.000000\""},
        {"(rtos (cvunit 0 \"kelvin\" \"celsius\") 2 2)", "\"-273.15\""},
        {"(rtos (cvunit 36 \"km/hour\" \"m/s\") 2 6)", "\"10.000000\""},
        {"(rtos (cvunit 1 \"lbf/in^2\" \"kPa\") 2 6)", "\"6.894757\""},
        {"(rtos (cvunit 1 \"horsepower\" \"watts\") 2 4)", "\"745.6999\""},
        {"(rtos (cvunit 180 \"degrees\" \"radian\") 2 8)", "\"3.14159265\""},
        {"(cvunit 1 \"Kilometers\" \"METRES\")", "1000.0"},
    });
}

TEST(ConversionBuiltins, cvunitKnowsWhatCannotBeConverted)
{
    expectAll({
        {"(cvunit 1 \"gallon\" \"furlong\")", "nil"},
        {"(cvunit 1 \"nothing\" \"foot\")", "nil"},
        {"(cvunit '(1 2) \"foot\" \"nothing\")", "nil"},
        {"(cvunit 1 \"mm\" \"\")", "nil"},
        {"(cvunit 1 \"mW\" \"MW\")", "1.0e-09"},
        {"(cvunit \"a\" \"foot\" \"inch\")", "error: bad argument type: listp \"a\""},
        {"(cvunit '(\"a\") \"foot\" \"inch\")", "error: bad argument type: numberp: \"a\""},
        {"(cvunit 1 2 \"inch\")", "error: bad argument type: stringp 2"},
    });
}
