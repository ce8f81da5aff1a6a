#include "tests/host/commands/CommandTest.h"

#include "host/drawing/HeaderVariables.h"

namespace {

using testing::HasSubstr;

using DimensionStyleCommand = CommandTest;

TEST_F(DimensionStyleCommand, SavesAndRestoresTheVariables)
{
    evaluate("(setvar \"DIMASZ\" 7.5) (setvar \"DIMTAD\" 2) (setvar \"DIMPOST\" \"<>mm\")");
    evaluate("(command \"_.-dimstyle\" \"_s\" \"Big\")");
    EXPECT_EQ(evaluate("(getvar \"DIMSTYLE\")"), "\"Big\"");
    EXPECT_EQ(evaluate("(cdr (assoc 41 (tblsearch \"DIMSTYLE\" \"big\")))"), "7.5");
    evaluate("(setvar \"DIMASZ\" 1.0) (setvar \"DIMTAD\" 0) (setvar \"DIMPOST\" \"\")");
    evaluate("(command \"_.-dimstyle\" \"_s\" \"Small\" \"_.-dimstyle\" \"_r\" \"big\")");
    EXPECT_EQ(evaluate("(list (getvar \"DIMASZ\") (getvar \"DIMTAD\") (getvar \"DIMPOST\") (getvar \"DIMSTYLE\"))"),
              "(7.5 2 \"<>mm\" \"Big\")");
    EXPECT_EQ(std::get<std::u16string>(drawing::variable(database(), "$DIMSTYLE")->value), u"Big");
}

TEST_F(DimensionStyleCommand, WhatAStyleLeavesOutHasItsStandardValue)
{
    evaluate("(entmake '((0 . \"DIMSTYLE\") (2 . \"Bare\") (70 . 0)))");
    evaluate("(setvar \"DIMASZ\" 7.5) (setvar \"DIMTIH\" 0) (command \"_.dimstyle\" \"_r\" \"Bare\")");
    EXPECT_EQ(evaluate("(list (getvar \"DIMASZ\") (getvar \"DIMTIH\") (getvar \"DIMSCALE\"))"), "(0.18 1 1.0)");
}

TEST_F(DimensionStyleCommand, TextStylesAndArrowsGoByTheirNames)
{
    evaluate("(command \"_.-style\" \"Thin\") (while (> (getvar \"CMDACTIVE\") 0) (command \"\"))");
    evaluate("(command \"_.circle\" '(0 0) 1 \"_.-block\" \"Mark\" '(0 0) \"_l\" \"\")");
    evaluate("(setvar \"DIMTXSTY\" \"Thin\") (setvar \"DIMBLK\" \"Mark\") (command \"_.-dimstyle\" \"_s\" \"A\")");
    evaluate("(setvar \"DIMTXSTY\" \"Standard\") (setvar \"DIMBLK\" \"\") (command \"_.-dimstyle\" \"_s\" \"B\")");
    evaluate("(command \"_.-dimstyle\" \"_r\" \"A\")");
    EXPECT_EQ(evaluate("(list (getvar \"DIMTXSTY\") (getvar \"DIMBLK\"))"), "(\"Thin\" \"Mark\")");
    evaluate("(command \"_.-dimstyle\" \"_r\" \"B\")");
    EXPECT_EQ(evaluate("(list (getvar \"DIMTXSTY\") (getvar \"DIMBLK\"))"), "(\"Standard\" \"\")");
}

TEST_F(DimensionStyleCommand, ADimensionNamesItsStyle)
{
    evaluate("(command \"_.-dimstyle\" \"_s\" \"A\" \"_.dimlinear\" '(0 0) '(10 0) '(5 5)) (setq d (entlast))");
    evaluate("(command \"_.-dimstyle\" \"_s\" \"B\" \"_.-dimstyle\" \"_r\" \"\" d)");
    EXPECT_EQ(evaluate("(getvar \"DIMSTYLE\")"), "\"A\"");
    evaluate("(command \"_.-dimstyle\" \"_r\" \"B\" \"_.-dimstyle\" \"_a\" d \"\")");
    EXPECT_EQ(evaluate("(cdr (assoc 3 (entget d)))"), "\"B\"");
}

TEST_F(DimensionStyleCommand, AppliedVariablesChangeThePicture)
{
    evaluate("(defun height (/ e) (setq e (tblobjname \"BLOCK\" (cdr (assoc 2 (entget d)))))"
             " (while (/= \"TEXT\" (cdr (assoc 0 (entget (setq e (entnext e)))))))  (cdr (assoc 40 (entget e))))"
             "(setvar \"DIMTXT\" 3.0) (command \"_.dimlinear\" '(0 0) '(10 0) '(5 5)) (setq d (entlast))");
    EXPECT_EQ(evaluate("(height)"), "3.0");
    evaluate("(setvar \"DIMTXT\" 7.0) (command \"_.-dimstyle\" \"_s\" \"B\" \"_.-dimstyle\" \"_a\" d \"\")");
    EXPECT_EQ(evaluate("(height)"), "7.0");
    EXPECT_EQ(evaluate("(assoc -3 (entget d '(\"ACAD\")))"), "nil");
}

TEST_F(DimensionStyleCommand, ANameInUseIsAskedFor)
{
    evaluate("(command \"_.-dimstyle\" \"_s\" \"A\") (setvar \"DIMASZ\" 9.0)");
    evaluate("(command \"_.-dimstyle\" \"_s\" \"A\" \"_n\")");
    EXPECT_NE(evaluate("(cdr (assoc 41 (tblsearch \"DIMSTYLE\" \"A\")))"), "9.0");
    evaluate("(command \"_.-dimstyle\" \"_s\" \"A\" \"_y\")");
    EXPECT_EQ(evaluate("(cdr (assoc 41 (tblsearch \"DIMSTYLE\" \"A\")))"), "9.0");
}

TEST_F(DimensionStyleCommand, ListsAndComplains)
{
    evaluate("(command \"_.-dimstyle\" \"_?\" \"S*\")");
    EXPECT_EQ(takePrinted(), "\nNamed dimension styles:\nStandard\n");
    evaluate("(command \"_.-dimstyle\" \"_v\" \"Standard\")");
    EXPECT_THAT(takePrinted(), HasSubstr("\nDIMASZ  2.5\n"));
    evaluate("(command \"_.-dimstyle\" \"_st\")");
    EXPECT_THAT(takePrinted(), HasSubstr("\nDIMSCALE  1\n"));
    evaluate("(command \"_.-dimstyle\" \"_r\" \"none\")");
    EXPECT_EQ(takePrinted(), "\nUnknown dimension style \"none\".\n");
    evaluate("(command \"_.-dimstyle\" \"_s\" \"a|b\")");
    EXPECT_EQ(takePrinted(), "\nInvalid dimension style name.\n");
}

TEST_F(DimensionStyleCommand, UndoBringsTheVariablesBack)
{
    evaluate("(command \"_.-dimstyle\" \"_s\" \"A\" \"_.-dimstyle\" \"_s\" \"B\" \"_.u\")");
    EXPECT_EQ(evaluate("(getvar \"DIMSTYLE\")"), "\"A\"");
}

} // namespace
