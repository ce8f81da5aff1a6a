#include "tests/host/commands/CommandTest.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/geometry/Extents.h"
#include "tests/host/drawing/Audit.h"

#include <cmath>

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;
using testing::ElementsAre;

// A block of a line, a circle and an attribute.
class BlockCommands : public CommandTest
{
protected:
    void SetUp() override
    {
        const auto start = drawing::addBlock(database(), m_document.drawing().tables(), {u"Door", {1, 0, 0}});
        add(start, {{0, u"LINE"},
                    {100, u"AcDbEntity"},
                    {8, u"0"},
                    {100, u"AcDbLine"},
                    {10, drawing::Point{1, 0, 0}},
                    {11, drawing::Point{3, 0, 0}}});
        add(start, {{0, u"CIRCLE"},
                    {100, u"AcDbEntity"},
                    {8, u"0"},
                    {100, u"AcDbCircle"},
                    {10, drawing::Point{2, 0, 0}},
                    {40, 1.0}});
        m_start = start;
    }
    void addAttribute()
    {
        add(m_start, {{0, u"ATTDEF"},
                      {100, u"AcDbEntity"},
                      {8, u"0"},
                      {100, u"AcDbText"},
                      {10, drawing::Point{1, 1, 0}},
                      {40, 0.5},
                      {1, u"none"},
                      {50, 0.0},
                      {7, u"Standard"},
                      {100, u"AcDbAttributeDefinition"},
                      {3, u"Which number"},
                      {2, u"NUMBER"},
                      {70, std::int64_t{0}}});
    }
    void add(drawing::RecordId start, const drawing::GroupList &groups)
    {
        database().add(drawing::RecordKind::Entity, groups, database().endOf(start));
    }
    drawing::RecordId m_start = drawing::NoRecord;
};

TEST_F(BlockCommands, InsertAsksForPointScaleAndRotation)
{
    evaluate("(command \"_.-insert\" \"door\" \"10,20\" 2 3 90)");
    EXPECT_THAT(types(), ElementsAre("INSERT"));
    EXPECT_EQ(textOf(lastGroups(), 2), u"Door");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{10, 20, 0}));
    EXPECT_EQ(realOf(lastGroups(), 41), 2);
    EXPECT_EQ(realOf(lastGroups(), 42), 3);
    EXPECT_EQ(realOf(lastGroups(), 43), 2);
    EXPECT_EQ(realOf(lastGroups(), 50), 90);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(evaluate("(getvar \"INSNAME\")"), "\"door\"");
}

TEST_F(BlockCommands, InsertHasDefaults)
{
    evaluate("(command \"_.insert\" \"Door\" '(0 0) \"\" \"\" \"\")");
    EXPECT_EQ(realOf(lastGroups(), 41), 1);
    EXPECT_EQ(realOf(lastGroups(), 42), 1);
    EXPECT_EQ(realOf(lastGroups(), 50), 0);
}

