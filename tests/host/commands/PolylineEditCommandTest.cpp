#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

#include <cmath>

namespace {

using drawing::integerOf;
using testing::DoubleNear;
using testing::ElementsAre;

class PolylineEditCommand : public CommandTest
{
protected:
    std::vector<double> all(int code)
    {
        std::vector<double> values;
        for (const drawing::Group &group : lastGroups())
            if (group.code == code)
                values.push_back(std::get<double>(group.value));
        return values;
    }
    // Of the entity that is called `e`: how a program recognises it, and what belongs to it beside its geometry.
    std::string identity()
    {
        return evaluate("(mapcar '(lambda (c) (assoc c (entget e '(\"*\")))) '(5 8 62 102 360 -3))");
    }
    void mark(const std::string &name)
    {
        evaluate("(regapp \"MARKS\") (setq " + name + " (entlast)) (entmod (append (entget " + name +
                 ") '((62 . 3) (-3 (\"MARKS\" (1000 . \"x\"))))))");
        drawing::GroupList groups = lastGroups();
        groups.insert(groups.begin() + 2, {{102, u"{ACAD_XDICTIONARY"}, {360, drawing::Handle{0xC}}, {102, u"}"}});
        database().replace(last(), groups);
    }
    double area()
    {
        return std::stod(evaluate("(command \"_.area\" \"_o\" (entlast)) (rtos (getvar \"AREA\") 2 9)").substr(1));
    }
};

TEST_F(PolylineEditCommand, LinesAndArcsJoinToAClosedPolyline)
{
    evaluate(
        "(command \"_.line\" \"0,0\" \"10,0\" \"\" \"_.line\" \"0,10\" \"10,10\" \"\" \"_.line\" \"0,10\" \"0,0\" \"\" "
        "\"_.arc\" \"10,0\" \"15,5\" \"10,10\")"
        "(command \"_.pedit\" (entlast) \"_y\" \"_j\" \"_all\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
    EXPECT_EQ(integerOf(lastGroups(), 90), 4);
    EXPECT_EQ(integerOf(lastGroups(), 70), 1);
    EXPECT_NEAR(area(), 100 + 12.5 * M_PI, 1e-8);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(PolylineEditCommand, WithPeditacceptItDoesNotAskFirst)
{
    evaluate("(setvar \"PEDITACCEPT\" 1) (command \"_.line\" \"0,0\" \"10,0\" \"\") (command \"_.pedit\" (entlast) "
             "\"_w\" 2 \"\")");
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
    EXPECT_THAT(all(40), ElementsAre(2, 2));
}

TEST_F(PolylineEditCommand, CloseOpenReverseAndLinetypeGeneration)
{
    evaluate("(command \"_.pline\" \"0,0\" \"10,0\" \"_a\" \"10,10\" \"\") (command \"_.pedit\" (entlast) \"_c\" "
             "\"_l\" \"_on\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 129);
    evaluate("(command \"_.pedit\" (entlast) \"_o\" \"_r\" \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 128);
    EXPECT_THAT(all(42), ElementsAre(DoubleNear(-1, 1e-12), 0, 0));
    EXPECT_THAT(types(), ElementsAre("LWPOLYLINE"));
}

TEST_F(PolylineEditCommand, EveryChangeLeavesThePolylineWhatItIs)
{
    evaluate("(command \"_.line\" \"20,10\" \"20,20\" \"\") (setq l (entlast))"
             "(command \"_.pline\" \"0,0\" \"10,0\" \"20,10\" \"\")");
    mark("e");
    const std::string before = identity();
    EXPECT_THAT(before, testing::HasSubstr("MARKS"));
    const drawing::GroupList groups = lastGroups();
    for (const char *option :
         {"\"_w\" 2", "\"_c\"", "\"_c\" \"_o\" \"_w\" 3", "\"_l\" \"_on\"", "\"_r\"", "\"_j\" l \"\""}) {
        evaluate("(command \"_.pedit\" e " + std::string(option) + " \"\")");
        EXPECT_EQ(identity(), before) << option;
        EXPECT_NE(lastGroups(), groups) << option;
        evaluate("(command \"_.u\")");
        EXPECT_EQ(lastGroups(), groups) << option;
    }
    EXPECT_THAT(types(), ElementsAre("LINE", "LWPOLYLINE"));
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(PolylineEditCommand, ALineThatBecomesAPolylineIsTheLastEntityAndKeepsItsHandleAndItsData)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"\")");
    mark("e");
    const std::string before = identity();
    const drawing::GroupList groups = lastGroups();
    evaluate("(command \"_.circle\" \"0,0\" 1) (command \"_.pedit\" e \"_y\" \"_w\" 1 \"\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE", "LWPOLYLINE"));
    EXPECT_EQ(identity(), before);
    EXPECT_EQ(evaluate("(eq e (entlast))"), "T");
    EXPECT_EQ(drawing::auditOf(database()), "");
    evaluate("(command \"_.undo\" 2)");
    EXPECT_THAT(types(), ElementsAre("LINE"));
    EXPECT_EQ(lastGroups(), groups);
}

TEST_F(PolylineEditCommand, APolylineOfVerticesStaysOne)
{
    evaluate("(setvar \"PLINETYPE\" 0) (command \"_.pline\" \"0,0\" \"10,0\" \"20,10\" \"\") (setq e (entlast))"
             "(command \"_.line\" \"20,10\" \"20,20\" \"\" \"_.line\" \"20,20\" \"0,0\" \"\")");
    const std::string before = identity(), vertex = evaluate("(cdr (assoc 5 (entget (entnext e))))");
    const auto shown = [&] {
        return evaluate("(setq v e l nil) (while (= \"VERTEX\" (cdr (assoc 0 (entget (setq v (entnext v))))))"
                        " (setq l (cons (mapcar '(lambda (c) (cdr (assoc c (entget v)))) '(10 40)) l)))"
                        "(list (cdr (assoc 70 (entget e))) (cdr (assoc 0 (entget v))) (reverse l))");
    };
    const std::string drawn = shown();
    evaluate("(command \"_.pedit\" e \"_w\" 2 \"_r\" \"_j\" \"_all\" \"\" \"\")");
    EXPECT_EQ(shown(), "(1 \"SEQEND\" (((0.0 0.0 0.0) 2.0) ((10.0 0.0 0.0) 2.0) ((20.0 10.0 0.0) 0.0) "
                       "((20.0 20.0 0.0) 0.0)))");
    EXPECT_THAT(types(), ElementsAre("POLYLINE"));
    EXPECT_EQ(identity(), before);
    EXPECT_EQ(evaluate("(cdr (assoc 5 (entget (entnext e))))"), vertex);
    EXPECT_EQ(drawing::auditOf(database()), "");
    evaluate("(command \"_.u\")");
    EXPECT_EQ(shown(), drawn);
    EXPECT_THAT(types(), ElementsAre("POLYLINE", "LINE", "LINE"));
}

TEST_F(PolylineEditCommand, WhatIsNoPolylineIsSaid)
{
    evaluate("(command \"_.circle\" \"0,0\" 5) (command \"_.pedit\" (entlast))");
    EXPECT_EQ(takePrinted(), "\nObject selected cannot be edited as a polyline.\n");
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
}

} // namespace
