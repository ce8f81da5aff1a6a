#include "tests/host/commands/CommandTest.h"

#include "host/drawing/HeaderVariables.h"
#include "lisp/LispStatus.h"
#include "lisp/TypeCode.h"

namespace {

// Variables that name something of the drawing, as programs set them.
class DrawingNames : public CommandTest
{
protected:
    // What the variable is then, or the error.
    std::string set(const std::string &name, const std::string &value)
    {
        const std::string result = evaluate("(setvar \"" + name + "\" \"" + value + "\")");
        return result.starts_with("error:") ? result : evaluate("(getvar \"" + name + "\")");
    }
    std::string refusal(const std::string &name, const std::string &value)
    {
        return "error: system variable setting rejected: " + name + " \"" + value + '"';
    }
    std::u16string inHeader(std::string_view name)
    {
        return std::get<std::u16string>(drawing::variable(database(), name)->value);
    }
    void makeRecord(const std::string &type, const std::string &name, int flags)
    {
        evaluate("(entmake '((0 . \"" + type + "\") (2 . \"" + name + "\") (70 . " + std::to_string(flags) + ")))");
    }
};

} // namespace

TEST_F(DrawingNames, ALayerHasToBeThereAndIsSpelledAsItIs)
{
    makeRecord("LAYER", "Walls", 0);
    EXPECT_EQ(set("CLAYER", "WALLS"), "\"Walls\"");
    EXPECT_EQ(inHeader("$CLAYER"), u"Walls");
    for (const char *none : {"nix", "", "*", "Wall"})
        EXPECT_EQ(set("CLAYER", none), refusal("CLAYER", none));
    EXPECT_EQ(evaluate("(getvar \"CLAYER\")"), "\"Walls\"");
    EXPECT_EQ(inHeader("$CLAYER"), u"Walls");
}

TEST_F(DrawingNames, AColorThatTheHeaderCannotHoldOutlivesAStepUndone)
{
    EXPECT_EQ(set("CECOLOR", "RGB:10,20,30"), "\"RGB:10,20,30\"");
    evaluate("(command \"_.LINE\" '(0 0) '(1 1) \"\" \"_.UNDO\" 1)");
    EXPECT_EQ(evaluate("(ssget \"_X\")"), "nil");
    EXPECT_EQ(evaluate("(getvar \"CECOLOR\")"), "\"RGB:10,20,30\"");
}

TEST_F(DrawingNames, AFrozenLayerIsNotCurrentNorOneOfAReference)
{
    makeRecord("LAYER", "Cold", 1);
    makeRecord("LAYER", "Locked", 4);
    makeRecord("LAYER", "Other", 16);
    EXPECT_EQ(set("CLAYER", "Cold"), refusal("CLAYER", "Cold"));
    EXPECT_EQ(set("CLAYER", "Other"), refusal("CLAYER", "Other"));
    EXPECT_EQ(set("CLAYER", "locked"), "\"Locked\"");
}

TEST_F(DrawingNames, AnErasedLayerIsNone)
{
    evaluate("(command \"_.-layer\" \"_n\" \"Walls\" \"\" \"_.-purge\" \"_la\" \"Walls\" \"_n\")");
    EXPECT_EQ(set("CLAYER", "Walls"), refusal("CLAYER", "Walls"));
}

TEST_F(DrawingNames, ALinetypeIsLoadedOrThatOfLayersAndBlocks)
{
    EXPECT_EQ(set("CELTYPE", "DASHED"), refusal("CELTYPE", "DASHED"));
    evaluate("(command \"_.linetype\" \"_l\" \"dashed\" \"\" \"\")");
    EXPECT_EQ(set("CELTYPE", "dashed"), "\"DASHED\"");
    EXPECT_EQ(set("CELTYPE", "BYBLOCK"), "\"ByBlock\"");
    EXPECT_EQ(set("CELTYPE", "CONTINUOUS"), "\"Continuous\"");
    EXPECT_EQ(set("CELTYPE", "bylayer"), "\"ByLayer\"");
}

TEST_F(DrawingNames, TextStylesAreThoseOfTheDrawing)
{
    makeRecord("STYLE", "Thin", 0);
    makeRecord("STYLE", "Other", 16);
    for (const char *name : {"TEXTSTYLE", "DIMTXSTY"}) {
        EXPECT_EQ(set(name, "THIN"), "\"Thin\"");
        EXPECT_EQ(set(name, "nix"), refusal(name, "nix"));
        EXPECT_EQ(set(name, "Other"), refusal(name, "Other"));
        EXPECT_EQ(set(name, ""), refusal(name, ""));
        EXPECT_EQ(set(name, "STANDARD"), "\"Standard\"");
    }
}

TEST_F(DrawingNames, TheDimensionStyleIsChangedByItsCommandAlone)
{
    EXPECT_EQ(set("DIMSTYLE", "Standard"), refusal("DIMSTYLE", "Standard"));
}

TEST_F(DrawingNames, ColorsAreWhatTheColorCommandTakes)
{
    EXPECT_EQ(set("CECOLOR", "Red"), "\"1\"");
    EXPECT_EQ(set("CECOLOR", "255"), "\"255\"");
    EXPECT_EQ(set("CECOLOR", "rgb:1,2,3"), "\"RGB:1,2,3\"");
    EXPECT_EQ(set("CECOLOR", "byblock"), "\"BYBLOCK\"");
    for (const char *none : {"257", "-1", "reddish", "RGB:1,2", "RGB:1,2,256", ""})
        EXPECT_EQ(set("CECOLOR", none), refusal("CECOLOR", none));
    EXPECT_EQ(set("CECOLOR", "ByLayer"), "\"BYLAYER\"");
}

