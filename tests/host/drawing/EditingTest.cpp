#include "tests/host/drawing/SampleDrawing.h"

#include <gmock/gmock.h>

#include <limits>

namespace drawing {
namespace {

using testing::HasSubstr;
using testing::Not;

// The text with one part, which it has once, replaced.
std::string sampleWith(std::string_view what, std::string_view with)
{
    std::string text(SampleText);
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos);
    return text.replace(at, what.size(), with);
}

class Editing : public testing::Test
{
protected:
    const std::unique_ptr<Database> m_database = databaseOf(SampleText);
    const RecordId m_line = m_database->find({0x23});
    const GroupList m_groups = m_database->groups(m_line);
    std::string written() const { return writtenDrawing(*m_database); }
};

TEST_F(Editing, OnlyTheChangedGroupIsRewritten)
{
    EXPECT_TRUE(m_database->replace(m_line, withValue(m_groups, 1000, u"other")));
    EXPECT_EQ(written(), sampleWith("1000\ntext\n", "1000\nother\n"));
}

TEST_F(Editing, OnlyTheChangedCoordinateIsRewritten)
{
    EXPECT_TRUE(m_database->replace(m_line, withValue(m_groups, 11, Point{12.25, 5, 0, 3})));
    EXPECT_EQ(written(), sampleWith("\n10.0\n", "\n12.25\n"));
}

TEST_F(Editing, TheSameGroupsChangeNothing)
{
    EXPECT_TRUE(m_database->replace(m_line, m_groups));
    EXPECT_EQ(m_database->record(m_line).text, 0);
    EXPECT_EQ(m_database->journal().undoableSteps(), 0);
}

TEST_F(Editing, AnAddedGroupStandsBetweenItsNeighbours)
{
    GroupList groups = m_groups;
    groups.insert(groups.begin() + 5, {62, std::int64_t{1}});
    EXPECT_TRUE(m_database->replace(m_line, groups));
    EXPECT_EQ(written(), sampleWith("Walls\n999\nthe long wall\n", "Walls\n 62\n1\n999\nthe long wall\n"));
}

TEST_F(Editing, AGroupThatIsLeftOutIsGoneAndCommentsStay)
{
    GroupList groups = m_groups;
    groups.erase(groups.begin() + 5);
    EXPECT_TRUE(m_database->replace(m_line, groups));
    EXPECT_EQ(written(), sampleWith("100\nAcDbLine\n", ""));
}

TEST_F(Editing, TypeAndHandleStayWhateverTheGroupsSay)
{
    EXPECT_TRUE(m_database->replace(m_line, withValue(withValue(m_groups, 0, u"CIRCLE"), 5, u"99")));
    EXPECT_EQ(written(), SampleText);
    GroupList without(m_groups.begin() + 2, m_groups.end());
    EXPECT_TRUE(m_database->replace(m_line, without));
    EXPECT_EQ(written(), SampleText);
}

TEST_F(Editing, WhatTheRecordSaysOfItsGroupsFollows)
{
    GroupList groups = withValue(m_groups, 8, u"Doors");
    groups.insert(groups.begin() + 5, {67, std::int64_t{1}});
    EXPECT_TRUE(m_database->replace(m_line, groups));
    EXPECT_EQ(m_database->name(m_line), u"Doors");
    EXPECT_TRUE(m_database->record(m_line).has(Record::PaperSpace));
}

TEST_F(Editing, AValueThatCannotBeWrittenChangesNothing)
{
    for (const GroupValue &value : {GroupValue(u"text"), GroupValue(std::numeric_limits<double>::infinity()),
                                    GroupValue(Bytes{"x"}), GroupValue(Handle{1})})
        EXPECT_FALSE(m_database->replace(m_line, withValue(m_groups, 10, value)));
    EXPECT_FALSE(m_database->replace(m_line, withValue(m_groups, 8, 1.5)));
    GroupList groups = m_groups;
    groups.push_back({70, std::int64_t{70000}});
    EXPECT_FALSE(m_database->replace(m_line, groups));
    EXPECT_EQ(written(), SampleText);
    EXPECT_EQ(m_database->journal().undoableSteps(), 0);
}

TEST_F(Editing, AnErasedEntityIsNotWrittenAndComesBackWhereItWas)
{
    m_database->erase(m_line);
    EXPECT_THAT(written(), Not(HasSubstr("AcDbLine")));
    EXPECT_THAT(written(), HasSubstr("ENTITIES\n999\nthe long wall\n  0\nPOLYLINE")); // a comment outlives its entity
    m_database->restore(m_line);
    EXPECT_EQ(written(), SampleText);
}

TEST_F(Editing, APolylineIsErasedWithItsVertices)
{
    m_database->erase(m_database->find({0x24}));
    EXPECT_TRUE(m_database->record(m_database->find({0x26})).has(Record::Erased));
    EXPECT_THAT(written(), Not(HasSubstr("VERTEX")));
    EXPECT_THAT(written(), HasSubstr("UNHEARD_OF"));
    m_database->restore(m_database->find({0x24}));
    EXPECT_EQ(written(), SampleText);
}

TEST_F(Editing, ANewEntityStandsAtItsPlaceWithTheNextHandle)
{
    const RecordId end = m_database->endOf(m_database->section(known::Entities));
    const RecordId added =
        m_database->add(RecordKind::Entity, {{0, u"POINT"}, {8, u"Walls"}, {10, Point{1, 2, 0.1, 3}}}, end);
    ASSERT_NE(added, NoRecord);
    EXPECT_EQ(m_database->find({0x30}), added);
    EXPECT_EQ(m_database->record(added).container, m_database->section(known::Entities));
    std::string expected = sampleWith("$HANDSEED\n  5\n30\n", "$HANDSEED\n  5\n31\n");
    const std::string_view before = "kept\n 67\n     1\n";
    expected.insert(expected.find(before) + before.size(),
                    "  0\nPOINT\n  5\n30\n  8\nWalls\n 10\n1.0\n 20\n2.0\n 30\n0.1\n");
    EXPECT_EQ(written(), expected);
}

TEST_F(Editing, AnAddedEntityThatWasErasedLeavesNoTrace)
{
    const RecordId end = m_database->endOf(m_database->section(known::Entities));
    m_database->erase(m_database->add(RecordKind::Entity, {{0, u"POINT"}, {8, u"Walls"}}, end));
    EXPECT_EQ(written(), SampleText);
}

TEST_F(Editing, NewVerticesArePartsOfTheirPolyline)
{
    const RecordId end = m_database->endOf(m_database->section(known::Entities));
    const auto add = [&](const char16_t *type) {
        return m_database->add(RecordKind::Entity, {{0, type}, {8, u"0"}}, end);
    };
    const RecordId polyline = add(u"POLYLINE"), vertex = add(u"VERTEX"), sequenceEnd = add(u"SEQEND"),
                   point = add(u"POINT");
    EXPECT_EQ(m_database->record(vertex).container, polyline);
    EXPECT_EQ(m_database->record(sequenceEnd).container, polyline);
    EXPECT_EQ(m_database->record(point).container, m_database->section(known::Entities));
}

TEST_F(Editing, AMissingSectionIsMadeInItsPlace)
{
    m_database->ensureSection(known::Objects);
    EXPECT_THAT(written(), HasSubstr("  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n  0\nENDSEC\n  0\nEOF\nand more"));
    m_database->ensureSection(known::Classes);
    EXPECT_THAT(written(), HasSubstr("  2\nCLASSES\n  0\nENDSEC\n  0\nSECTION\n  2\nTABLES\n"));
    EXPECT_EQ(m_database->ensureSection(known::Objects), m_database->section(known::Objects));
}

TEST(EditingACutFile, AddsBehindALastLineWithoutEnd)
{
    const auto database = databaseOf("0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\nA");
    const RecordId end = database->endOf(database->section(known::Entities));
    database->add(RecordKind::Entity, {{0, u"LINE"}, {8, u"B"}}, end);
    EXPECT_EQ(writtenDrawing(*database), "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\nA\n0\nLINE\n8\nB\n0\nENDSEC\n");
    const RecordId point = findType(*database, "POINT");
    database->replace(point, {{0, u"POINT"}, {8, u"C"}});
    EXPECT_EQ(writtenDrawing(*database), "0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\nC\n0\nLINE\n8\nB\n0\nENDSEC\n");
}

} // namespace
} // namespace drawing
