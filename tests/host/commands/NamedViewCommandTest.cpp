#include "tests/host/commands/CommandTest.h"

namespace {

class NamedViewCommand : public CommandTest
{
};

TEST_F(NamedViewCommand, WhatWasSavedComesBack)
{
    evaluate("(command \"_.zoom\" \"_c\" \"10,20\" 30) (command \"_.-view\" \"_s\" \"here\")"
             "(command \"_.zoom\" \"_c\" \"0,0\" 5) (command \"_.view\" \"_r\" \"HERE\")");
    EXPECT_EQ(evaluate("(list (getvar \"VIEWCTR\") (getvar \"VIEWSIZE\"))"), "((10.0 20.0 0.0) 30.0)");
}

TEST_F(NamedViewCommand, ItComesBackAsItWasSeenWhateverTheCoordinateSystem)
{
    evaluate("(command \"_.ucs\" \"_x\" 90) (command \"_.plan\" \"\" \"_.zoom\" \"_c\" '(10 20) 30)"
             "(command \"_.view\" \"_s\" \"front\") (command \"_.ucs\" \"_w\") (command \"_.plan\" \"\")"
             "(command \"_.view\" \"_r\" \"front\")");
    const std::string text = "(mapcar '(lambda (c) (rtos c 2 6)) ";
    EXPECT_EQ(evaluate(text + "(getvar \"VIEWDIR\"))"), "(\"0.000000\" \"-1.000000\" \"0.000000\")");
    EXPECT_EQ(evaluate(text + "(getvar \"VIEWCTR\"))"), "(\"10.000000\" \"0.000000\" \"20.000000\")");
    EXPECT_EQ(evaluate(text + "(cdr (assoc 10 (tblsearch \"VIEW\" \"front\"))))"), "(\"10.000000\" \"20.000000\")");
}

TEST_F(NamedViewCommand, AWindowIsAView)
{
    evaluate("(command \"_.view\" \"_w\" \"corner\" \"0,0\" \"8,6\")");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (tblsearch \"VIEW\" \"corner\")))"), "(4.0 3.0)");
    EXPECT_EQ(evaluate("(cdr (assoc 40 (tblsearch \"VIEW\" \"corner\")))"), "6.0");
}

TEST_F(NamedViewCommand, AWindowWithoutHeightOrWidthIsRefused)
{
    evaluate(
        "(command \"_.view\" \"_w\" \"flat\" \"0,3\" \"8,3\") (command \"_.view\" \"_w\" \"thin\" \"3,0\" \"3,8\")");
    EXPECT_EQ(takePrinted(), "\nThe view is empty.\n\nThe view is empty.\n");
    EXPECT_EQ(evaluate("(list (tblsearch \"VIEW\" \"flat\") (tblsearch \"VIEW\" \"thin\"))"), "(nil nil)");
}

TEST_F(NamedViewCommand, TheSizeStaysWhenARecordHasNone)
{
    evaluate("(command \"_.zoom\" \"_c\" \"0,0\" 30 \"_.view\" \"_w\" \"a\" \"0,0\" \"8,6\")"
             "(setq record (entget (tblobjname \"VIEW\" \"a\")))"
             "(entmod (subst '(40 . 0.0) (assoc 40 record) record)) (command \"_.view\" \"_r\" \"a\")");
    EXPECT_EQ(evaluate("(list (getvar \"VIEWCTR\") (getvar \"VIEWSIZE\"))"), "((4.0 3.0 0.0) 30.0)");
}

TEST_F(NamedViewCommand, DeletedOnesAreGoneAndUnknownOnesSaid)
{
    evaluate("(command \"_.view\" \"_s\" \"a1\" \"_.view\" \"_s\" \"a2\" \"_.view\" \"_d\" \"a*\")");
    EXPECT_EQ(evaluate("(tblsearch \"VIEW\" \"a1\")"), "nil");
    takePrinted();
    evaluate("(command \"_.view\" \"_r\" \"a1\")");
    EXPECT_EQ(takePrinted(), "\nCannot find view a1.\n");
    evaluate("(command \"_.view\" \"_d\" \"b*\")");
    EXPECT_EQ(takePrinted(), "\nNo matching view names found.\n");
}

} // namespace
