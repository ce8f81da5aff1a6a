#include "tests/host/commands/CommandTest.h"

#include "host/commands/HatchPatterns.h"
#include "host/drawing/edit/Area.h"

#include <cmath>

namespace {

using drawing::integerOf;
using drawing::realOf;
using drawing::textOf;
using testing::ElementsAre;

class HatchCommand : public CommandTest
{
protected:
    HatchCommand() { evaluate("(command \"_.zoom\" \"_w\" \"-50,-50\" \"50,50\")"); }
    double lastArea() { return drawing::measured(m_document.drawing(), last())->area; }
};

TEST_F(HatchCommand, BoundaryTakesTheFaceBetweenCrossingLines)
{
    evaluate("(command \"_.line\" \"-20,0\" \"20,0\" \"\") (command \"_.line\" \"-20,10\" \"20,10\" \"\")"
             "(command \"_.line\" \"0,-20\" \"0,20\" \"\") (command \"_.line\" \"12,-20\" \"12,20\" \"\")");
    evaluate("(command \"_.-boundary\" \"5,5\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE", "LINE", "LINE", "LINE", "LWPOLYLINE"));
    EXPECT_EQ(integerOf(lastGroups(), 70), 1);
    EXPECT_NEAR(lastArea(), 120, 1e-9);
}

TEST_F(HatchCommand, BoundaryFollowsArcs)
{
    evaluate("(command \"_.circle\" \"0,0\" 10) (command \"_.line\" \"-20,0\" \"20,0\" \"\")");
    evaluate("(command \"_.-boundary\" \"0,5\" \"\")");
    EXPECT_NEAR(lastArea(), std::numbers::pi * 50, 1e-6);
    evaluate("(command \"_.u\") (command \"_.erase\" (entlast) \"\") (command \"_.-boundary\" \"0,5\" \"\")");
    EXPECT_NEAR(lastArea(), std::numbers::pi * 100, 1e-6);
}

TEST_F(HatchCommand, BoundaryLeavesOutWhatLeadsNowhere)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"10,10\" \"0,10\" \"0,0\" \"-5,-5\" \"-9,-5\" \"-9,-9\" \"\")"
             "(command \"_.line\" \"0,5\" \"3,5\" \"3,6\" \"\") (command \"_.-boundary\" \"7,5\" \"\")");
    EXPECT_NEAR(lastArea(), 100, 1e-9);
    EXPECT_EQ(integerOf(lastGroups(), 90), 5); // the line that leads in cuts a side in two
}

TEST_F(HatchCommand, BoundaryFindsIslandsUnlessItIsToldNotTo)
{
    evaluate("(command \"_.rectang\" \"-20,-20\" \"20,20\") (command \"_.circle\" \"5,5\" 2)");
    evaluate("(command \"_.-boundary\" \"-10,-10\" \"\")");
    EXPECT_EQ(types().size(), 4u);
    evaluate("(command \"_.u\")");
    evaluate("(command \"_.-boundary\" \"_a\" \"_i\" \"_n\" \"_+x\" \"\" \"-10,-10\" \"\")");
    EXPECT_EQ(types().size(), 3u);
    EXPECT_NEAR(lastArea(), 1600, 1e-9);
}

TEST_F(HatchCommand, BoundaryLooksAtTheCandidatesThatItWasGiven)
{
    evaluate("(command \"_.rectang\" \"-20,-20\" \"20,20\") (setq outer (entlast))"
             "(command \"_.rectang\" \"-5,-5\" \"5,5\")");
    evaluate("(command \"_.-boundary\" \"_a\" \"_b\" \"_n\" outer \"\" \"\" \"0,0\" \"\")");
    EXPECT_NEAR(lastArea(), 1600, 1e-9);
    evaluate("(command \"_.-boundary\" \"_a\" \"_b\" \"_e\" \"\" \"0,0\" \"\")");
    EXPECT_NEAR(lastArea(), 100, 1e-9);
}

TEST_F(HatchCommand, BoundaryMakesNoRegions)
{
    evaluate("(command \"_.rectang\" \"-20,-20\" \"20,20\")");
    takePrinted();
    evaluate("(command \"_.-boundary\" \"_a\" \"_o\" \"_r\")");
    EXPECT_EQ(takePrinted(), "\nRegions cannot be made.\n");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(types().size(), 1u);
}

