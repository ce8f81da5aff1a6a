#include "host/drawing/entities/EntityMaking.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/entities/EntityPlace.h"
#include "host/drawing/entities/ExtendedData.h"
#include "tests/host/drawing/Audit.h"
#include "tests/host/drawing/entities/EntityTest.h"

namespace drawing {

class Making : public EntityTest
{
protected:
    std::string faultsFoundByAudit() { return auditOf(database()); }
};

TEST_F(Making, addsMarkersForTypesThatAreOlderThanThese)
{
    const RecordId text = addEntity(drawing(), {{0, u"TEXT"},
                                                {10, Point{1, 2, 0, 2}},
                                                {40, 2.5},
                                                {73, std::int64_t{2}},
                                                {1, u"words"},
                                                {62, std::int64_t{3}}});
    EXPECT_EQ(written(text), "0 TEXT,5 22,330 14,100 AcDbEntity,8 0,62 3,100 AcDbText,10 1.0,20 2.0,30 0.0,40 2.5,"
                             "1 words,100 AcDbText,73 2");
}

TEST_F(Making, ofANewerTypeNeedsItsMarker)
{
    const GroupList points = {{90, std::int64_t{1}}, {10, Point{1, 2, 3}}};
    GroupList list = {{0, u"LWPOLYLINE"}, {100, u"AcDbEntity"}};
    list.insert(list.end(), points.begin(), points.end());
    EXPECT_EQ(addEntity(drawing(), list), NoRecord);
    list.insert(list.begin() + 2, Group{100, u"AcDbPolyline"});
    const RecordId polyline = addEntity(drawing(), list);
    EXPECT_EQ(written(polyline), "0 LWPOLYLINE,5 22,330 14,100 AcDbEntity,8 0,100 AcDbPolyline,90 1,10 1.0,20 2.0");
}

TEST_F(Making, withoutARequiredGroupMakesNothing)
{
    const std::string before = writtenDrawing(database());
    EXPECT_EQ(addEntity(drawing(), {{0, u"CIRCLE"}, {10, Point{}}}), NoRecord);
    EXPECT_EQ(addEntity(drawing(), {{10, Point{}}, {11, Point{}}}), NoRecord);
    EXPECT_EQ(addEntity(drawing(), {{0, u"INSERT"}, {2, u"missing"}, {10, Point{}}}), NoRecord);
    EXPECT_EQ(writtenDrawing(database()), before);
}

TEST_F(Making, ignoresHandleAndOwnerOfTheList)
{
    const RecordId point = addEntity(drawing(), {{0, u"POINT"}, {330, Handle{1}}, {5, Handle{9}}, {10, Point{}}});
    EXPECT_EQ(written(point), "0 POINT,5 22,330 14,100 AcDbEntity,8 0,100 AcDbPoint,10 0.0,20 0.0,30 0.0");
}

TEST_F(Making, putsEntitiesIntoPaperSpaceAndBlocks)
{
    const GroupList point = {{0, u"POINT"}, {10, Point{}}};
    Placement placement;
    placement.isPaperSpace = true;
    EXPECT_TRUE(database().record(addEntity(drawing(), point, placement)).has(Record::PaperSpace));
    const RecordId block = addBlock(database(), drawing().tables(), {u"B"});
    const RecordId inside = addEntity(drawing(), point, {block});
    EXPECT_EQ(database().record(inside).container, block);
    EXPECT_EQ(layoutOf(drawing(), inside), u"");
    EXPECT_EQ(faultsFoundByAudit(), "");
}

TEST_F(Making, ofPartsPutsThemBehindTheirWhole)
{
    const RecordId polyline = addEntity(drawing(), {{0, u"POLYLINE"}, {66, std::int64_t{1}}, {70, std::int64_t{8}}});
    const RecordId later = addEntity(drawing(), {{0, u"POINT"}, {10, Point{}}});
    const RecordId vertex = addPart(drawing(), polyline, {{0, u"VERTEX"}, {10, Point{}}, {70, std::int64_t{32}}});
    const RecordId end = addPart(drawing(), polyline, {{0, u"SEQEND"}});
    EXPECT_EQ(database().nextIn(polyline), vertex);
    EXPECT_EQ(database().nextIn(vertex), end);
    EXPECT_EQ(database().nextIn(end), later);
    EXPECT_NE(written(vertex).find("100 AcDbVertex,100 AcDb3dPolylineVertex"), std::string::npos) << written(vertex);
    EXPECT_EQ(faultsFoundByAudit(), "");
}

TEST_F(Making, inADrawingBeforeMarkersWritesNone)
{
    open("AC1009", "");
    const RecordId circle = addEntity(drawing(), {{0, u"CIRCLE"}, {100, u"AcDbCircle"}, {10, Point{}}, {40, 1.0}});
    EXPECT_EQ(written(circle), "0 CIRCLE,8 0,10 0.0,20 0.0,30 0.0,40 1.0");
}

TEST_F(Making, registersAnApplicationOnce)
{
    EXPECT_TRUE(registerApplication(drawing(), u"ACME"));
    EXPECT_FALSE(registerApplication(drawing(), u"acme"));
    EXPECT_FALSE(registerApplication(drawing(), u""));
    EXPECT_EQ(faultsFoundByAudit(), "");
}

} // namespace drawing
