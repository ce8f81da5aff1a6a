#include "tests/host/commands/CommandTest.h"
#include "tests/host/drawing/Audit.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::textOf;
using geometry::Vector;
using testing::ElementsAre;

class Leaders : public CommandTest
{
protected:
    Leaders() { evaluate("(setvar \"CMDECHO\" 0)"); }

    std::vector<Vector> places()
    {
        std::vector<Vector> result;
        for (const drawing::Group &group : lastGroups())
            if (group.code == 10)
                result.push_back(geometry::vectorOf(std::get<drawing::Point>(group.value)));
        return result;
    }
    drawing::GroupList annotation()
    {
        const drawing::GroupList leader = lastGroups();
        const auto *handle = drawing::findValue<drawing::Handle>(leader, 340);
        return handle ? database().groups(database().find(*handle)) : drawing::GroupList();
    }
};

TEST_F(Leaders, ATextStandsBehindALevelEnd)
{
    evaluate("(command \"_.leader\" \"0,0\" \"10,25\" \"20,35\" \"\" \"Hole\" \"drilled deep\" \"\")");
    EXPECT_THAT(types(), ElementsAre("MTEXT", "LEADER"));
    EXPECT_THAT(places(), ElementsAre(Vector{0, 0, 0}, Vector{10, 25, 0}, Vector{20, 35, 0}, Vector{22.5, 35, 0}));
    EXPECT_EQ(integerOf(lastGroups(), 71), 1);
    EXPECT_EQ(integerOf(lastGroups(), 73), 0);
    EXPECT_EQ(integerOf(lastGroups(), 76), 4);
    EXPECT_EQ(textOf(annotation(), 1), u"Hole\\Pdrilled deep");
    EXPECT_EQ(placeOf(annotation(), 10), (Vector{22.5 + 0.625, 35, 0}));
    EXPECT_EQ(integerOf(annotation(), 71), 4);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(Leaders, ToTheLeftTheTextEndsAtTheLeader)
{
    evaluate("(command \"_.leader\" \"0,0\" \"-10,0\" \"\" \"left\" \"\")");
    EXPECT_THAT(places(), ElementsAre(Vector{0, 0, 0}, Vector{-10, 0, 0}));
    EXPECT_EQ(placeOf(annotation(), 10), (Vector{-10.625, 0, 0}));
    EXPECT_EQ(integerOf(annotation(), 71), 6);
}

TEST_F(Leaders, AnEndUpTo15DegreesIsLevelEnough)
{
    evaluate("(command \"_.leader\" \"0,0\" \"10<14.9\" \"\" \"text\" \"\")");
    EXPECT_EQ(places().size(), 2u);
    evaluate("(command \"_.leader\" \"0,0\" \"10<165.1\" \"\" \"text\" \"\")");
    EXPECT_EQ(places().size(), 2u);
    evaluate("(command \"_.leader\" \"0,0\" \"10<15.1\" \"\" \"text\" \"\")");
    EXPECT_EQ(places().size(), 3u);
}

TEST_F(Leaders, FormatAndUndo)
{
    evaluate("(command \"_.leader\" \"0,0\" \"10,10\" \"20,0\" \"30,30\" \"_u\" \"_f\" \"_s\" \"_n\" \"\" \"\" \"\" "
             "\"_n\")");
    EXPECT_THAT(types(), ElementsAre("LEADER"));
    EXPECT_THAT(places(), ElementsAre(Vector{0, 0, 0}, Vector{10, 10, 0}, Vector{20, 0, 0}));
    EXPECT_EQ(integerOf(lastGroups(), 71), 0);
    EXPECT_EQ(integerOf(lastGroups(), 72), 1);
    EXPECT_EQ(integerOf(lastGroups(), 73), 3);
    EXPECT_TRUE(annotation().empty());
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(Leaders, TwoPlacesAreKeptFromUndo)
{
    evaluate("(command \"_.leader\" \"0,0\" \"10,0\" \"_u\" \"_u\" \"\" \"\" \"_n\")");
    EXPECT_THAT(places(), ElementsAre(Vector{0, 0, 0}, Vector{10, 0, 0}));
}

TEST_F(Leaders, ParagraphsMayBeAnOption)
{
    evaluate("(command \"_.leader\" \"0,0\" \"10,0\" \"\" \"\" \"\" \"one\" \"two\" \"\")");
    EXPECT_EQ(textOf(annotation(), 1), u"one\\Ptwo");
}

TEST_F(Leaders, WithinDim1ItEndsWithItsText)
{
    evaluate("(command \"_.dim1\" \"_leader\" \"0,0\" \"10,20\" \"20,20\" \"\" \"by dim1\")");
    EXPECT_EQ(textOf(annotation(), 1), u"by dim1");
    evaluate("(command \"_.dim1\" \"_lea\" \"0,0\" \"10,20\" \"\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 73), 3);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(Leaders, VariablesOfItsOwnStayWithIt)
{
    evaluate(
        "(setvar \"DIMASZ\" 5.0) (setvar \"DIMTXT\" 3.5) (command \"_.leader\" \"0,0\" \"10,10\" \"\" \"big\" \"\")");
    EXPECT_EQ(places().back(), (Vector{15, 10, 0}));
    EXPECT_EQ(evaluate("(cdr (assoc 40 (entget (cdr (assoc 340 (entget (entlast)))))))"), "3.5");
    EXPECT_EQ(evaluate("(cdr (nth 1 (cdadr (assoc -3 (entget (entlast) '(\"ACAD\"))))))"), "\"{\"");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(Leaders, InATurnedPlane)
{
    evaluate("(command \"_.ucs\" \"_z\" 90) (command \"_.leader\" \"0,0\" \"10,0\" \"\" \"up\" \"\")");
    EXPECT_NEAR(places().back().y, 10, 1e-9);
    EXPECT_NEAR(placeOf(annotation(), 11).y, 1, 1e-9);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(Leaders, ADrawingOfTheOldestKindHasNone)
{
    openEmptyDrawing("AC1009");
    takePrinted();
    evaluate("(command \"_.leader\" \"0,0\" \"10,0\" \"\" \"text\" \"\")");
    EXPECT_TRUE(types().empty());
    EXPECT_FALSE(takePrinted().empty());
}

} // namespace