TEST_F(HatchCommand, WhatIsOnALayerThatIsOffOrFrozenBoundsNothing)
{
    for (const std::string state : {"_off", "_freeze"}) {
        SCOPED_TRACE(state);
        evaluate("(command \"_.layer\" \"_make\" \"hidden\" \"\") (command \"_.circle\" \"0,0\" 10)"
                 "(command \"_.layer\" \"_set\" \"0\" \"" +
                 state + "\" \"hidden\" \"\")");
        takePrinted();
        evaluate("(command \"_.-boundary\" \"0,0\" \"\")");
        EXPECT_EQ(takePrinted(), "\nValid hatch boundary not found.\n");
        evaluate("(command \"_.layer\" \"_on\" \"hidden\" \"_thaw\" \"hidden\" \"\")");
        evaluate("(command \"_.-boundary\" \"0,0\" \"\")");
        EXPECT_EQ(types().back(), "LWPOLYLINE");
        evaluate("(command \"_.erase\" \"_all\" \"\")");
    }
}

TEST_F(HatchCommand, WithoutABoundaryNothingIsMade)
{
    evaluate("(command \"_.line\" \"-20,0\" \"20,0\" \"\")");
    takePrinted();
    evaluate("(command \"_.-boundary\" \"5,5\" \"\")");
    EXPECT_EQ(takePrinted(), "\nValid hatch boundary not found.\n");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(HatchCommand, APlaceIsHatchedWithItsIslands)
{
    evaluate("(command \"_.rectang\" \"-20,-20\" \"20,20\") (command \"_.circle\" \"5,5\" 2)");
    evaluate("(command \"_.-bhatch\" \"_p\" \"ansi31\" 2 30 \"-10,-10\" \"\")");
    EXPECT_EQ(types().back(), "HATCH");
    EXPECT_EQ(textOf(lastGroups(), 2), u"ANSI31");
    EXPECT_EQ(integerOf(lastGroups(), 91), 2);
    EXPECT_NEAR(realOf(lastGroups(), 52), 30, 1e-9);
    EXPECT_NEAR(realOf(lastGroups(), 53), 75, 1e-9);
    EXPECT_EQ(evaluate("(getvar \"HPSCALE\")"), "2.0");
}

TEST_F(HatchCommand, ProgramsStillBeginWithThePattern)
{
    evaluate("(command \"_.circle\" \"5,5\" 2) (command \"_.hatch\" \"ansi37,o\" 1 0 (entlast) \"\")");
    EXPECT_EQ(textOf(lastGroups(), 2), u"ANSI37");
    EXPECT_EQ(integerOf(lastGroups(), 78), 2);
    evaluate("(command \"_.-hatch\" \"_solid\" (entlast) \"\" )");
    EXPECT_EQ(textOf(lastGroups(), 2), u"ANSI37");
    evaluate("(command) (command \"_.-hatch\" \"_solid\" (ssget \"_X\" '((0 . \"CIRCLE\"))) \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 70), 1);
    EXPECT_EQ(integerOf(lastGroups(), 93), 2);
}

TEST_F(HatchCommand, LinesOfOnesOwnHaveADistance)
{
    evaluate("(command \"_.circle\" \"5,5\" 2) (command \"_.hatch\" \"_u\" 10 0.5 \"_y\" (entlast) \"\")");
    EXPECT_EQ(integerOf(lastGroups(), 76), 0);
    EXPECT_EQ(integerOf(lastGroups(), 77), 1);
    EXPECT_EQ(integerOf(lastGroups(), 78), 2);
}

TEST_F(HatchCommand, OpenObjectsThatMeetEncloseAnArea)
{
    evaluate("(command \"_.line\" \"0,0\" \"10,0\" \"0,10\" \"_c\")");
    evaluate("(command \"_.hatch\" \"_solid\" (ssget \"_X\") \"\")");
    EXPECT_EQ(types().back(), "HATCH");
    EXPECT_EQ(integerOf(lastGroups(), 93), 3);
}

TEST_F(HatchCommand, AnUnknownPatternIsSaid)
{
    evaluate("(command \"_.circle\" \"5,5\" 2)");
    takePrinted();
    evaluate("(command \"_.hatch\" \"nowhere\")");
    EXPECT_EQ(takePrinted(), "\nPattern nowhere was not found.\n");
}

TEST_F(HatchCommand, EveryPatternHasLinesThatGoOn)
{
    for (const char16_t *name :
         {u"ansi31",        u"ansi32",  u"ansi33",         u"ansi34",         u"ansi35",         u"ansi36",
          u"ansi37",        u"ansi38",  u"angle",          u"cross",          u"grate",          u"hex",
          u"honey",         u"insul",   u"plast",          u"square",         u"steel",          u"zigzag",
          u"ar-b88",        u"ar-b816", u"acad_iso02w100", u"acad_iso03w100", u"acad_iso04w100", u"acad_iso07w100",
          u"acad_iso10w100"}) {
        const std::optional<commands::HatchPattern> pattern = commands::hatchPattern(name);
        ASSERT_TRUE(pattern) << QStringView(name).toString().toStdString();
        EXPECT_FALSE(pattern->lines.empty());
        for (const commands::HatchLine &line : pattern->lines) {
            EXPECT_GT(line.across, 0);
            double period = 0, drawn = line.dashes.empty() ? 1 : 0;
            for (const double dash : line.dashes) {
                period += std::abs(dash);
                drawn += dash >= 0 ? 1 : 0;
            }
            EXPECT_GT(drawn, 0);
            EXPECT_TRUE(line.dashes.empty() || period > 0);
        }
    }
}

// Where three edges of a honeycomb meet, each direction has one that begins or ends there.
TEST_F(HatchCommand, TheEdgesOfAHoneycombMeet)
{
    const commands::HatchPattern pattern = *commands::hatchPattern(u"HEX");
    const double side = pattern.lines[0].dashes[0];
    EXPECT_NEAR(pattern.lines[0].across, side * std::sqrt(0.75), 1e-12);
    EXPECT_NEAR(pattern.lines[0].along, side * 1.5, 1e-12);
    EXPECT_EQ(pattern.lines[1].baseX, side); // the end of the first edge
    EXPECT_EQ(pattern.lines[2].baseX, 0);    // and its beginning
    EXPECT_EQ(pattern.lines[1].dashes, pattern.lines[0].dashes);
}

TEST_F(HatchCommand, HatcheditChangesPatternScaleAndAngle)
{
    evaluate("(command \"_.circle\" \"5,5\" 2) (command \"_.hatch\" \"ansi31\" 1 0 (entlast) \"\")");
    evaluate("(command \"_.-hatchedit\" (entlast) \"_p\" \"hex\" 2 30)");
    EXPECT_EQ(textOf(lastGroups(), 2), u"HEX");
    EXPECT_EQ(integerOf(lastGroups(), 78), 3);
    EXPECT_EQ(realOf(lastGroups(), 41), 2);
    EXPECT_NEAR(realOf(lastGroups(), 52), 30, 1e-9);
    EXPECT_EQ(integerOf(lastGroups(), 93), 2); // the boundary stays
    evaluate("(command \"_.hatchedit\" (entlast) \"\" \"_s\")");
    EXPECT_EQ(textOf(lastGroups(), 2), u"SOLID");
    EXPECT_EQ(integerOf(lastGroups(), 70), 1);
    EXPECT_FALSE(drawing::hasGroup(lastGroups(), 78));
    evaluate("(command \"_.hatchedit\" (entlast) \"_st\" \"_i\")");
    EXPECT_EQ(integerOf(lastGroups(), 75), 2);
    evaluate("(command \"_.hatchedit\" (entlast) \"_p\" \"ansi31\" 1 0)");
    EXPECT_EQ(integerOf(lastGroups(), 75), 2);
    EXPECT_EQ(integerOf(lastGroups(), 70), 0);
}

TEST_F(HatchCommand, OtherObjectsAreNoHatches)
{
    evaluate("(command \"_.point\" \"1,1\") (command \"_.hatchedit\" (entlast))");
    EXPECT_EQ(takePrinted(), "\nThe object is not a hatch.\n");
}

} // namespace
