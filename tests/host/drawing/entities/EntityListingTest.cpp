#include "host/drawing/LayoutEditing.h"
#include "host/drawing/entities/EntityMaking.h"
#include "tests/host/drawing/entities/EntityTest.h"

#include <map>
#include <tuple>

namespace drawing {

class Listing : public EntityTest
{
protected:
    // The groups; which are in the file and in what order; how many are the head.
    using Listed = std::tuple<GroupList, std::string, std::size_t>;
    Listed listed(RecordId id)
    {
        return {groupsOf(listing(drawing(), id)), codes(id), EntityListing(drawing(), id).headSize()};
    }
};

TEST_F(Listing, ofALineHasOwnerSpaceLayoutAndExtrusion)
{
    const RecordId line = open("AC1015", "0\nLINE\n5\n2F\n330\n1F\n100\nAcDbEntity\n8\n0\n62\n1\n100\nAcDbLine\n"
                                         "10\n1.0\n20\n2.0\n30\n0.0\n11\n3.0\n21\n4.0\n31\n0.0\n");
    EXPECT_EQ(codes(line), "0 330 5 100 [67] [410] 8 62 100 10 11 [210]");
    const std::vector<ListedGroup> listed = listing(drawing(), line);
    EXPECT_EQ(listed[5].group, (Group{410, u"Model"}));
    EXPECT_EQ(listed.back().group, (Group{210, Point{0, 0, 1}}));
}

TEST_F(Listing, ofADrawingBeforeMarkersHasThem)
{
    const RecordId arc = open("AC1009", "0\nARC\n5\n2F\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n40\n5.0\n50\n0.0\n51\n90.0\n");
    EXPECT_EQ(codes(arc), "0 5 [100] [67] [410] 8 [100] 10 40 [210] [100] 50 51");
}

TEST_F(Listing, leavesWhatStandsThereWhereItStands)
{
    const RecordId line = open("AC1015", "0\nLINE\n5\n2F\n102\n{ACAD_XDICTIONARY\n360\nAA\n102\n}\n330\n1F\n100\n"
                                         "AcDbEntity\n67\n1\n410\nSheet\n8\n0\n100\nAcDbLine\n39\n2.0\n10\n1.0\n20\n"
                                         "2.0\n11\n3.0\n21\n4.0\n210\n0.0\n220\n0.0\n230\n-1.0\n");
    EXPECT_EQ(codes(line), "0 330 5 102 360 102 100 67 410 8 100 39 10 11 210");
}

TEST_F(Listing, ofAnUnknownTypeAddsOnlyWhatAnyEntityHas)
{
    const RecordId thing =
        open("AC1015", "0\nGADGET\n5\n2F\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcmeGadget\n70\n1\n40\n2.0\n");
    EXPECT_EQ(codes(thing), "0 330 5 100 [67] [410] 8 100 70 40");
    EXPECT_EQ(codes(open("AC1009", "0\nGADGET\n8\n0\n70\n1\n")), "0 [100] [67] [410] 8 70");
}

TEST_F(Listing, ofAPolylineGivesEachPointItsWidthsAndBulge)
{
    const RecordId polyline =
        open("AC1015", "0\nLWPOLYLINE\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nAcDbPolyline\n90\n2\n70\n0\n43\n0.5\n"
                       "10\n0.0\n20\n0.0\n42\n1.0\n10\n5.0\n20\n0.0\n");
    EXPECT_EQ(codes(polyline), "0 5 100 [67] [410] 8 100 90 70 43 [38] [39] 10 [40] [41] 42 [91] 10 [40] [41] [42] [91]"
                               " [210]");
    EXPECT_EQ(listing(drawing(), polyline)[13].group, (Group{40, 0.5}));
}

TEST_F(Listing, ofAPolylineLeavesTheLastPointItsOwn)
{
    const std::string vertices = "10\n0.0\n20\n0.0\n10\n5.0\n20\n0.0\n40\n7.0\n41\n8.0\n42\n0.25\n";
    const RecordId polyline =
        open("AC1015", "0\nLWPOLYLINE\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nAcDbPolyline\n90\n2\n70\n0\n" + vertices);
    EXPECT_EQ(codes(polyline),
              "0 5 100 [67] [410] 8 100 90 70 [38] [39] 10 [40] [41] [42] [91] 10 40 41 42 [91] [210]");
}

TEST_F(Listing, isTheSameWhateverWasListedBefore)
{
    const std::string entities = "0\nLINE\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n1\n20\n2\n11\n3\n21\n4\n"
                                 "0\nLINE\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcmeLine\n10\n1\n20\n2\n11\n3\n21\n4\n"
                                 "0\nLINE\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n1\n20\n2\n11\n3\n"
                                 "0\nLINE\n102\n{ACME\n330\nAA\n102\n}\n330\n1F\n100\nAcDbEntity\n8\n0\n"
                                 "0\nLINE\n102\nACME\n330\nAA\n102\n}\n330\n1F\n100\nAcDbEntity\n8\n0\n"
                                 "0\nLINE\n330\n1F\n100\nAcDbEntity\n67\n1\n8\n0\n100\nAcDbLine\n10\n1\n20\n2\n"
                                 "0\nLINE\n330\n1F\n100\nAcDbEntity\n67\n0\n8\n0\n100\nAcDbLine\n10\n1\n20\n2\n"
                                 "0\nPOLYLINE\n8\n0\n66\n1\n70\n0\n0\nSEQEND\n8\n0\n"
                                 "0\nPOLYLINE\n8\n0\n66\n1\n70\n16\n0\nVERTEX\n8\n0\n10\n1\n20\n0\n70\n64\n"
                                 "0\nVERTEX\n8\n0\n10\n1\n20\n0\n70\n128\n0\nSEQEND\n8\n0\n"
                                 "0\nLWPOLYLINE\n8\n0\n43\n0.5\n10\n0\n20\n0\n"
                                 "0\nLWPOLYLINE\n8\n0\n43\n1.5\n10\n0\n20\n0\n"
                                 "0\nGADGET\n8\n0\n70\n1\n0\nGIZMO\n8\n0\n70\n1\n";
    for (const char *version : {"AC1009", "AC1015"}) {
        std::map<RecordId, Listed> alone; // each the first of a drawing that is listed
        for (RecordId id = open(version, entities); database().record(id).kind == RecordKind::Entity; ++id) {
            open(version, entities);
            alone[id] = listed(id);
        }
        EXPECT_EQ(alone.size(), 17U);
        for (const auto &[id, expected] : alone)
            for (const auto &[before, ignored] : alone) {
                listing(drawing(), before);
                EXPECT_EQ(listed(id), expected) << codes(id) << " after " << codes(before);
            }
    }
}

TEST_F(Listing, hasTheOwnerThatTheFileLeavesOut)
{
    const std::string point = "0\nPOINT\n8\n0\n10\n1\n20\n2\n";
    open("AC1015", "0\nENDSEC\n0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nBLOCK_RECORD\n"
                   "0\nBLOCK_RECORD\n5\nA1\n2\nA\n0\nBLOCK_RECORD\n5\nB1\n2\nB\n0\nENDTAB\n0\nENDSEC\n"
                   "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n" +
                       point + "0\nENDBLK\n0\nBLOCK\n2\nB\n" + point + "0\nENDBLK\n");
    const RecordId inA = findType(database(), "POINT"), inB = findType(database(), "POINT", inA);
    EXPECT_EQ(codes(inA), "0 [330] [100] [67] 8 [100] 10 [210] [50]");
    EXPECT_EQ(listing(drawing(), inA)[1].group, (Group{330, Handle{0xA1}}));
    EXPECT_EQ(listing(drawing(), inB)[1].group, (Group{330, Handle{0xB1}}));

    // In a block that no record is of there is none; a 410 of its own leaves the owner alone to be found.
    const std::string known = "0\nPOINT\n100\nAcDbEntity\n67\n0\n410\nModel\n8\n0\n100\nAcDbPoint\n10\n1\n20\n2\n";
    open("AC1015", "0\nENDSEC\n0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nBLOCK_RECORD\n"
                   "0\nBLOCK_RECORD\n5\nB1\n2\nB\n0\nENDTAB\n0\nENDSEC\n"
                   "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n" +
                       known + "0\nENDBLK\n0\nBLOCK\n2\nB\n" + known + "0\nENDBLK\n");
    const RecordId unknown = findType(database(), "POINT");
    EXPECT_EQ(codes(unknown), "0 100 67 410 8 100 10 [210] [50]");
    EXPECT_EQ(codes(findType(database(), "POINT", unknown)), "0 [330] 100 67 410 8 100 10 [210] [50]");

    const std::string vertex = "0\nVERTEX\n8\n0\n10\n1\n20\n2\n0\nSEQEND\n8\n0\n";
    open("AC1015", "0\nPOLYLINE\n5\nC1\n8\n0\n66\n1\n" + vertex + "0\nPOLYLINE\n5\nD1\n8\n0\n66\n1\n" + vertex);
    const RecordId ofC = findType(database(), "VERTEX"), ofD = findType(database(), "VERTEX", ofC);
    EXPECT_EQ(listing(drawing(), ofC)[1].group, (Group{330, Handle{0xC1}}));
    EXPECT_EQ(listing(drawing(), ofD)[1].group, (Group{330, Handle{0xD1}}));
}

TEST_F(Listing, hasTheLayoutByItsNameOfNow)
{
    const auto layoutGroup = [this](RecordId id) { return groupsOf(listing(drawing(), id))[5]; };
    Placement onSheet;
    onSheet.isPaperSpace = true;
    const RecordId point = addEntity(drawing(), {{0, u"POINT"}, {10, Point{}}}, onSheet);
    EXPECT_EQ(layoutGroup(point), (Group{410, u"Layout1"}));
    ASSERT_TRUE(renameLayout(drawing(), findLayout(database(), u"Layout1").value(), u"Plan"));
    EXPECT_EQ(layoutGroup(point), (Group{410, u"Plan"}));
}

TEST_F(Listing, tellsPolylinesAndVerticesApart)
{
    const RecordId mesh = open("AC1009", "0\nPOLYLINE\n8\n0\n66\n1\n70\n16\n0\nVERTEX\n8\n0\n10\n1.0\n20\n0.0\n30\n"
                                         "0.0\n70\n64\n0\nSEQEND\n8\n0\n");
    const auto lastMarker = [this](RecordId id) {
        std::u16string marker;
        for (const ListedGroup &listed : listing(drawing(), id))
            if (listed.group.code == groupcode::Subclass)
                marker = std::get<std::u16string>(listed.group.value);
        return marker;
    };
    EXPECT_EQ(lastMarker(mesh), u"AcDbPolygonMesh");
    EXPECT_EQ(lastMarker(database().nextIn(mesh)), u"AcDbPolygonMeshVertex");
}

TEST_F(Listing, givesPointsThreeCoordinates)
{
    const RecordId line = open("AC1009", "0\nLINE\n8\n0\n10\n1.0\n20\n2.0\n11\n3.0\n21\n4.0\n");
    EXPECT_EQ(listing(drawing(), line)[6].group, (Group{10, Point{1, 2, 0, 3}}));
}

TEST_F(Listing, hasNoExtendedData)
{
    EXPECT_EQ(codes(open("AC1009", "0\nPOINT\n8\n0\n10\n1.0\n20\n2.0\n30\n3.0\n1001\nAPP\n1000\ntext\n")),
              "0 [100] [67] [410] 8 [100] 10 [210] [50]");
}

} // namespace drawing
