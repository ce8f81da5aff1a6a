// What entmake makes, and what it refuses.

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"
#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

namespace {

class Making : public CommandTest
{
};

TEST_F(Making, ofATableRecordWhoseNameIsTakenGivesNilAndMakesNothing)
{
    const std::string layer = "(entmake '((0 . \"LAYER\") (100 . \"AcDbSymbolTableRecord\")"
                              " (100 . \"AcDbLayerTableRecord\") (2 . \"Walls\") (70 . 0) (62 . 3)))";
    EXPECT_NE(evaluate(layer), "nil");
    const std::size_t count = database().recordCount();
    EXPECT_EQ(evaluate(layer), "nil");
    EXPECT_EQ(evaluate("(entlast)"), "nil");
    EXPECT_EQ(database().recordCount(), count);
}

TEST_F(Making, ofATypeThatNobodyKnowsGivesNil)
{
    EXPECT_EQ(evaluate("(entmake '((0 . \"FOO\") (100 . \"AcDbEntity\") (100 . \"AcDbFoo\")))"), "nil");
    EXPECT_EQ(evaluate("(entmake '((0 . \"BLOCK_RECORD\") (100 . \"AcDbBlockTableRecord\") (2 . \"B\")))"), "nil");
    EXPECT_EQ(types(), std::vector<std::string>());
}

TEST_F(Making, ofATypeThatTheDrawingDeclaresMakesOne)
{
    drawing::ensureClass(database(), {u"ACME_WALL", u"AcmeDbWall", u"ACME"});
    const drawing::RecordId section = database().section(drawing::known::Classes);
    const drawing::RecordId declared = database().record(database().knownEndOf(section)).previous;
    drawing::GroupList groups = database().groups(declared);
    drawing::setGroup(groups, drawing::integerGroup(281, 1));
    database().replace(declared, groups);
    const std::string wall = "(entmake '((0 . \"ACME_WALL\") (100 . \"AcDbEntity\") (100 . \"AcmeDbWall\")))";
    EXPECT_NE(evaluate(wall), "nil");
    EXPECT_EQ(types(), (std::vector<std::string>{"ACME_WALL"}));
}

TEST_F(Making, ofAnObjectAddsItToTheObjects)
{
    EXPECT_NE(evaluate("(setq data (entmakex '((0 . \"DICTIONARYVAR\") (100 . \"DictionaryVariables\")"
                       " (280 . 0) (1 . \"x\"))))"),
              "nil");
    EXPECT_EQ(types(), std::vector<std::string>());
    evaluate("(dictadd (namedobjdict) \"ACME\" data)");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(Making, ofAnObjectThatNothingTakesLeavesADrawingWithoutFaults)
{
    evaluate("(setq lone (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (1 . \"x\"))))"
             "(setq d (entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\"))))"
             "(dictadd d \"IN\" (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (1 . \"y\"))))");
    EXPECT_EQ(drawing::auditOf(database()), "");
    EXPECT_EQ(evaluate("(eq (cdr (assoc 330 (entget lone))) (namedobjdict))"), "T");
    EXPECT_EQ(evaluate("(dictsearch (namedobjdict) \"IN\")"), "nil");
    EXPECT_NE(evaluate("(dictadd d \"LATER\" lone)"), "nil");
    EXPECT_EQ(evaluate("(eq (cdr (assoc 330 (entget lone))) d)"), "T");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(Making, ofAnObjectIsRefusedWhereDrawingsHaveNone)
{
    openEmptyDrawing("AC1009");
    const std::size_t count = database().recordCount();
    EXPECT_EQ(evaluate("(entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\")))"), "nil");
    EXPECT_EQ(evaluate("(entmake '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (1 . \"x\")))"), "nil");
    EXPECT_EQ(database().recordCount(), count);
    openEmptyDrawing("AC1012");
    EXPECT_NE(evaluate("(entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\")))"), "nil");
}

// Whether entmake of a line with this group, or these, makes one.
class ValuesOfALine : public CommandTest, public testing::WithParamInterface<const char *>
{
protected:
    std::string made(const std::string &groups)
    {
        return evaluate("(entmake '((0 . \"LINE\") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0) " + groups + "))");
    }
};

class WrongValuesOfALine : public ValuesOfALine
{
};

TEST_P(WrongValuesOfALine, MakeNothing)
{
    evaluate("(regapp \"A\")");
    EXPECT_EQ(made(GetParam()), "nil");
    EXPECT_EQ(types(), std::vector<std::string>());
}

TEST_P(WrongValuesOfALine, ChangeNothing)
{
    evaluate("(regapp \"A\")");
    made("(62 . 3) (8 . \"L\") (6 . \"Continuous\")");
    const drawing::GroupList before = lastGroups();
    EXPECT_EQ(evaluate("(entmod (cons (cons -1 (entlast)) '(" + std::string(GetParam()) + ")))"), "nil");
    EXPECT_EQ(lastGroups(), before);
}

INSTANTIATE_TEST_SUITE_P(Making, WrongValuesOfALine,
                         testing::Values("(6 . \"NOPE\")", "(62 . 257)", "(62 . -1)", "(8 . \"a<b\")", "(8 . \"\")",
                                         "(-3 (\"NONE\" (1000 . \"x\")))", "(-3 (\"A\" (1002 . \"{\")))",
                                         "(-3 (\"A\" (1002 . \"}\") (1002 . \"{\")))"));

class RightValuesOfALine : public ValuesOfALine
{
};

TEST_P(RightValuesOfALine, MakeOne)
{
    evaluate("(regapp \"A\")");
    EXPECT_NE(made(GetParam()), "nil");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

INSTANTIATE_TEST_SUITE_P(Making, RightValuesOfALine,
                         testing::Values("(6 . \"bylayer\")", "(62 . 0)", "(62 . 256)", "(8 . \"New layer\")",
                                         "(-3 (\"A\" (1002 . \"{\") (1002 . \"}\")))"));

TEST_F(Making, ofTextWithAStyleThatIsNotThereGivesNil)
{
    EXPECT_EQ(evaluate("(entmake '((0 . \"TEXT\") (7 . \"NOPE\") (10 0.0 0.0 0.0) (40 . 1.0) (1 . \"x\")))"), "nil");
}

TEST_F(Making, ofACircleNeedsARadius)
{
    EXPECT_EQ(evaluate("(entmake '((0 . \"CIRCLE\") (10 0.0 0.0 0.0) (40 . 0.0)))"), "nil");
    EXPECT_EQ(evaluate("(entmake '((0 . \"CIRCLE\") (10 0.0 0.0 0.0) (40 . -1.0)))"), "nil");
    evaluate("(entmake '((0 . \"CIRCLE\") (10 0.0 0.0 0.0) (40 . 1.0)))");
    EXPECT_EQ(evaluate("(entmod (subst '(40 . 0.0) '(40 . 1.0) (entget (entlast))))"), "nil");
}

TEST_F(Making, takesNoMoreExtendedDataThanAnEntityHolds)
{
    evaluate("(regapp \"A\") (setq text \"\") (repeat 25 (setq text (strcat text \"0123456789\")))"
             "(defun made (count / data) (repeat count (setq data (cons (cons 1000 text) data)))"
             " (entmake (list '(0 . \"POINT\") '(10 0.0 0.0 0.0) (list -3 (cons \"A\" data)))))");
    EXPECT_NE(evaluate("(made 64)"), "nil"); // 254 bytes each
    EXPECT_EQ(evaluate("(made 65)"), "nil");
}

TEST_F(Making, leavesAnEntityWithWhatItHasFromItsFile)
{
    add({{0, u"POINT"}, {8, u"0"}, {6, u"LOST"}, {10, drawing::Point{}}});
    EXPECT_NE(evaluate("(entmod (append (entget (entlast)) '((62 . 3))))"), "nil");
    EXPECT_EQ(drawing::textOf(lastGroups(), 6), u"LOST");
}

class MakingBlocks : public Making
{
protected:
    static std::string made(const std::string &groups) { return "(entmake '(" + groups + "))"; }
    std::size_t countOf(drawing::NameId table) { return m_document.drawing().tables().entries(table).size(); }
    bool hasBlock(const char16_t *name)
    {
        return m_document.drawing().tables().find(drawing::known::Block, name) != drawing::NoRecord;
    }
    // What ENDBLK gives.
    std::string block(const std::string &start, const std::string &entities)
    {
        evaluate(made("(0 . \"BLOCK\") " + start));
        evaluate(entities);
        return evaluate(made("(0 . \"ENDBLK\")"));
    }
    static constexpr const char *Circle = "(entmake '((0 . \"CIRCLE\") (10 0.0 0.0 0.0) (40 . 1.0)))";
};

TEST_F(MakingBlocks, thatCannotBeLeavesTheDrawingAsItIs)
{
    const std::size_t blocks = countOf(drawing::known::Block), records = countOf(drawing::known::BlockRecord);
    EXPECT_EQ(block("(2 . \"C1\") (70 . 100000) (10 0. 0. 0.)", Circle), "nil");
    EXPECT_EQ(types(), std::vector<std::string>());
    EXPECT_EQ(countOf(drawing::known::Block), blocks);
    EXPECT_EQ(countOf(drawing::known::BlockRecord), records);
}

TEST_F(MakingBlocks, anewThatCannotBeKeepsTheOldOne)
{
    EXPECT_EQ(block("(2 . \"B\") (70 . 0) (10 0. 0. 0.)", Circle), "\"B\"");
    EXPECT_EQ(block("(2 . \"B\") (70 . 100000) (10 5. 5. 0.)", ""), "nil");
    const auto start = m_document.drawing().tables().find(drawing::known::Block, u"B");
    EXPECT_EQ(drawing::entitiesIn(database(), start).size(), 1U);
}

TEST_F(MakingBlocks, holdsNoEntityThatCannotBeWritten)
{
    const std::string line = made("(0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 2)"
                                  " (70 . 100000) (10 0. 0.) (10 1. 0.)");
    evaluate(made("(0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 0. 0. 0.)"));
    EXPECT_EQ(evaluate(line), "nil");
    EXPECT_EQ(evaluate(made("(0 . \"ENDBLK\")")), "nil");
    EXPECT_FALSE(hasBlock(u"B"));
}

TEST_F(MakingBlocks, holdsNoInsertOfABlockThatIsGoneByThen)
{
    block("(2 . \"Gone\") (70 . 0) (10 0. 0. 0.)", Circle);
    evaluate(made("(0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 0. 0. 0.)"));
    EXPECT_NE(evaluate(made("(0 . \"INSERT\") (2 . \"Gone\") (10 0. 0. 0.)")), "nil");
    drawing::eraseBlock(database(), m_document.drawing().tables(),
                        m_document.drawing().tables().find(drawing::known::Block, u"Gone"));
    EXPECT_EQ(evaluate(made("(0 . \"ENDBLK\")")), "nil");
    EXPECT_FALSE(hasBlock(u"B"));
}

TEST_F(MakingBlocks, endsWithAPartThatBelongsToNothing)
{
    evaluate(made("(0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 0. 0. 0.)"));
    EXPECT_EQ(evaluate(made("(0 . \"VERTEX\") (10 0. 0. 0.)")), "nil");
    EXPECT_EQ(evaluate(made("(0 . \"ENDBLK\")")), "nil");
    EXPECT_FALSE(hasBlock(u"B"));
}

TEST_F(MakingBlocks, ofNamesThatNoBlockCanHaveGivesNil)
{
    for (const char *name : {"P/Q", "*Paper_Space1", "*PAPER_SPACE", "*Model_Space", "a\\nb", ""}) {
        EXPECT_EQ(evaluate(made("(0 . \"BLOCK\") (2 . \"" + std::string(name) + "\") (70 . 0) (10 0. 0. 0.)")), "nil")
            << name;
        evaluate(made("(0 . \"ENDBLK\")"));
    }
    EXPECT_TRUE(hasBlock(u"*Model_Space"));
    EXPECT_EQ(block("(2 . \"*U\") (70 . 1) (10 0. 0. 0.)", Circle), "\"*U1\"");
    EXPECT_EQ(block("(2 . \"*U1\") (70 . 1) (10 0. 0. 0.)", Circle), "\"*U1\"");
}

TEST_F(MakingBlocks, makesTheLayerThatTheBlockIsOn)
{
    EXPECT_EQ(block("(2 . \"B\") (8 . \"glass\") (70 . 0) (10 0. 0. 0.)", Circle), "\"B\"");
    EXPECT_NE(m_document.drawing().tables().find(drawing::known::Layer, u"glass"), drawing::NoRecord);
    EXPECT_EQ(evaluate(made("(0 . \"BLOCK\") (2 . \"C\") (8 . \"a<b\") (70 . 0) (10 0. 0. 0.)")), "nil");
}

TEST_F(Making, ofAPolylineEndsWithAVertexThatCannotBeWritten)
{
    EXPECT_NE(evaluate("(entmake '((0 . \"POLYLINE\")))"), "nil");
    EXPECT_NE(evaluate("(entmake '((0 . \"VERTEX\") (10 0.0 0.0 0.0)))"), "nil");
    EXPECT_EQ(evaluate("(entmake '((0 . \"VERTEX\") (10 1.0 0.0 0.0) (70 . 100000)))"), "nil");
    EXPECT_EQ(evaluate("(entmake '((0 . \"SEQEND\")))"), "nil");
    EXPECT_EQ(types(), std::vector<std::string>());
}

TEST_F(Making, ofARecordWithAnUnusableNameGivesNil)
{
    for (const char *name : {"X<Y*", "A|B", "tab\\tbed"}) {
        const std::string quoted = " (2 . \"" + std::string(name) + "\")";
        EXPECT_EQ(evaluate("(entmake '((0 . \"LAYER\")" + quoted + " (70 . 0) (62 . 3)))"), "nil") << name;
        EXPECT_EQ(evaluate("(regapp \"" + std::string(name) + "\")"), "nil") << name;
    }
    EXPECT_NE(evaluate("(entmake '((0 . \"LAYER\") (2 . \"X Y\") (70 . 0) (62 . 3)))"), "nil");
}

} // namespace