TEST_F(DrawingNames, HatchesMayHaveTheColorOfOtherObjects)
{
    EXPECT_EQ(set("HPCOLOR", "3"), "\"3\"");
    EXPECT_EQ(set("HPCOLOR", "reddish"), refusal("HPCOLOR", "reddish"));
    EXPECT_EQ(set("HPCOLOR", "."), "\".\"");
    EXPECT_EQ(evaluate("(setvar \"HPCOLOR\" \"3\") (command \"_.setvar\" \"HPCOLOR\" \".\") (getvar \"HPCOLOR\")"),
              "\".\"");
}

TEST_F(DrawingNames, ArrowsAreBlocksOrStandardOnes)
{
    evaluate("(command \"_.circle\" '(0 0) 1 \"_.-block\" \"Mark\" '(0 0) \"_l\" \"\")");
    for (const char *name : {"DIMBLK", "DIMBLK1", "DIMBLK2"}) {
        EXPECT_EQ(set(name, "MARK"), "\"Mark\"");
        EXPECT_EQ(set(name, "nix"), refusal(name, "nix"));
        EXPECT_EQ(set(name, "*Model_Space"), refusal(name, "*Model_Space"));
        EXPECT_EQ(set(name, "_ARCHTICK"), "\"_ArchTick\"");
        EXPECT_EQ(set(name, "."), "\"\"");
        EXPECT_EQ(set(name, "oblique"), "\"_Oblique\"");
        EXPECT_EQ(set(name, ""), "\"\"");
    }
}

TEST_F(DrawingNames, TableStylesStandInTheirDictionary)
{
    EXPECT_EQ(set("CTABLESTYLE", "standard"), "\"Standard\"");
    EXPECT_EQ(set("CTABLESTYLE", "Parts"), refusal("CTABLESTYLE", "Parts"));
    evaluate("(setq styles (dictadd (namedobjdict) \"ACAD_TABLESTYLE\" (entmakex '((0 . \"DICTIONARY\") (100 . "
             "\"AcDbDictionary\")))))"
             "(dictadd styles \"Parts\" (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\"))))");
    EXPECT_EQ(set("CTABLESTYLE", "PARTS"), "\"Parts\"");
}

TEST_F(DrawingNames, TheCurrentTabIsALayout)
{
    EXPECT_EQ(set("CTAB", "nix"), refusal("CTAB", "nix"));
    EXPECT_EQ(set("CTAB", "layout1"), "\"Layout1\"");
    EXPECT_EQ(set("CTAB", "model"), "\"Model\"");
}

TEST_F(DrawingNames, TheCommandSaysWhatCannotBeSet)
{
    evaluate("(command \"_.setvar\" \"CLAYER\" \"nix\")");
    EXPECT_EQ(takePrinted(), "\nCannot set CLAYER to \"nix\".\n");
    evaluate("(command \"_.textsize\" \"0\")");
    EXPECT_EQ(takePrinted(), "\nCannot set TEXTSIZE to 0.\n");
}

TEST_F(DrawingNames, AModuleIsRefusedTheSameAndNothingHasChanged)
{
    std::u16string name = u"nix";
    resbuf node{};
    node.restype = TypeString;
    node.resval.string = name.data();
    EXPECT_EQ(m_document.lispHost()->setVar(u"CLAYER", &node), StatusError);
    EXPECT_EQ(evaluate("(list (getvar \"CLAYER\") (getvar \"DBMOD\"))"), "(\"0\" 0)");
    name = u"BYBLOCK";
    node.resval.string = name.data();
    EXPECT_EQ(m_document.lispHost()->setVar(u"CELTYPE", &node), StatusNormal);
    EXPECT_EQ(evaluate("(list (getvar \"CELTYPE\") (getvar \"DBMOD\"))"), "(\"ByBlock\" 1)");
}

TEST_F(DrawingNames, WhatADrawingHasBroughtIsKeptAndCanBePutBack)
{
    drawing::setVariable(database(), "$CLAYER", drawing::textGroup(8, u"gone"));
    drawing::setVariable(database(), "$TEXTSIZE", drawing::realGroup(40, 0));
    m_document.readVariables();
    EXPECT_EQ(evaluate("(list (getvar \"CLAYER\") (getvar \"TEXTSIZE\"))"), "(\"gone\" 0.0)");
    EXPECT_EQ(set("CLAYER", "gone"), "\"gone\"");
    EXPECT_EQ(evaluate("(setvar \"TEXTSIZE\" 0.0)"), "0.0");
    EXPECT_EQ(set("CLAYER", "0"), "\"0\"");
    EXPECT_EQ(evaluate("(setvar \"TEXTSIZE\" 2.5)"), "2.5");
    EXPECT_EQ(set("CLAYER", "away"), refusal("CLAYER", "away"));
    EXPECT_EQ(set("CLAYER", "gone"), "\"gone\"");
    EXPECT_EQ(evaluate("(setvar \"TEXTSIZE\" 0)"), "0");
}

TEST_F(DrawingNames, ADrawingWithoutTablesHasWhatEveryOneHas)
{
    for (const char *table : {"LAYER", "LTYPE", "STYLE"})
        for (const drawing::RecordId record : m_document.drawing().tables().entries(database().names().find(table)))
            database().erase(record);
    evaluate("(setvar \"CELTYPE\" \"ByBlock\")");
    EXPECT_EQ(set("CLAYER", "0"), "\"0\"");
    EXPECT_EQ(set("CELTYPE", "CONTINUOUS"), "\"Continuous\"");
    EXPECT_EQ(set("TEXTSTYLE", "STANDARD"), "\"Standard\"");
}
