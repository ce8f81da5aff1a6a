#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::placeOf;
using geometry::Vector;

class ObjectSnap : public CommandTest
{
protected:
    ObjectSnap() { evaluate("(command \"_.line\" \"0,0\" \"4,0\" \"\") (command \"_.circle\" \"8,0\" 2)"); }
};

TEST_F(ObjectSnap, IsTypedBeforeAPoint)
{
    evaluate("(command \"_.line\" \"_mid\" '(1 0) \"_cen\" '(10 0) \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{2, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{8, 0, 0}));
}

TEST_F(ObjectSnap, IsNoAnswerToAPauseYet)
{
    m_services.answers = AnswersFile::fromText(u"_mid\n1,0\n", QStringLiteral("answers"));
    evaluate("(command \"_.line\" PAUSE \"9,9\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{2, 0, 0}));
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{9, 9, 0}));
}

TEST_F(ObjectSnap, MeasuresDistancesToo)
{
    evaluate("(command \"_.circle\" \"_end\" \"3.9,0\" \"_qua\" \"6.05,0\")");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{4, 0, 0}));
    EXPECT_NEAR(drawing::realOf(lastGroups(), 40), 2, 1e-12);
}

TEST_F(ObjectSnap, PerpendicularsBeginAtThePointBefore)
{
    evaluate("(command \"_.line\" \"3,5\" \"_per\" \"1,0\" \"\")");
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{3, 0, 0}));
}

TEST_F(ObjectSnap, WhatIsNotThereIsSaidAndThePointAskedAgain)
{
    evaluate("(command \"_.line\" \"_end\" \"50,50\" \"1,2\" \"3,4\" \"\")");
    EXPECT_EQ(takePrinted(), "\nNo endpoint found for specified point.\n");
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 0}));
}

TEST_F(ObjectSnap, IsShownAsAPromptOfItsOwn)
{
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.line\" \"_end\" \"0,0\" \"_non\" \"3.9,0\" \"\")");
    EXPECT_EQ(takePrinted(), "\n_.line\nSpecify first point: _end\nof 0,0\nSpecify next point or [Undo]: _non"
                             "\nof 3.9,0\nSpecify next point or [Undo]: \n");
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{3.9, 0, 0}));
}

TEST_F(ObjectSnap, OsnapGivesThePlaceInTheUsersCoordinates)
{
    EXPECT_EQ(evaluate("(osnap '(1 0) \"_mid\")"), "(2.0 0.0 0.0)");
    EXPECT_EQ(evaluate("(osnap '(50 0) \"_mid\")"), "nil");
    EXPECT_EQ(evaluate("(osnap '(1 0) \"bogus\")"), "nil");
    evaluate("(command \"_.ucs\" \"_o\" \"1,0\")");
    EXPECT_EQ(evaluate("(osnap '(0 0) \"_mid\")"), "(1.0 0.0 0.0)");
    EXPECT_EQ(evaluate("(osnap 1 \"_mid\")"), "error: bad argument type: point: 1");
}

TEST_F(ObjectSnap, LeavesOutWhatIsNotSeen)
{
    evaluate("(command \"_.layer\" \"_m\" \"hidden\" \"\") (command \"_.line\" \"20,20\" \"30,20\" \"\")"
             "(command \"_.layer\" \"_s\" \"0\" \"_off\" \"hidden\" \"\")");
    EXPECT_EQ(evaluate("(osnap '(21 20) \"_end\")"), "nil");
}

} // namespace
