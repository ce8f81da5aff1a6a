#include "host/drawing/SymbolTables.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/NewDrawing.h"
#include "tests/host/drawing/Audit.h"
#include "tests/host/drawing/SampleDrawing.h"

#include <gmock/gmock.h>

namespace drawing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

GroupList layer(std::u16string name)
{
    return {{0, u"LAYER"}, {2, std::move(name)}, {70, std::int64_t{0}}, {62, std::int64_t{1}}, {6, u"CONTINUOUS"}};
}

class Tables : public testing::Test
{
protected:
    std::vector<std::u16string> names(NameId table) const
    {
        std::vector<std::u16string> found;
        for (const RecordId id : m_tables.entries(table))
            found.push_back(m_database->name(id));
        return found;
    }

    const std::unique_ptr<Database> m_database = databaseOf(SampleText);
    SymbolTables m_tables{*m_database};
};

TEST_F(Tables, NamesAreFoundInAnyCase)
{
    EXPECT_EQ(m_tables.find(known::Layer, u"WALLS"), m_database->find({0x10}));
    EXPECT_EQ(m_tables.find(known::Block, u"door"), m_database->find({0x20}));
    EXPECT_EQ(m_tables.find(known::Layer, u"Wall"), NoRecord);
    EXPECT_EQ(m_tables.find(known::Style, u"Walls"), NoRecord);
}

TEST_F(Tables, ANewRecordStandsLastAndIsCounted)
{
    const RecordId added = m_tables.add(known::Layer, layer(u"Türen"));
    EXPECT_EQ(m_tables.find(known::Layer, u"TÜREN"), added);
    EXPECT_EQ(m_database->record(added).container, m_tables.start(known::Layer));
    EXPECT_THAT(names(known::Layer), ElementsAre(u"Walls", u"Türen"));
    EXPECT_THAT(writtenDrawing(*m_database), HasSubstr("AcDbSymbolTable\n 70\n2\n"));
    EXPECT_THAT(
        writtenDrawing(*m_database),
        HasSubstr("CONTINUOUS\n  0\nLAYER\n  5\n30\n  2\nT\xFCren\n 70\n0\n 62\n1\n  6\nCONTINUOUS\n  0\nENDTAB"));
}

TEST_F(Tables, TheCountFollowsWhatWasErasedAndUndone)
{
    const auto count = [this] {
        return *findValue<std::int64_t>(m_database->groups(m_tables.start(known::Layer)), groupcode::Count);
    };
    const auto add = [this](std::u16string name) {
        m_database->journal().nextStep();
        return m_tables.add(known::Layer, layer(std::move(name)));
    };
    add(u"A");
    const RecordId erased = add(u"B");
    EXPECT_EQ(count(), 3);
    m_database->erase(erased);
    add(u"C");
    EXPECT_EQ(count(), 3);
    m_database->restore(erased);
    add(u"D");
    EXPECT_EQ(count(), 5);
    m_database->journal().undo(2);
    EXPECT_EQ(count(), 3);
    add(u"E");
    add(u"F");
    EXPECT_EQ(count(), 4);
    EXPECT_EQ(m_tables.entries(known::Layer).size(), 4);
}

TEST_F(Tables, ATakenOrMissingNameIsRefused)
{
    EXPECT_EQ(m_tables.add(known::Layer, layer(u"WALLS")), NoRecord);
    EXPECT_EQ(m_tables.add(known::Layer, layer(u"")), NoRecord);
    EXPECT_EQ(m_tables.add(known::Layer, {{0, u"LAYER"}}), NoRecord);
    EXPECT_EQ(writtenDrawing(*m_database), SampleText);
}

TEST_F(Tables, ARenamedRecordIsFoundByItsNewNameAndByTheOldOneWhenUndone)
{
    const RecordId walls = m_database->find({0x10});
    m_database->replace(walls, withValue(m_database->groups(walls), 2, u"Roof"));
    EXPECT_EQ(m_tables.find(known::Layer, u"Roof"), walls);
    EXPECT_EQ(m_tables.find(known::Layer, u"Walls"), NoRecord);
    const RecordId other = m_tables.add(known::Layer, layer(u"Walls"));
    EXPECT_EQ(m_tables.find(known::Layer, u"Walls"), other);
    m_database->journal().undo();
    EXPECT_EQ(m_tables.find(known::Layer, u"Walls"), walls);
    EXPECT_EQ(m_tables.find(known::Layer, u"Roof"), NoRecord);
    EXPECT_THAT(names(known::Layer), ElementsAre(u"Walls"));
}

TEST_F(Tables, AnErasedRecordIsNotFoundAndFreesItsName)
{
    m_database->erase(m_database->find({0x10}));
    EXPECT_EQ(m_tables.find(known::Layer, u"Walls"), NoRecord);
    EXPECT_NE(m_tables.add(known::Layer, layer(u"Walls")), NoRecord);
}

TEST_F(Tables, AMissingTableIsMade)
{
    EXPECT_NE(m_tables.add(known::Application, {{0, u"APPID"}, {2, u"OWN"}, {70, std::int64_t{0}}}), NoRecord);
    EXPECT_THAT(
        writtenDrawing(*m_database),
        HasSubstr("ENDTAB\n  0\nTABLE\n  2\nAPPID\n  5\n30\n330\n0\n100\nAcDbSymbolTable\n 70\n1\n  0\nAPPID\n"));
    EXPECT_THAT(names(known::Application), ElementsAre(u"OWN"));
}

TEST_F(Tables, ADrawingWithoutAnySectionGetsThem)
{
    const auto database = databaseOf("  0\nEOF\n");
    SymbolTables tables(*database);
    EXPECT_NE(tables.add(known::Layer, layer(u"A")), NoRecord);
    EXPECT_EQ(writtenDrawing(*database),
              "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n 70\n1\n  0\nLAYER\n  2\nA\n"
              " 70\n0\n 62\n1\n  6\nCONTINUOUS\n  0\nENDTAB\n  0\nENDSEC\n  0\nEOF\n");
    database->journal().undo();
    EXPECT_EQ(writtenDrawing(*database), "  0\nEOF\n");
}

TEST(Blocks, ANewBlockIsSoundForAnotherReader)
{
    Database database(newDrawing());
    SymbolTables tables(database);
    const RecordId block = addBlock(database, tables, {u"Window", {1, 2, 0, 3}});
    ASSERT_NE(block, NoRecord);
    EXPECT_EQ(addBlock(database, tables, {u"WINDOW"}), NoRecord);
    const Handle owner = ownerOf(database, tables, block, false);
    const RecordId circle = database.add(RecordKind::Entity,
                                         {{0, u"CIRCLE"},
                                          {330, owner},
                                          {100, u"AcDbEntity"},
                                          {8, u"0"},
                                          {100, u"AcDbCircle"},
                                          {10, Point{0, 0, 0, 3}},
                                          {40, 2.0}},
                                         database.endOf(block));
    EXPECT_EQ(database.record(circle).container, block);
    EXPECT_EQ(database.firstIn(block), circle);
    EXPECT_EQ(auditOf(database), "");
}

TEST(Blocks, TheLastEntityIsNeitherErasedNorAPart)
{
    const auto database = databaseOf(SampleText);
    EXPECT_EQ(lastEntity(*database), database->find({0x27}));
    database->erase(database->find({0x27}));
    EXPECT_EQ(lastEntity(*database), database->find({0x24}));
    database->erase(database->find({0x24}));
    database->erase(database->find({0x23}));
    EXPECT_EQ(lastEntity(*database), NoRecord);
}

} // namespace
} // namespace drawing
