#include "host/drawing/Dictionaries.h"

#include "host/drawing/HeaderVariables.h"
#include "host/drawing/NewDrawing.h"
#include "tests/host/drawing/Audit.h"
#include "tests/host/drawing/SampleDrawing.h"

#include <gmock/gmock.h>

namespace drawing {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;

TEST(Dictionaries, NameTheirObjects)
{
    const Database database(newDrawing());
    const RecordId root = namedObjects(database);
    EXPECT_THAT(dictionaryEntries(database, root),
                ElementsAre(Field(&DictionaryEntry::name, u"ACAD_GROUP"), Field(&DictionaryEntry::name, u"ACAD_LAYOUT"),
                            Field(&DictionaryEntry::name, u"ACAD_MLINESTYLE"),
                            Field(&DictionaryEntry::name, u"ACAD_PLOTSETTINGS"),
                            Field(&DictionaryEntry::name, u"ACAD_PLOTSTYLENAME")));
    const RecordId styles = findEntry(database, root, u"acad_mlinestyle");
    EXPECT_EQ(database.type(findEntry(database, styles, u"Standard")), u"MLINESTYLE");
    EXPECT_EQ(findEntry(database, root, u"NOTHING"), NoRecord);
}

TEST(Dictionaries, EntriesComeChangeAndGo)
{
    Database database(newDrawing());
    const std::string before = writtenDrawing(database);
    const RecordId root = namedObjects(database);
    const RecordId added = addObject(database, {{0, u"XRECORD"},
                                                {330, Handle{database.record(root).handle}},
                                                {100, u"AcDbXrecord"},
                                                {280, std::int64_t{1}},
                                                {1, u"kept"}});
    EXPECT_TRUE(putEntry(database, root, u"OWN_DATA", {database.record(added).handle}));
    EXPECT_EQ(findEntry(database, root, u"own_data"), added);
    EXPECT_EQ(auditOf(database), "");
    EXPECT_TRUE(putEntry(database, root, u"OWN_DATA", {database.record(root).handle}));
    EXPECT_EQ(findEntry(database, root, u"OWN_DATA"), root);
    EXPECT_EQ(dictionaryEntries(database, root).size(), 6);
    EXPECT_TRUE(removeEntry(database, root, u"OWN_DATA"));
    EXPECT_FALSE(removeEntry(database, root, u"OWN_DATA"));
    database.erase(added);
    EXPECT_EQ(writtenDrawing(database), before);
}

TEST(Dictionaries, ADrawingWithoutObjectsGetsTheFirst)
{
    const auto database = databaseOf(SampleText);
    EXPECT_EQ(namedObjects(*database), NoRecord);
    const RecordId root = ensureNamedObjects(*database);
    EXPECT_EQ(namedObjects(*database), root);
    EXPECT_EQ(ensureNamedObjects(*database), root);
}

TEST(Dictionaries, AnEntityMayHaveItsOwn)
{
    const auto database = databaseOf(
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\nA\n102\n{ACAD_REACTORS\n360\n1\n102\n}\n102\n{ACAD_XDICTIONARY\n"
        "360\nB\n102\n}\n8\n0\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nB\n0\nENDSEC\n0\nEOF\n");
    EXPECT_EQ(extensionDictionary(*database, database->find({0xA})), database->find({0xB}));
    EXPECT_EQ(extensionDictionary(*database, database->find({0xB})), NoRecord);
}

TEST(HeaderVariables, AreReadChangedAndAdded)
{
    const auto database = databaseOf(SampleText);
    EXPECT_EQ(variable(*database, "$ACADVER"), (Group{1, u"AC1015"}));
    EXPECT_EQ(variable(*database, "$CLAYER"), std::nullopt);
    EXPECT_TRUE(setVariable(*database, "$CLAYER", {8, u"Walls"}));
    EXPECT_TRUE(setVariable(*database, "$INSBASE", {10, Point{1, 2, 3, 3}}));
    EXPECT_TRUE(setVariable(*database, "$INSBASE", {10, Point{1, 2.5, 3, 3}}));
    EXPECT_EQ(variable(*database, "$INSBASE"), (Group{10, Point{1, 2.5, 3, 3}}));
    EXPECT_THAT(writtenDrawing(*database),
                HasSubstr("30\n  9\n$CLAYER\n  8\nWalls\n  9\n$INSBASE\n 10\n1.0\n 20\n2.5\n 30\n3.0\n  0\nENDSEC"));
    EXPECT_FALSE(setVariable(*database, "$INSBASE", {10, u"text"}));
    database->journal().undo();
    EXPECT_EQ(writtenDrawing(*database), SampleText);
}

} // namespace
} // namespace drawing
