#include "host/drawing/NewDrawing.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/Layouts.h"
#include "tests/host/drawing/Audit.h"

#include <gmock/gmock.h>

namespace drawing {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;

TEST(NewDrawing, IsSoundForAnotherReader)
{
    EXPECT_EQ(auditOf(Database(newDrawing())), "");
}

TEST(NewDrawing, TheAuditFindsWhatIsWrong)
{
    Database database(newDrawing());
    const RecordId end = database.endOf(database.section(known::Entities));
    database.add(RecordKind::Entity, {{0, u"POINT"}, {100, u"AcDbEntity"}, {8, u"0"}, {6, u"NOT_THERE"}}, end);
    EXPECT_THAT(auditOf(database), testing::HasSubstr("undefined linetype"));
}

TEST(NewDrawing, HasNothingOdd)
{
    const Database database(newDrawing());
    EXPECT_EQ(database.oddities().count, 0);
    EXPECT_EQ(database.version(), "AC1032");
    EXPECT_EQ(lastEntity(database), NoRecord);
}

TEST(NewDrawing, TheNextHandleFollowsTheLast)
{
    const Database database(newDrawing());
    std::uint64_t last = 0;
    for (RecordId id = 0; id < database.recordCount(); ++id) {
        last = std::max(last, database.record(id).handle);
        EXPECT_FALSE(database.record(id).has(Record::AssignedHandle)) << id;
    }
    EXPECT_EQ(std::get<std::u16string>(variable(database, "$HANDSEED")->value), u"22");
    EXPECT_EQ(last, 0x21);
    EXPECT_EQ(database.handleSeed(), 0x22);
}

TEST(NewDrawing, HasTheModelAndALayout)
{
    const Database database(newDrawing());
    EXPECT_THAT(layouts(database), ElementsAre(AllOf(Field(&Layout::name, u"Model"), Field(&Layout::tab, 0)),
                                               AllOf(Field(&Layout::name, u"Layout1"), Field(&Layout::tab, 1))));
    EXPECT_EQ(database.name(layouts(database)[1].blockRecord), u"*Paper_Space");
}

TEST(NewDrawing, SpacesOwnTheirEntities)
{
    Database database(newDrawing());
    const SymbolTables tables(database);
    const RecordId entities = database.section(known::Entities);
    const RecordId model = tables.find(known::BlockRecord, ModelSpace);
    const RecordId paper = tables.find(known::BlockRecord, u"*PAPER_SPACE");
    EXPECT_EQ(ownerOf(database, tables, entities, false), Handle{database.record(model).handle});
    EXPECT_EQ(ownerOf(database, tables, entities, true), Handle{database.record(paper).handle});
    EXPECT_EQ(ownerOf(database, tables, tables.find(known::Block, PaperSpace), false),
              Handle{database.record(paper).handle});
}

} // namespace
} // namespace drawing
