#include "tests/host/commands/CommandTest.h"

#include "host/drawing/HeaderVariables.h"
#include "tests/host/drawing/Audit.h"

namespace {

using testing::HasSubstr;

class PurgeCommand : public CommandTest
{
protected:
    void SetUp() override
    {
        evaluate("(command \"_.-layer\" \"_n\" \"Unused,Used\" \"\") (setvar \"CLAYER\" \"Used\")"
                 "(command \"_.line\" \"0,0\" \"1,0\" \"\") (setvar \"CLAYER\" \"0\")"
                 "(command \"_.linetype\" \"_l\" \"dot\" \"\" \"\")"
                 "(command \"_.circle\" \"0,0\" 1) (command \"_.-block\" \"Ring\" \"0,0\" \"_l\" \"\")");
    }
    bool has(drawing::NameId table, const char16_t *name)
    {
        return m_document.drawing().tables().find(table, name) != drawing::NoRecord;
    }
};

TEST_F(PurgeCommand, LayersThatNothingUsesGo)
{
    evaluate("(command \"_.-purge\" \"_la\" \"*\" \"_n\")");
    EXPECT_FALSE(has(drawing::known::Layer, u"Unused"));
    EXPECT_TRUE(has(drawing::known::Layer, u"Used"));
    EXPECT_TRUE(has(drawing::known::Layer, u"0"));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(PurgeCommand, NamesAndQuestionsLimitIt)
{
    evaluate("(command \"_.-purge\" \"_la\" \"X*\" \"_n\") (command \"_.-purge\" \"_la\" \"Un*\" \"_y\" \"_n\")");
    EXPECT_TRUE(has(drawing::known::Layer, u"Unused"));
    evaluate("(command \"_.-purge\" \"_la\" \"Un*\" \"_y\" \"_y\")");
    EXPECT_FALSE(has(drawing::known::Layer, u"Unused"));
}

TEST_F(PurgeCommand, AllGoesUntilNothingIsLeftToGo)
{
    evaluate("(command \"_.insert\" \"Ring\" '(0 0) \"\" \"\" \"\") (command \"_.-purge\" \"_a\" \"*\" \"_n\")");
    EXPECT_TRUE(has(drawing::known::Block, u"Ring"));
    EXPECT_FALSE(has(drawing::known::Linetype, u"DOT"));
    evaluate("(command \"_.erase\" \"_l\" \"\") (command \"_.-purge\" \"_a\" \"*\" \"_n\")");
    EXPECT_FALSE(has(drawing::known::Block, u"Ring"));
    EXPECT_FALSE(has(drawing::known::BlockRecord, u"Ring"));
    EXPECT_TRUE(has(drawing::known::Block, u"*Model_Space"));
    EXPECT_EQ(drawing::auditOf(database()), "");
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.-purge\" \"_a\" \"*\" \"_n\")");
    EXPECT_THAT(takePrinted(), HasSubstr("No unreferenced objects found."));
}

TEST_F(PurgeCommand, BlocksThatAreCalledByHandleStay)
{
    evaluate(
        "(command \"_.erase\" \"_all\" \"\") (setq ring (cdr (assoc 330 (entget (tblobjname \"BLOCK\" \"Ring\")))))");
    evaluate("(setq style (entget (tblobjname \"DIMSTYLE\" \"Standard\")))");
    EXPECT_NE(evaluate("(entmod (append style (list (cons 342 ring))))"), "nil");
    evaluate("(command \"_.-purge\" \"_b\" \"*\" \"_n\")");
    EXPECT_TRUE(has(drawing::known::Block, u"Ring"));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(PurgeCommand, BlocksThatShowATableStay)
{
    evaluate("(command \"_.erase\" \"_all\" \"\")");
    add({{0, u"ACAD_TABLE"},
         {100, u"AcDbEntity"},
         {8, u"0"},
         {100, u"AcDbBlockReference"},
         {2, u"Ring"},
         {10, drawing::Point{}},
         {100, u"AcDbTable"},
         {2, u"Other"}});
    evaluate("(command \"_.-purge\" \"_b\" \"*\" \"_n\")");
    EXPECT_TRUE(has(drawing::known::Block, u"Ring"));
}

TEST_F(PurgeCommand, WhatExtendedDataPointsToStays)
{
    evaluate("(regapp \"APP\") (setq unused (cdr (assoc 5 (entget (tblobjname \"LAYER\" \"Unused\")))))");
    evaluate("(command \"_.-layer\" \"_n\" \"Unnamed\" \"\")");
    evaluate("(entmake (list '(0 . \"POINT\") '(10 0 0 0) (list -3 (list \"APP\" (cons 1005 unused)))))");
    evaluate("(command \"_.-purge\" \"_la\" \"*\" \"_n\")");
    EXPECT_TRUE(has(drawing::known::Layer, u"Unused"));
    EXPECT_FALSE(has(drawing::known::Layer, u"Unnamed"));
}

TEST_F(PurgeCommand, TheArrowOfLeadersStays)
{
    evaluate("(command \"_.erase\" \"_all\" \"\")");
    drawing::setVariable(database(), "$DIMLDRBLK", {1, u"Ring"});
    evaluate("(command \"_.-purge\" \"_b\" \"*\" \"_n\")");
    EXPECT_TRUE(has(drawing::known::Block, u"Ring"));
}

TEST_F(PurgeCommand, TextStylesOfTableStylesStay)
{
    evaluate("(command \"_.-style\" \"Cells\" \"txt\" 0 1 0 \"_n\" \"_n\" \"_n\") (setvar \"TEXTSTYLE\" \"Standard\")");
    evaluate("(entmakex '((0 . \"TABLESTYLE\") (100 . \"AcDbTableStyle\") (3 . \"T\") (7 . \"Cells\")))");
    evaluate("(command \"_.-purge\" \"_st\" \"*\" \"_n\")");
    EXPECT_TRUE(has(drawing::known::Style, u"Cells"));
}

TEST_F(PurgeCommand, UndoBringsThemBack)
{
    evaluate("(command \"_.-purge\" \"_a\" \"*\" \"_n\") (command \"_.u\")");
    EXPECT_TRUE(has(drawing::known::Layer, u"Unused"));
    EXPECT_TRUE(has(drawing::known::Block, u"Ring"));
}

TEST_F(PurgeCommand, OopsDoesNotBringBackAnInsertWhoseBlockIsGone)
{
    evaluate("(command \"_.circle\" '(0 0) 1 \"_.-block\" \"disc\" '(0 0) (entlast) \"\")");
    evaluate("(command \"_.-insert\" \"disc\" '(0 0) 1 1 0 \"_.point\" '(1 1) \"_.erase\" \"_all\" \"\")");
    evaluate("(command \"_.-purge\" \"_b\" \"disc\" \"_n\")");
    takePrinted();
    evaluate("(command \"_.oops\")");
    EXPECT_EQ(takePrinted(), "\nBlock \"disc\" is gone, and its insert with it.\n");
    EXPECT_EQ(types(), (std::vector<std::string>{"CIRCLE", "POINT"})); // what was there before, too
}

} // namespace
