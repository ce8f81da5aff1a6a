#include "host/drawing/entities/EntityChange.h"

#include "tests/host/drawing/entities/EntityTest.h"

namespace drawing {

class Change : public EntityTest
{
protected:
    RecordId openLine() { return open("AC1015", Line); }
    RecordId openPolyline() { return open("AC1015", Polyline); }

    static constexpr std::string_view Line =
        "  0\nLINE\n  5\n2F\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n1.\n 20\n2e0\n 30\n0\n"
        " 11\n3.0\n 21\n4.0\n 31\n0.0\n1001\nACME\n1000\nkept\n1001\nOTHER\n1070\n     5\n";
    static constexpr std::string_view Polyline =
        "0\nLWPOLYLINE\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nAcDbPolyline\n90\n3\n70\n0\n10\n0.0\n20\n0.0\n42\n1.0\n"
        "10\n5.0\n20\n0.0\n10\n5.0\n20\n5.0\n";
};

TEST_F(Change, toTheSameListChangesNoByte)
{
    const std::string_view lineOfTheOld = "0\nLINE\n8\n0\n10\n1.0\n20\n2.0\n11\n3.0\n21\n4.0\n";
    for (const std::string_view entity : {Line, Polyline, lineOfTheOld}) {
        const RecordId id = open(entity == lineOfTheOld ? "AC1009" : "AC1015", entity);
        const std::string before = writtenDrawing(database());
        EXPECT_TRUE(changeRecord(drawing(), id, groupsOf(listing(drawing(), id))));
        EXPECT_EQ(writtenDrawing(database()), before);
    }
}

TEST_F(Change, writesTheChangedGroupAlone)
{
    const RecordId line = openLine();
    EXPECT_TRUE(changeRecord(drawing(), line, withValue(groupsOf(listing(drawing(), line)), 11, Point{9, 4, 0})));
    EXPECT_EQ(written(line),
              "0 LINE,5 2F,330 1F,100 AcDbEntity,8 0,100 AcDbLine,10 1.,20 2e0,30 0,11 9.0,21 4.0,31 0.0,"
              "1001 ACME,1000 kept,1001 OTHER,1070      5");
}

// Another value of the same type.
GroupValue otherValue(const GroupValue &value)
{
    if (const auto *real = std::get_if<double>(&value))
        return *real + 0.25;
    if (const auto *integer = std::get_if<std::int64_t>(&value))
        return *integer + 1;
    if (const auto *point = std::get_if<Point>(&value))
        return Point{point->x, point->y - 0.5, point->z, point->dimensions};
    return u"other";
}

TEST_F(Change, byAWholeListWritesWhatTheChangedGroupAloneWrites)
{
    const std::pair<const char *, std::string_view> entities[] = {
        {"AC1015", Line},
        {"AC1009", "0\nLINE\n10\n1.0\n20\n2.0\n11\n3.0\n999\nremark\n21\n4.0\n8\n0\n62\n1\n"},
        {"AC1009", "0\nTEXT\n8\nNotes\n10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\nDoor\n50\n30.0\n72\n1\n"},
        {"AC1015", "0\nARC\n5\n2F\n100\nAcDbEntity\n6\nDASHED\n8\n0\n100\nAcDbCircle\n10\n1.0\n20\n2.0\n30\n0\n"
                   "40\n5.0\n100\nAcDbArc\n50\n0.0\n51\n90.0\n"}};
    int changes = 0;
    for (const auto &[version, entity] : entities) {
        const RecordId first = open(version, entity);
        const GroupList list = groupsOf(listing(drawing(), first));
        for (std::size_t place = 0; place < list.size(); ++place) {
            const int code = list[place].code;
            const auto isCode = [code](const Group &group) { return group.code == code; };
            if (code == groupcode::Type || code == groupcode::Subclass || code == groupcode::Owner ||
                code == groupcode::Handle || std::count_if(list.begin(), list.end(), isCode) > 1)
                continue;
            const Group changed{code, otherValue(list[place].value)};
            RecordId id = open(version, entity);
            EXPECT_TRUE(changeRecord(drawing(), id, {changed}));
            const std::string alone = written(id);
            id = open(version, entity);
            EXPECT_NE(written(id), alone);
            GroupList whole = list;
            whole[place] = changed;
            EXPECT_TRUE(changeRecord(drawing(), id, whole));
            EXPECT_EQ(written(id), alone) << code;
            ++changes;
        }
    }
    EXPECT_GT(changes, 20);
}

TEST_F(Change, toADefaultThatIsChangedWritesIt)
{
    const RecordId line = openLine();
    changeRecord(drawing(), line, withValue(groupsOf(listing(drawing(), line)), 210, Point{0, 0, -1}));
    EXPECT_NE(written(line).find("31 0.0,210 0.0,220 0.0,230 -1.0,1001"), std::string::npos) << written(line);
}

TEST_F(Change, byAPartOfTheListLeavesTheRest)
{
    const RecordId line = openLine();
    EXPECT_TRUE(changeRecord(drawing(), line, {{11, Point{9, 9, 9}}}));
    EXPECT_EQ(codes(line), "0 330 5 100 [67] [410] 8 100 10 11 [210]");
    EXPECT_EQ(*database().firstGroup(line, 10), (Group{10, Point{1, 2, 0}}));
}

TEST_F(Change, putsANewCommonGroupWhereAnyEntityHasIt)
{
    const RecordId line = openLine();
    GroupList list = groupsOf(listing(drawing(), line));
    list.push_back({62, std::int64_t{1}});
    changeRecord(drawing(), line, list);
    EXPECT_NE(written(line).find("100 AcDbEntity,8 0,62 1,100 AcDbLine"), std::string::npos) << written(line);
}

TEST_F(Change, neverTouchesTypeHandleAndOwner)
{
    const RecordId line = openLine();
    changeRecord(drawing(), line,
                 {{0, u"CIRCLE"}, {5, Handle{0xFF}}, {330, Handle{0xEE}}, {100, u"AcDbEntity"}, {8, u"0"}});
    EXPECT_EQ(written(line).substr(0, 22), "0 LINE,5 2F,330 1F,100");
    EXPECT_EQ(database().record(line).handle, 0x2FU);
}

TEST_F(Change, reachesTheGroupsOfARecordWithoutMarkers)
{
    open("AC1009", "0\nPOINT\n8\n0\n10\n1.0\n20\n2.0\n");
    const RecordId layer = drawing().tables().add(
        known::Layer, {{0, u"LAYER"}, {2, u"WALLS"}, {70, std::int64_t{0}}, {62, std::int64_t{3}}, {6, u"CONTINUOUS"}});
    EXPECT_TRUE(changeRecord(drawing(), layer, withValue(groupsOf(listing(drawing(), layer)), 62, std::int64_t{5})));
    EXPECT_EQ(*findValue<std::int64_t>(database().groups(layer), 62), 5);
}

TEST_F(Change, OfAParagraphItselfLeavesItsColumnsAlone)
{
    const std::string_view columns = "101\nEmbedded Object\n70\n4\n10\n1.0\n20\n0.0\n30\n0.0\n11\n100.0\n21\n200.0\n"
                                     "31\n0.0\n40\n20.0\n41\n0.0\n71\n2\n72\n1\n";
    const RecordId paragraph = open("AC1032", "0\nMTEXT\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nAcDbMText\n10\n100.0\n20\n"
                                              "200.0\n30\n0.0\n40\n2.5\n41\n30.0\n71\n1\n72\n5\n1\ntext\n" +
                                                  std::string(columns));
    const std::string own = "0 MTEXT,5 2F,100 AcDbEntity,8 0,100 AcDbMText,", rest = ",41 30.0,71 1,72 5,1 text,",
                      embedded = "101 Embedded Object,70 4,10 1.0,20 0.0,30 0.0,11 100.0,21 200.0,31 0.0,40 20.0,"
                                 "41 0.0,71 2,72 1";
    EXPECT_TRUE(changeRecord(drawing(), paragraph, {{10, Point{1, 2, 0}}}));
    EXPECT_EQ(written(paragraph), own + "10 1.0,20 2.0,30 0.0,40 2.5" + rest + embedded);
    EXPECT_TRUE(changeRecord(drawing(), paragraph, {{40, 5.0}, {62, std::int64_t{3}}}));
    EXPECT_EQ(written(paragraph),
              "0 MTEXT,5 2F,100 AcDbEntity,8 0,62 3,100 AcDbMText,10 1.0,20 2.0,30 0.0,40 5.0" + rest + embedded);
}

TEST_F(Change, OfTheColumnsOfAParagraphGoesByTheirPart)
{
    const RecordId paragraph =
        open("AC1032", "0\nMTEXT\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nAcDbMText\n10\n100.0\n20\n200.0\n30\n0.0\n"
                       "40\n2.5\n1\ntext\n101\nEmbedded Object\n70\n4\n40\n20.0\n71\n2\n");
    EXPECT_TRUE(changeRecord(drawing(), paragraph, {{40, 3.0}, {101, u"Embedded Object"}, {40, 25.0}}));
    EXPECT_EQ(written(paragraph), "0 MTEXT,5 2F,100 AcDbEntity,8 0,100 AcDbMText,10 100.0,20 200.0,30 0.0,40 3.0,"
                                  "1 text,101 Embedded Object,70 4,40 25.0,71 2");
    EXPECT_TRUE(changeRecord(drawing(), paragraph, {{101, u"Embedded Object"}, {40, 30.0}}));
    EXPECT_EQ(written(paragraph), "0 MTEXT,5 2F,100 AcDbEntity,8 0,100 AcDbMText,10 100.0,20 200.0,30 0.0,40 3.0,"
                                  "1 text,101 Embedded Object,70 4,40 30.0,71 2");
}

TEST_F(Change, standsAnEmbeddedObjectAheadOfTheMarkers)
{
    const RecordId id = open("AC1032", "0\nTEXT\n5\n2F\n101\nEmbedded Object\n70\n1\n100\nAcDbEntity\n8\n0\n"
                                       "100\nAcDbText\n10\n1.0\n20\n2.0\n40\n2.5\n1\nx\n");
    EXPECT_TRUE(changeRecord(drawing(), id, {{0, u"TEXT"}, {40, 3.5}}));
    EXPECT_EQ(written(id),
              "0 TEXT,5 2F,40 3.5,101 Embedded Object,70 1,100 AcDbEntity,8 0,100 AcDbText,10 1.0,20 2.0,40 2.5,"
              "1 x");
}

TEST_F(Change, makesALayerThatIsNotThere)
{
    const RecordId line = openLine();
    changeRecord(drawing(), line, {{8, u"walls"}});
    EXPECT_NE(drawing().tables().find(known::Layer, u"WALLS"), NoRecord);
}

TEST_F(Change, ofPointsReplacesAllOfThem)
{
    const RecordId polyline = openPolyline();
    EXPECT_TRUE(changeRecord(drawing(), polyline, {{10, Point{7, 7, 0, 2}}, {10, Point{8, 8, 0, 2}}}));
    EXPECT_EQ(written(polyline), "0 LWPOLYLINE,5 2F,100 AcDbEntity,8 0,100 AcDbPolyline,90 2,70 0,10 7.0,20 7.0,10 8.0,"
                                 "20 8.0");
}

TEST_F(Change, keepsEachBulgeWithItsPoint)
{
    const RecordId polyline = openPolyline();
    GroupList list = groupsOf(listing(drawing(), polyline));
    std::erase_if(list, [n = 0](const Group &group) mutable { return group.code == 10 && n++ == 0; });
    std::erase_if(list, [n = 0](const Group &group) mutable { return group.code == 42 && n++ == 0; });
    EXPECT_TRUE(changeRecord(drawing(), polyline, list));
    EXPECT_EQ(written(polyline),
              "0 LWPOLYLINE,5 2F,100 AcDbEntity,8 0,100 AcDbPolyline,90 2,70 0,10 5.0,20 0.0,42 0.0,10 5.0,20 5.0");
}

TEST_F(Change, takesThreeCoordinatesWhereThereAreTwo)
{
    const RecordId polyline = openPolyline();
    GroupList list = groupsOf(listing(drawing(), polyline));
    for (Group &group : list)
        if (auto *point = std::get_if<Point>(&group.value); point && group.code == 10)
            *point = {point->x + 1, point->y, 3};
    EXPECT_TRUE(changeRecord(drawing(), polyline, list));
    EXPECT_EQ(written(polyline).find("30 "), std::string::npos) << written(polyline);
}

TEST_F(Change, replacesTheExtendedDataOfItsApplicationsAlone)
{
    const RecordId line = openLine();
    EXPECT_TRUE(changeRecord(drawing(), line, {{1001, u"acme"}, {1040, 2.5}}));
    EXPECT_NE(written(line).find("31 0.0,1001 OTHER,1070      5,1001 acme,1040 2.5"), std::string::npos)
        << written(line);
    EXPECT_TRUE(changeRecord(drawing(), line, {{1001, u"OTHER"}}));
    EXPECT_EQ(written(line).find("OTHER"), std::string::npos);
}

TEST_F(Change, ofAnglesIsInRadiansAndWritesDegrees)
{
    const RecordId arc = open("AC1009", "0\nARC\n8\n0\n10\n1.0\n20\n2.0\n40\n5.0\n50\n33.3\n51\n90.00\n");
    EXPECT_NEAR(std::get<double>(findGroup(groupsOf(listing(drawing(), arc)), 50)->value), 0.5811946409141118, 1e-15);
    changeRecord(drawing(), arc, withValue(groupsOf(listing(drawing(), arc)), 51, 3.141592653589793));
    EXPECT_EQ(written(arc), "0 ARC,8 0,10 1.0,20 2.0,40 5.0,50 33.3,51 180.0");
}

TEST_F(Change, isUndoneToTheLastByte)
{
    const RecordId line = openLine();
    const std::string before = writtenDrawing(database());
    database().journal().nextStep();
    changeRecord(drawing(), line, {{8, u"walls"}, {11, Point{9, 9, 9}}});
    EXPECT_NE(writtenDrawing(database()), before);
    EXPECT_EQ(database().journal().undo(), 1U);
    EXPECT_EQ(writtenDrawing(database()), before);
}

} // namespace drawing
