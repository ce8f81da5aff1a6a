// What entmake makes, and what it refuses.

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

} // namespace
