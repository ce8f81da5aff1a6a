// RENAME, -LAYER Rename and entmod of a name: what follows and what is refused.

#include "tests/host/commands/CommandTest.h"

#include "host/drawing/HeaderVariables.h"
#include "tests/host/drawing/Audit.h"

namespace {

using drawing::textOf;

class RenamingNames : public CommandTest
{
protected:
    bool has(drawing::NameId table, const char16_t *name)
    {
        return m_document.drawing().tables().find(table, name) != drawing::NoRecord;
    }
};

TEST_F(RenamingNames, WhatNoDrawingCanDoWithoutKeepsItsName)
{
    evaluate("(command \"_.-layer\" \"_r\" \"0\" \"ZERO\" \"\")");
    EXPECT_EQ(takePrinted(), "\nThe layer \"0\" cannot be renamed.\n");
    evaluate("(command \"_.-rename\" \"_la\" \"0\" \"ZERO\")");
    evaluate("(command \"_.-rename\" \"_lt\" \"Continuous\" \"CC\")");
    evaluate("(command \"_.-rename\" \"_s\" \"Standard\" \"S\")");
    evaluate("(command \"_.-rename\" \"_b\" \"*Model_Space\" \"MS\")");
    EXPECT_EQ(takePrinted(), "\nThe layer \"0\" cannot be renamed.\n\nThe linetype \"Continuous\" cannot be renamed.\n"
                             "\nThe text style \"Standard\" cannot be renamed.\n"
                             "\nThe block \"*Model_Space\" cannot be renamed.\n");
    EXPECT_TRUE(has(drawing::known::Layer, u"0"));
    EXPECT_TRUE(has(drawing::known::Linetype, u"Continuous"));
    EXPECT_TRUE(has(drawing::known::Block, u"*Model_Space"));
}

TEST_F(RenamingNames, ABlockWithoutANameOfItsOwnKeepsWhatItHas)
{
    evaluate("(entmake '((0 . \"BLOCK\") (2 . \"*U\") (70 . 1) (10 0 0 0))) (entmake '((0 . \"ENDBLK\")))");
    evaluate("(command \"_.-rename\" \"_b\" \"*U1\" \"Mine\")");
    EXPECT_TRUE(has(drawing::known::Block, u"*U1"));
}

TEST_F(RenamingNames, TheCurrentTextStyleIsStillCurrent)
{
    evaluate("(command \"_.-style\" \"S1\" \"txt\" 0 1 0 \"_n\" \"_n\" \"_n\" \"_.-rename\" \"_s\" \"S1\" \"S2\")");
    EXPECT_EQ(evaluate("(getvar \"TEXTSTYLE\")"), "\"S2\"");
    EXPECT_EQ(std::get<std::u16string>(drawing::variable(database(), "$TEXTSTYLE")->value), u"S2");
    evaluate("(command \"_.text\" '(0 0) 1 0 \"words\")");
    EXPECT_EQ(textOf(lastGroups(), 7), u"S2");
    evaluate("(command \"_.u\" \"_.u\")");
    EXPECT_EQ(evaluate("(getvar \"TEXTSTYLE\")"), "\"S1\"");
}

TEST_F(RenamingNames, TheCurrentLinetypeAndLayerAreStillCurrent)
{
    evaluate("(command \"_.linetype\" \"_l\" \"dot\" \"\" \"\") (setvar \"CELTYPE\" \"DOT\")"
             "(command \"_.-layer\" \"_m\" \"A\" \"\" \"_.-rename\" \"_lt\" \"DOT\" \"Points\""
             " \"_.-layer\" \"_r\" \"A\" \"B\" \"\")");
    EXPECT_EQ(evaluate("(list (getvar \"CELTYPE\") (getvar \"CLAYER\"))"), "(\"Points\" \"B\")");
}

TEST_F(RenamingNames, ADimensionStyleIsCalledByDimensionsAlone)
{
    evaluate("(command \"_.-dimstyle\" \"_s\" \"D1\")");
    const auto dimension = add({{0, u"DIMENSION"}, {8, u"0"}, {2, u"*D1"}, {3, u"D1"}});
    const auto text = add({{0, u"MTEXT"}, {8, u"0"}, {10, drawing::Point{}}, {3, u"D1"}, {1, u"and the rest"}});
    evaluate("(command \"_.-rename\" \"_d\" \"D1\" \"D2\")");
    EXPECT_EQ(textOf(database().groups(dimension), 3), u"D2");
    EXPECT_EQ(textOf(database().groups(text), 3), u"D1");
    EXPECT_EQ(evaluate("(getvar \"DIMSTYLE\")"), "\"D2\"");
    EXPECT_EQ(std::get<std::u16string>(drawing::variable(database(), "$DIMSTYLE")->value), u"D2");
}

TEST_F(RenamingNames, LayerFiltersAndStatesFollowTheirLayers)
{
    evaluate("(command \"_.-layer\" \"_n\" \"A,B\" \"\")"
             "(setq d (entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\"))))"
             "(setq s (entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\"))))"
             "(setq state (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (301 . \"a\") (302 . \"A\") (8 . \"0\")"
             " (90 . 4) (8 . \"A\") (90 . 4))))"
             "(setq other (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (302 . \"A\") (8 . \"A\"))))"
             "(setq filter (entmakex '((0 . \"LAYER_FILTER\") (100 . \"AcDbFilter\") (100 . \"AcDbLayerFilter\")"
             " (8 . \"B\") (8 . \"A\"))))"
             "(dictadd (namedobjdict) \"LAYERS\" d) (dictadd d \"ACAD_LAYERSTATES\" s) (dictadd s \"One\" state)"
             "(dictadd (namedobjdict) \"OTHER\" other) (dictadd (namedobjdict) \"FILTER\" filter)"
             "(defun texts (name) (vl-remove-if-not '(lambda (p) (member (car p) '(8 301 302))) (entget name)))");
    evaluate("(command \"_.-rename\" \"_la\" \"A\" \"C\")");
    EXPECT_EQ(evaluate("(texts state)"), "((301 . \"a\") (302 . \"C\") (8 . \"0\") (8 . \"C\"))");
    EXPECT_EQ(evaluate("(texts other)"), "((302 . \"A\") (8 . \"A\"))");
    EXPECT_EQ(evaluate("(texts filter)"), "((8 . \"B\") (8 . \"C\"))");
    evaluate("(command \"_.-purge\" \"_la\" \"*\" \"_n\")"); // what only tells of a layer does not need it
    EXPECT_FALSE(has(drawing::known::Layer, u"B"));
    EXPECT_FALSE(has(drawing::known::Layer, u"C"));
}

TEST_F(RenamingNames, PageSetupsFollowTheirViews)
{
    evaluate("(entmake '((0 . \"VIEW\") (2 . \"Plan\") (70 . 0) (40 . 1.0) (10 0.0 0.0) (41 . 1.0) (11 0.0 0.0 1.0)"
             " (12 0.0 0.0 0.0) (42 . 50.0) (43 . 0.0) (44 . 0.0) (50 . 0.0) (71 . 0)))"
             "(setq setup (entmakex '((0 . \"PLOTSETTINGS\") (100 . \"AcDbPlotSettings\") (1 . \"Plan\")"
             " (2 . \"none\") (4 . \"\") (6 . \"Plan\"))))"
             "(dictadd (namedobjdict) \"SETUP\" setup)");
    ASSERT_TRUE(has(drawing::known::View, u"Plan"));
    evaluate("(setq view (entget (tblobjname \"VIEW\" \"Plan\")))"
             "(entmod (subst '(2 . \"Roof\") (assoc 2 view) view))");
    EXPECT_EQ(evaluate("(list (assoc 1 (entget setup)) (assoc 6 (entget setup)))"), "((1 . \"Plan\") (6 . \"Roof\"))");
}

TEST_F(RenamingNames, EntmodIsFollowedAsRenameIs)
{
    evaluate("(command \"_.-layer\" \"_m\" \"Old\" \"\" \"_.line\" '(0 0) '(1 1) \"\")"
             "(setq layer (entget (tblobjname \"LAYER\" \"Old\")))");
    EXPECT_NE(evaluate("(entmod (subst '(2 . \"New\") (assoc 2 layer) layer))"), "nil");
    EXPECT_EQ(textOf(lastGroups(), 8), u"New");
    EXPECT_EQ(evaluate("(getvar \"CLAYER\")"), "\"New\"");
    EXPECT_FALSE(has(drawing::known::Layer, u"Old"));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(RenamingNames, EntmodToANameThatCannotBeGivesNil)
{
    evaluate("(command \"_.-layer\" \"_n\" \"A,B\" \"\") (defun renamed (old new / data)"
             " (setq data (entget (tblobjname \"LAYER\" old))) (entmod (subst (cons 2 new) (assoc 2 data) data)))");
    EXPECT_EQ(evaluate("(renamed \"A\" \"B\")"), "nil");
    EXPECT_EQ(evaluate("(renamed \"A\" \"a<b\")"), "nil");
    EXPECT_EQ(evaluate("(renamed \"0\" \"Zero\")"), "nil");
    EXPECT_NE(evaluate("(renamed \"A\" \"a\")"), "nil");
    EXPECT_EQ(evaluate("(cdr (assoc 2 (tblsearch \"LAYER\" \"A\")))"), "\"a\"");
}

TEST_F(RenamingNames, EntmodOfABlockRenamesItsInsertsAndItsRecord)
{
    evaluate("(command \"_.circle\" '(0 0) 1 \"_.-block\" \"Ring\" '(0 0) \"_l\" \"\""
             " \"_.-insert\" \"Ring\" '(0 0) 1 1 0) (setq block (entget (tblobjname \"BLOCK\" \"Ring\")))");
    EXPECT_NE(evaluate("(entmod (subst '(2 . \"Wheel\") (assoc 2 block) block))"), "nil");
    EXPECT_EQ(textOf(lastGroups(), 2), u"Wheel");
    EXPECT_TRUE(has(drawing::known::BlockRecord, u"Wheel"));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(RenamingNames, EntmodOfABlockTakesTheListThatEntgetGives)
{
    evaluate("(command \"_.circle\" '(0 0) 1 \"_.-block\" \"Ring\" '(0 0) \"_l\" \"\")"
             "(setq block (entget (tblobjname \"BLOCK\" \"Ring\")) old (cons 3 \"Ring\")"
             " block (if (assoc 3 block) block (append block (list old))))");
    EXPECT_NE(evaluate("(entmod (subst '(2 . \"Wheel\") (assoc 2 block) block))"), "nil");
    const auto start = m_document.drawing().tables().find(drawing::known::Block, u"Wheel");
    ASSERT_NE(start, drawing::NoRecord);
    EXPECT_EQ(textOf(database().groups(start), 3), u"Wheel");
}

TEST_F(RenamingNames, EntmodOfABlocksTableRecordRenamesTheBlock)
{
    evaluate("(command \"_.circle\" '(0 0) 1 \"_.-block\" \"Ring\" '(0 0) \"_l\" \"\""
             " \"_.-insert\" \"Ring\" '(0 0) 1 1 0)"
             "(defun renamed (old new / data)"
             " (setq data (entget (cdr (assoc 330 (entget (tblobjname \"BLOCK\" old))))))"
             " (entmod (subst (cons 2 new) (assoc 2 data) data)))");
    EXPECT_NE(evaluate("(renamed \"Ring\" \"Wheel\")"), "nil");
    EXPECT_EQ(textOf(lastGroups(), 2), u"Wheel");
    EXPECT_TRUE(has(drawing::known::Block, u"Wheel"));
    EXPECT_TRUE(has(drawing::known::BlockRecord, u"Wheel"));
    EXPECT_EQ(evaluate("(renamed \"*Model_Space\" \"MS\")"), "nil");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(RenamingNames, EntmodThatCannotWriteAnotherValueLeavesTheName)
{
    evaluate(
        "(command \"_.-layer\" \"_m\" \"Old\" \"\" \"_.line\" '(0 0) '(1 1) \"\")"
        "(setq layer (entget (tblobjname \"LAYER\" \"Old\")) layer (subst '(70 . 100000) (assoc 70 layer) layer))");
    EXPECT_EQ(evaluate("(entmod (subst '(2 . \"New\") (assoc 2 layer) layer))"), "nil");
    EXPECT_TRUE(has(drawing::known::Layer, u"Old"));
    EXPECT_EQ(textOf(lastGroups(), 8), u"Old");
}

TEST_F(RenamingNames, ArrowsAndLinetypesOfDimensionsAreStillCurrent)
{
    evaluate("(entmake '((0 . \"BLOCK\") (2 . \"Tip\") (70 . 0) (10 0 0 0))) (entmake '((0 . \"ENDBLK\")))"
             "(command \"_.linetype\" \"_l\" \"dot\" \"\" \"\")");
    const auto inHeader = [this](const char *variable) {
        return std::get<std::u16string>(drawing::variable(database(), variable)->value);
    };
    drawing::setVariable(database(), "$DIMLDRBLK", {1, u"Tip"});
    for (const char *variable : {"$DIMLTYPE", "$DIMLTEX1", "$DIMLTEX2"})
        drawing::setVariable(database(), variable, {6, u"DOT"});
    evaluate("(command \"_.-rename\" \"_b\" \"Tip\" \"Head\" \"_.-rename\" \"_lt\" \"DOT\" \"Points\")");
    EXPECT_EQ(inHeader("$DIMLDRBLK"), u"Head");
    for (const char *variable : {"$DIMLTYPE", "$DIMLTEX1", "$DIMLTEX2"})
        EXPECT_EQ(inHeader(variable), u"Points");
}

} // namespace
