#include "tests/host/drawing/SampleDrawing.h"

#include <QFile>

#include <gmock/gmock.h>

namespace drawing {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> typesIn(const Database &database, RecordId start)
{
    std::vector<std::string> types;
    for (RecordId id = database.firstIn(start); id != NoRecord; id = database.nextIn(id))
        types.emplace_back(database.names().text(database.record(id).type));
    return types;
}

TEST(Database, KnowsSectionsTablesAndBlocksByWhatTheyHold)
{
    const auto database = databaseOf(SampleText);
    EXPECT_THAT(typesIn(*database, database->section(known::Entities)),
                ElementsAre("LINE", "POLYLINE", "VERTEX", "SEQEND", "UNHEARD_OF"));
    EXPECT_THAT(typesIn(*database, findType(*database, "BLOCK")), ElementsAre("CIRCLE"));
    EXPECT_THAT(typesIn(*database, findType(*database, "TABLE")), ElementsAre("LAYER"));
    EXPECT_EQ(database->section(known::Objects), NoRecord);
    EXPECT_EQ(database->version(), "AC1015");
    EXPECT_EQ(database->oddities().count, 0);
}

TEST(Database, KnowsHandlesNamesAndSpaces)
{
    const auto database = databaseOf(SampleText);
    const RecordId line = database->find({0x23});
    EXPECT_EQ(database->type(line), u"LINE");
    EXPECT_EQ(database->name(line), u"Walls");
    EXPECT_EQ(database->name(database->find({0x20})), u"Door");
    EXPECT_EQ(database->name(database->find({0x10})), u"Walls");
    EXPECT_FALSE(database->record(line).has(Record::PaperSpace));
    EXPECT_TRUE(database->record(database->find({0x27})).has(Record::PaperSpace));
    EXPECT_EQ(database->find({0x28}), NoRecord); // what an unknown section's groups mean is not known
    EXPECT_EQ(database->find({0}), NoRecord);
}

TEST(Database, VerticesArePartsOfTheirPolyline)
{
    const auto database = databaseOf(SampleText);
    const RecordId polyline = database->find({0x24});
    EXPECT_EQ(database->record(database->find({0x25})).container, polyline);
    EXPECT_EQ(database->record(database->find({0x26})).container, polyline);
    EXPECT_TRUE(database->isPart(database->find({0x26})));
    EXPECT_FALSE(database->isPart(polyline));
    EXPECT_FALSE(database->isPart(database->find({0x27})));
}

TEST(Database, GivesTheGroupsOfARecordWithPointsAsOne)
{
    const auto database = databaseOf(SampleText);
    EXPECT_EQ(database->groups(database->find({0x23})), (GroupList{{0, u"LINE"},
                                                                   {5, u"23"},
                                                                   {330, Handle{0x1F}},
                                                                   {100, u"AcDbEntity"},
                                                                   {8, u"Walls"},
                                                                   {100, u"AcDbLine"},
                                                                   {10, Point{0, 0, 0, 3}},
                                                                   {11, Point{10, 5, 0, 3}},
                                                                   {1001, u"OWN"},
                                                                   {1000, u"text"}}));
    EXPECT_EQ(database->groups(database->find({0x25})).back(), (Group{10, Point{0, 0, 0, 2}}));
}

TEST(Database, RecordsWithoutHandlesHaveOnesAfterThoseOfTheFile)
{
    const auto database =
        databaseOf("0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n0\n0\nPOINT\n5\nA\n8\n0\n0\nENDSEC\n0\nEOF\n");
    const RecordId first = findType(*database, "POINT");
    EXPECT_EQ(database->record(first).handle, 0xB);
    EXPECT_TRUE(database->record(first).has(Record::AssignedHandle));
    EXPECT_EQ(database->find({0xB}), first);
    EXPECT_TRUE(database->isBefore2000());
    EXPECT_TRUE(database->writesHandles());
}

TEST(Database, TheFirstOfSeveralRecordsHasTheHandleAndTheRestIsOdd)
{
    const auto database = databaseOf("0\nSECTION\n2\nENTITIES\n0\nPOINT\n5\nA\n0\nLINE\n5\nA\n0\nENDSEC\n0\nEOF\n");
    EXPECT_EQ(database->type(database->find({0xA})), u"POINT");
    EXPECT_TRUE(database->record(findType(*database, "LINE")).has(Record::SameHandle));
    EXPECT_EQ(database->oddities().count, 1);
    EXPECT_EQ(database->oddities().first, "handle A stands in several records");
}

TEST(Database, SaysWhereTheFirstOddityIs)
{
    const auto database = databaseOf("0\nSECTION\n2\nENTITIES\nwrong\n0\nVERTEX\n8\n0\n");
    EXPECT_EQ(database->oddities().count, 3);
    EXPECT_THAT(database->oddities().first, HasSubstr("line 6: a part of an entity stands alone"));
}

TEST(Database, CountsValuesThatAreNoNumbersWhereTheCodesAreKnown)
{
    const auto database =
        databaseOf("0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n0\n10\nabc\n20\n1e999\n30\n0\n62\n99999999999\n"
                   "0\nENDSEC\n0\nSECTION\n2\nOWN\n0\nTHING\n10\nabc\n0\nENDSEC\n0\nEOF\n");
    EXPECT_EQ(database->oddities().count, 3);
    EXPECT_EQ(database->oddities().first, "line 10: a number was expected");
}

TEST(Database, ADimensionStylesHandleStandsUnderACodeOfItsOwn)
{
    const auto database = databaseOf("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nDIMSTYLE\n0\nDIMSTYLE\n105\n2A\n2\nStandard\n"
                                     "5\nDOT\n0\nENDTAB\n0\nENDSEC\n0\nEOF\n");
    EXPECT_EQ(database->name(database->find({0x2A})), u"Standard");
}

TEST(Database, AFileThatIsNotThereSaysSo)
{
    QFile missing(QStringLiteral("/nonexistent/plan.dxf"));
    ASSERT_FALSE(missing.open(QIODevice::ReadOnly));
    try {
        Database::read(missing.fileName());
        FAIL();
    } catch (const ReadError &error) {
        EXPECT_EQ(error.what(), "/nonexistent/plan.dxf: " + missing.errorString().toStdString());
    }
}

} // namespace
} // namespace drawing
