// dictadd, dictremove and what becomes of the objects.

#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

namespace {

class DictionaryFunctions : public CommandTest
{
protected:
    void SetUp() override
    {
        evaluate("(setq names (namedobjdict))");
        evaluate("(setq data (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (1 . \"kept\"))))");
        evaluate("(dictadd names \"OLD\" data)");
    }
};

TEST_F(DictionaryFunctions, AnObjectMovesToAnotherName)
{
    EXPECT_EQ(evaluate("(equal (dictremove names \"OLD\") data)"), "T");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (entget data)))"), "\"kept\"");
    EXPECT_EQ(evaluate("(equal (dictadd names \"NEW\" data) data)"), "T");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (dictsearch names \"NEW\")))"), "\"kept\"");
    EXPECT_EQ(evaluate("(dictsearch names \"OLD\")"), "nil");
    EXPECT_EQ(evaluate("(equal (cdr (assoc 330 (entget data))) names)"), "T");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DictionaryFunctions, AnObjectThatIsLeftOutIsNoFaultOfTheDrawing)
{
    evaluate("(dictremove names \"OLD\")");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(DictionaryFunctions, UndoBringsTheObjectBackToItsName)
{
    evaluate(
        "(command \"_.undo\" \"_m\") (dictadd names \"NEW\" (dictremove names \"OLD\")) (command \"_.undo\" \"_b\")");
    EXPECT_EQ(evaluate("(cdr (assoc 1 (dictsearch names \"OLD\")))"), "\"kept\"");
    EXPECT_EQ(evaluate("(dictsearch names \"NEW\")"), "nil");
    EXPECT_EQ(evaluate("(equal (cdr (assoc 330 (entget data))) names)"), "T");
}

TEST_F(DictionaryFunctions, AnErasedObjectIsNotAdded)
{
    evaluate("(dictremove names \"OLD\") (entdel data)");
    EXPECT_EQ(evaluate("(dictadd names \"NEW\" data)"), "nil");
    EXPECT_EQ(evaluate("(dictsearch names \"NEW\")"), "nil");
}

TEST_F(DictionaryFunctions, GroupsAndMultilineStylesGoWithTheirEntries)
{
    evaluate("(setq group (entmakex '((0 . \"GROUP\") (100 . \"AcDbGroup\") (300 . \"\") (70 . 0) (71 . 1))))");
    evaluate("(setq groups (cdr (assoc -1 (dictsearch names \"ACAD_GROUP\"))))");
    EXPECT_NE(evaluate("(dictadd groups \"G\" group)"), "nil");
    EXPECT_NE(evaluate("(dictremove groups \"G\")"), "nil");
    EXPECT_EQ(evaluate("(entget group)"), "nil");
}

} // namespace
