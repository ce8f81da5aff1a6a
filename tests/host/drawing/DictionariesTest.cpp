#include "host/drawing/Dictionaries.h"

#include "host/drawing/HeaderVariables.h"
#include "host/drawing/NewDrawing.h"
#include "tests/host/drawing/Audit.h"
#include "tests/host/drawing/SampleDrawing.h"

#include <QString>

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

std::u16string numbered(int number)
{
    return u"ENTRY" + QString::number(number).toStdU16String();
}

// The drawing before each step, and behind the last.
std::vector<std::string> addStepByStep(Database &database, RecordId dictionary, int from, int to)
{
    std::vector<std::string> stages{writtenDrawing(database)};
    for (int number = from; number < to; ++number) {
        database.journal().nextStep();
        EXPECT_TRUE(putEntry(database, dictionary, numbered(number), {database.record(dictionary).handle}));
        stages.push_back(writtenDrawing(database));
    }
    return stages;
}

TEST(Dictionaries, EachEntryIsAStepThatIsUndoneAndRedoneByteForByte)
{
    constexpr int Count = 40, Undone = 25;
    Database database(newDrawing());
    const RecordId root = namedObjects(database);
    const std::vector<std::string> stages = addStepByStep(database, root, 0, Count);
    const auto again = databaseOf(stages.back());
    EXPECT_EQ(dictionaryEntries(*again, namedObjects(*again)), dictionaryEntries(database, root));
    for (int step = Count - 1; step >= 0; --step) {
        EXPECT_EQ(database.journal().undo(), 1);
        EXPECT_EQ(writtenDrawing(database), stages[static_cast<std::size_t>(step)]);
        EXPECT_EQ(findEntry(database, root, numbered(step)), NoRecord);
    }
    for (std::size_t step = 1; step < stages.size(); ++step) {
        EXPECT_EQ(database.journal().redo(), 1);
        EXPECT_EQ(writtenDrawing(database), stages[step]);
    }
    database.journal().undo(Undone); // other entries follow those that are left
    const std::vector<std::string> others = addStepByStep(database, root, 1000, 1010);
    EXPECT_EQ(findEntry(database, root, u"entry1009"), root);
    EXPECT_EQ(findEntry(database, root, numbered(Count - 1)), NoRecord);
    database.journal().undo(10);
    EXPECT_EQ(writtenDrawing(database), stages[Count - Undone]);
    database.journal().redo(10);
    EXPECT_EQ(writtenDrawing(database), others.back());
}

// Only when the memory that it stands in is full is it copied to a larger one, and no step has a copy of its own.
TEST(Dictionaries, AGrowingOneIsSeldomCopied)
{
    constexpr int Count = 3000, MostCopies = 32;
    Database database(newDrawing());
    const RecordId root = namedObjects(database);
    int copies = 0;
    const char *place = nullptr;
    for (int number = 0; number < Count; ++number) {
        database.journal().nextStep();
        putEntry(database, root, numbered(number), {database.record(root).handle});
        copies += database.bytes(root).data() != place ? 1 : 0;
        place = database.bytes(root).data();
    }
    EXPECT_LT(copies, MostCopies);
    EXPECT_EQ(dictionaryEntries(database, root).size(), Count + 5);
}

TEST(Dictionaries, NewEntriesStandBeforeWhatIsNoEntry)
{
    const auto database =
        databaseOf("0\nSECTION\n2\nOBJECTS\n0\nACDBDICTIONARYWDFLT\n5\nA\n100\nAcDbDictionary\n3\nOld\n"
                   "350\nB\n100\nAcDbDictionaryWithDefault\n340\nB\n1001\nACAD\n1000\nOld\n0\nXRECORD\n5\n"
                   "B\n0\nENDSEC\n0\nEOF\n");
    const RecordId dictionary = database->find({0xA}), object = database->find({0xB});
    EXPECT_TRUE(putEntry(*database, dictionary, u"New", {0xB}));
    EXPECT_TRUE(putEntry(*database, dictionary, u"Newer", {0xB}));
    EXPECT_THAT(
        writtenDrawing(*database),
        HasSubstr("3\nOld\n350\nB\n3\nNew\n350\nB\n3\nNewer\n350\nB\n100\nAcDbDictionaryWithDefault\n340\nB\n1001\n"));
    EXPECT_EQ(findEntry(*database, dictionary, u"newer"), object);
    EXPECT_TRUE(removeEntry(*database, dictionary, u"New"));
    EXPECT_EQ(findEntry(*database, dictionary, u"New"), NoRecord);
    EXPECT_EQ(findEntry(*database, dictionary, u"Newer"), object);
}

TEST(Dictionaries, CommentsAtTheEndStayThere)
{
    const auto database = databaseOf(
        "0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nA\n100\nAcDbDictionary\n999\nfor the next\n0\nENDSEC\n0\nEOF\n");
    EXPECT_TRUE(putEntry(*database, database->find({0xA}), u"New", {0xA}));
    EXPECT_THAT(writtenDrawing(*database), HasSubstr("AcDbDictionary\n3\nNew\n350\nA\n999\nfor the next\n0\nENDSEC"));
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