TEST_F(BlockCommands, WhatIsSettledBeforeThePointIsNotAskedAgain)
{
    evaluate("(command \"_.insert\" \"Door\" \"_s\" 2 \"_r\" 45 \"1,1\")");
    EXPECT_EQ(realOf(lastGroups(), 42), 2);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 50), 45);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(BlockCommands, ABlockThatIsNotThereIsSaid)
{
    evaluate("(command \"_.insert\" \"Window\" \"1,1\" \"\" \"\" \"\")");
    EXPECT_EQ(takePrinted(), "\nCannot find block \"Window\".\n\nUnknown command \"1,1\".\n");
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(BlockCommands, AQuestionMarkListsTheBlocks)
{
    evaluate("(command \"_.insert\" \"Door\" '(0 0) \"\" \"\" \"\" \"_.block\" \"Wall\" '(0 0) \"_l\" \"\")");
    takePrinted();
    evaluate("(command \"_.insert\" \"?\" \"\" \"Wall\" '(0 0) \"\" \"\" \"\")");
    EXPECT_EQ(takePrinted(), "\nDefined blocks:\nDoor\nWall\n");
    EXPECT_EQ(textOf(lastGroups(), 2), u"Wall");
    evaluate("(command \"_.block\" \"?\" \"W*\" \"House\" '(0 0) \"_l\" \"\")");
    EXPECT_EQ(takePrinted(), "\nDefined blocks:\nWall\n");
    EXPECT_NE(evaluate("(tblsearch \"BLOCK\" \"House\")"), "nil");
}

TEST_F(BlockCommands, AttributesAreAskedFor)
{
    addAttribute();
    evaluate("(command \"_.insert\" \"Door\" '(10 20) 2 2 90 \"A17\")");
    const auto attribute = database().groups(database().record(last()).next);
    EXPECT_EQ(textOf(attribute, 0), u"ATTRIB");
    EXPECT_EQ(textOf(attribute, 2), u"NUMBER");
    EXPECT_EQ(textOf(attribute, 1), u"A17");
    EXPECT_EQ(realOf(attribute, 40), 1);
    EXPECT_EQ(realOf(attribute, 50), 90);
    EXPECT_LT(geometry::length(placeOf(attribute, 10) - Vector{8, 20, 0}), 1e-12);
    EXPECT_EQ(integerOf(lastGroups(), 66), 1);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(BlockCommands, WithAttreqZeroAttributesHaveTheirDefaults)
{
    addAttribute();
    evaluate("(setvar \"ATTREQ\" 0) (command \"_.insert\" \"Door\" '(0 0) \"\" \"\" \"\")");
    EXPECT_EQ(textOf(database().groups(database().record(last()).next), 1), u"none");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(BlockCommands, WhatExplodeGivesIsPrevious)
{
    evaluate("(command \"_.insert\" \"Door\" '(10 20) 1 1 0 \"_.insert\" \"Door\" '(50 20) 1 1 0)"
             "(command \"_.explode\" \"_all\") (setq parts (ssget \"_P\"))");
    EXPECT_EQ(evaluate("(sslength parts)"), "4");
    EXPECT_EQ(evaluate("(equal (ssname parts 3) (entlast))"), "T");
    evaluate("(command \"_.erase\" \"_p\" \"\")");
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(BlockCommands, ExplodePutsTheObjectsOfABlockInItsPlace)
{
    evaluate("(command \"_.insert\" \"Door\" '(10 20) 2 2 90) (command \"_.explode\" (entlast))");
    EXPECT_THAT(types(), ElementsAre("LINE", "CIRCLE"));
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{10, 22, 0}), 1e-12);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), 2);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(BlockCommands, ACircleOfAStretchedBlockBecomesAnEllipse)
{
    evaluate("(command \"_.insert\" \"Door\" '(0 0) 2 4 0) (command \"_.explode\" \"_l\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "ELLIPSE"));
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{2, 0, 0}), 1e-12);
    EXPECT_NEAR(std::abs(placeOf(lastGroups(), 11).y), 4, 1e-12);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), 0.5);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(BlockCommands, AnAsteriskInsertsTheObjectsThemselves)
{
    evaluate("(command \"_.insert\" \"*Door\" '(0 0) 1 0)");
    EXPECT_THAT(types(), ElementsAre("LINE", "CIRCLE"));
}

TEST_F(BlockCommands, ExplodeStretchesLettersAndAttributesOfInsertsInTheBlock)
{
    addAttribute();
    evaluate("(setvar \"ATTREQ\" 1) (command \"_.-insert\" \"Door\" '(4 0) 1 1 0 \"12\" \"_.text\" '(0 0) 2 0 \"words\""
             " \"_.-block\" \"Wall\" '(0 0) \"_all\" \"\" \"_.-insert\" \"Wall\" '(10 0) 3 2 0"
             " \"_.explode\" \"_l\")");
    EXPECT_THAT(types(), ElementsAre("INSERT", "TEXT"));
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), 4);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 41), 1.5);
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{10, 0, 0}));
    evaluate("(setq insert (entget (ssname (ssget \"_X\" '((0 . \"INSERT\"))) 0)) attribute (entget (entnext (cdr (car "
             "insert)))))");
    EXPECT_EQ(evaluate("(list (cdr (assoc 41 insert)) (cdr (assoc 42 insert)) (cdr (assoc 10 insert)))"),
              "(3.0 2.0 (22.0 0.0 0.0))");
    EXPECT_EQ(evaluate("(list (cdr (assoc 1 attribute)) (cdr (assoc 40 attribute)) (cdr (assoc 41 attribute))"
                       " (cdr (assoc 10 attribute)))"),
              "(\"12\" 1.0 1.5 (22.0 2.0 0.0))");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(BlockCommands, ExplodeStretchesThePictureOfADimensionWhichShowsWhatItMeasured)
{
    evaluate("(command \"_.dimlinear\" '(0 0) '(4 0) '(0 3) \"_.-block\" \"Dim\" '(0 0) \"_l\" \"\""
             " \"_.-insert\" \"Dim\" '(10 0) 3 2 0 \"_.explode\" \"_l\")");
    EXPECT_THAT(types(), ElementsAre("DIMENSION"));
    const drawing::GroupList dimension = lastGroups();
    EXPECT_EQ(placeOf(dimension, 14), (Vector{22, 0, 0}));
    EXPECT_DOUBLE_EQ(realOf(dimension, 42), 4);
    const auto picture = m_document.drawing().tables().find(drawing::known::Block, textOf(dimension, 2));
    ASSERT_NE(picture, drawing::NoRecord);
    bool hasText = false;
    for (const drawing::RecordId id : drawing::entitiesIn(database(), picture)) {
        const drawing::GroupList groups = database().groups(id);
        if (const std::u16string type = textOf(groups, 0); type != u"MTEXT" && type != u"TEXT")
            continue;
        hasText = true;
        EXPECT_THAT(QString::fromStdU16String(textOf(groups, 1)).toStdString(), testing::EndsWith("4.00"));
    }
    EXPECT_TRUE(hasText);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(BlockCommands, ExplodeMakesLinesAndArcsOfAPolyline)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"_a\" \"10,10\" \"_l\" \"_c\") (command \"_.explode\" (entlast))");
    EXPECT_THAT(types(), ElementsAre("LINE", "ARC", "LINE"));
    evaluate("(command \"_.erase\" \"_l\" \"\")");
    EXPECT_LT(geometry::length(placeOf(lastGroups(), 10) - Vector{10, 5, 0}), 1e-9);
    EXPECT_DOUBLE_EQ(realOf(lastGroups(), 40), 5);
    EXPECT_NEAR(realOf(lastGroups(), 50), 270, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 51), 90, 1e-9);
}

TEST_F(BlockCommands, WhatCannotBeExplodedStays)
{
    evaluate("(command \"_.point\" \"0,0\") (setvar \"CMDECHO\" 1) (command \"_.explode\" (entlast))");
    EXPECT_THAT(takePrinted(), testing::HasSubstr("1 could not be exploded."));
    EXPECT_EQ(evaluate("(eq (ssname (ssget \"_P\") 0) (entlast))"), "T");
    EXPECT_THAT(types(), ElementsAre("POINT"));
}

TEST_F(BlockCommands, BlockTakesObjectsOutOfTheDrawing)
{
    evaluate("(command \"_.line\" \"5,5\" \"6,5\" \"\") (command \"_.-block\" \"Part\" \"5,5\" \"_l\" \"\")"
             "(command \"_.insert\" \"Part\" '(0 0) \"\" \"\" \"\") (command \"_.explode\" \"_l\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{0, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{1, 0, 0}));
    evaluate("(command \"_.oops\")");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(BlockCommands, ARedefinitionBringsItsBasePointAndItsFlags)
{
    evaluate("(entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 5.0 5.0 0.0)))"
             "(entmake '((0 . \"LINE\") (10 5.0 5.0 0.0) (11 6.0 5.0 0.0))) (entmake '((0 . \"ENDBLK\")))"
             "(entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 2) (10 1.0 2.0 0.0)))"
             "(entmake '((0 . \"LINE\") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0))) (entmake '((0 . \"ENDBLK\")))"
             "(setq b (tblsearch \"BLOCK\" \"B\"))");
    EXPECT_EQ(evaluate("(list (assoc 10 b) (assoc 70 b))"), "((10 1.0 2.0 0.0) (70 . 2))");
    evaluate("(command \"_.circle\" '(7 7) 1 \"_.-block\" \"B\" \"_y\" '(7 7) \"_l\" \"\")"
             "(setq b (tblsearch \"BLOCK\" \"B\"))");
    EXPECT_EQ(evaluate("(list (assoc 10 b) (assoc 70 b))"), "((10 0.0 0.0 0.0) (70 . 0))");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(BlockCommands, ABlockThatWouldContainItselfIsRefused)
{
    evaluate("(command \"_.circle\" '(0 0) 1 \"_.-block\" \"A\" '(0 0) \"_l\" \"\""
             " \"_.-insert\" \"A\" '(0 0) 1 1 0 \"_.-block\" \"B\" '(0 0) \"_l\" \"\""
             " \"_.-insert\" \"B\" '(0 0) 1 1 0)");
    takePrinted();
    evaluate("(command \"_.-block\" \"A\" \"_y\" '(0 0) (entlast) \"\")");
    EXPECT_EQ(takePrinted(), "\nBlock A references itself\n");
    EXPECT_EQ(evaluate("(cdr (assoc 0 (entget (entlast))))"), "\"INSERT\"");
    EXPECT_EQ(evaluate("(entmake '((0 . \"BLOCK\") (2 . \"A\") (70 . 0) (10 0.0 0.0 0.0)))"
                       "(entmake '((0 . \"INSERT\") (2 . \"B\") (10 0.0 0.0 0.0))) (entmake '((0 . \"ENDBLK\")))"),
              "nil");
    EXPECT_EQ(evaluate("(cdr (assoc 0 (entget (cdr (assoc -2 (tblsearch \"BLOCK\" \"A\"))))))"), "\"CIRCLE\"");
}

TEST_F(BlockCommands, AnonymousBlocksGetTheNextNumber)
{
    evaluate("(defun anonymous () (entmake '((0 . \"BLOCK\") (2 . \"*U\") (70 . 1) (10 0 0 0)))"
             " (entmake '((0 . \"ENDBLK\"))))");
    EXPECT_EQ(evaluate("(list (anonymous) (anonymous) (anonymous) (anonymous) (anonymous))"),
              "(\"*U1\" \"*U2\" \"*U3\" \"*U4\" \"*U5\")");
    EXPECT_EQ(evaluate("(command \"_.undo\" \"_m\") (anonymous) (command \"_.undo\" \"_b\") (anonymous)"), "\"*U6\"");
}

class StretchedBlock : public CommandTest
{
protected:
    // A block OUTER with an entity that a command makes, exploded out of an insert with the scales 2 and 1 turned
    // by 90.
    void explodeStretched(const std::string &making)
    {
        evaluate("(command " + making +
                 ") (command \"_.-block\" \"OUTER\" '(0 0) (entlast) \"\""
                 " \"_.-insert\" \"OUTER\" '(100 50) 2 1 90)");
        before = geometry::extentsOf(m_document.drawing(), last());
        evaluate("(command \"_.explode\" (entlast))");
        after.reset();
        for (const drawing::RecordId id : drawing::entitiesIn(database(), database().section(drawing::known::Entities)))
            if (const std::optional<geometry::Box> box = geometry::extentsOf(m_document.drawing(), id)) {
                after = after.value_or(geometry::Box());
                after->add(*box);
            }
    }
    void expectSamePlace()
    {
        ASSERT_TRUE(before && after);
        EXPECT_LT(length(before->minimum - after->minimum), 1e-9);
        EXPECT_LT(length(before->maximum - after->maximum), 1e-9);
    }
    std::optional<geometry::Box> before, after;
};

TEST_F(StretchedBlock, ABlockInItIsScaledByAxis)
{
    evaluate("(command \"_.rectang\" '(0 0) '(1 1) \"_.-block\" \"SQ\" '(0 0) \"_l\" \"\")");
    explodeStretched("\"_.-insert\" \"SQ\" '(1 2) 1 -3 90");
    EXPECT_EQ(types(), (std::vector<std::string>{"INSERT"}));
    expectSamePlace();
    EXPECT_EQ(evaluate("(command \"_.explode\" (entlast)) (cdr (assoc 0 (entget (entlast))))"), "\"LWPOLYLINE\"");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(StretchedBlock, ABlockInItThatWouldBeShearedStaysAndIsSaid)
{
    evaluate("(command \"_.rectang\" '(0 0) '(1 1) \"_.-block\" \"SQ\" '(0 0) \"_l\" \"\")");
    evaluate("(setvar \"CMDECHO\" 1)");
    explodeStretched("\"_.-insert\" \"SQ\" '(1 2) 1 1 30");
    EXPECT_THAT(takePrinted(), testing::HasSubstr("1 could not be exploded."));
    EXPECT_EQ(types(), (std::vector<std::string>{"INSERT"}));
    EXPECT_EQ(drawing::textOf(lastGroups(), 2), u"OUTER");
    expectSamePlace();
}

TEST_F(StretchedBlock, ArcsOfAPolylineBecomeThoseOfEllipses)
{
    explodeStretched("\"_.pline\" '(0 0) '(10 0) \"_a\" '(10 10) \"_l\" \"_c\"");
    EXPECT_EQ(types(), (std::vector<std::string>{"LINE", "ELLIPSE", "LINE"}));
    expectSamePlace();
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(StretchedBlock, WhatHasNoKnownGeometryStaysInIt)
{
    evaluate("(entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 0.0 0.0 0.0)))"
             "(entmake '((0 . \"3DSOLID\") (100 . \"AcDbEntity\") (100 . \"AcDbModelerGeometry\")))"
             "(entmake '((0 . \"ENDBLK\"))) (command \"_.-insert\" \"B\" '(5 5) 1 1 0 \"_.explode\" (entlast))");
    EXPECT_EQ(types(), (std::vector<std::string>{"INSERT"}));
}

} // namespace
