#include "tests/host/commands/CommandTest.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SelectObjects : public CommandTest
{
protected:
    SelectObjects()
    {
        add({{0, u"POINT"}, {8, u"0"}, {10, drawing::Point{1, 1, 0}}});
        add({{0, u"CIRCLE"}, {8, u"0"}, {10, drawing::Point{2, 2, 0}}, {40, 1.0}});
        add({{0, u"LINE"}, {8, u"0"}, {10, drawing::Point{}}, {11, drawing::Point{3, 3, 0}}});
    }
    std::string handleOf(const char *type)
    {
        return evaluate("(cdr (assoc 5 (entget (ssname (ssget \"X\" '((0 . \"" + std::string(type) + "\"))) 0))))");
    }
};

TEST_F(SelectObjects, LastIsTheLastEntity)
{
    evaluate("(command \"_.erase\" \"_l\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(SelectObjects, LastIsTheNewestOfTheCurrentSpace)
{
    add({{0, u"ARC"}, {67, std::int64_t{1}}, {8, u"0"}, {10, drawing::Point{}}, {40, 1.0}, {50, 0.0}, {51, 90.0}});
    EXPECT_EQ(evaluate("(cdr (assoc 0 (entget (ssname (ssget \"_L\") 0))))"), "\"LINE\"");
    evaluate("(command \"_.erase\" \"_l\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "ARC"));
    evaluate("(command \"_.area\" \"_o\" \"_l\")");
    EXPECT_EQ(evaluate("(rtos (getvar \"AREA\") 2 4)"), "\"3.1416\"");
}

TEST_F(SelectObjects, LastIsTheNewestThoughItsLayerIsOff)
{
    add({{0, u"TEXT"}, {8, u"Off"}, {10, drawing::Point{}}, {40, 1.0}, {1, u"x"}});
    evaluate("(command \"_.-layer\" \"_n\" \"Off\" \"_off\" \"Off\" \"\")");
    EXPECT_EQ(evaluate("(cdr (assoc 0 (entget (ssname (ssget \"_L\") 0))))"), "\"TEXT\"");
    evaluate("(command \"_.erase\" \"_l\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(SelectObjects, LastIsNothingRatherThanAnOlderOneWhenTheNewestCannotBeTaken)
{
    add({{0, u"TEXT"}, {8, u"Frozen"}, {10, drawing::Point{}}, {40, 1.0}, {1, u"x"}});
    evaluate("(command \"_.-layer\" \"_n\" \"Frozen\" \"_f\" \"Frozen\" \"\")");
    EXPECT_EQ(evaluate("(ssget \"_L\")"), "nil");
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.erase\" \"_l\" \"\") (setvar \"CMDECHO\" 0)");
    EXPECT_THAT(takePrinted(), HasSubstr("0 found"));
    evaluate("(command \"_.area\" \"_o\" \"_l\") (command)");
    EXPECT_THAT(takePrinted(), HasSubstr("No object found."));
    evaluate("(command \"_.-layer\" \"_t\" \"Frozen\" \"\")");
    add({{0, u"RAY"}, {8, u"0"}, {60, std::int64_t{1}}, {10, drawing::Point{}}, {11, drawing::Point{1, 0, 0}}});
    EXPECT_EQ(evaluate("(ssget \"_L\")"), "nil");
    evaluate("(command \"_.erase\" \"_l\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE", "TEXT", "RAY"));
}

TEST_F(SelectObjects, SingleEndsWithTheFirstAnswerThatFindsSomething)
{
    evaluate("(command \"_.erase\" \"_si\" \"9,9\" \"9.1,9.1\" \"2,1\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "LINE"));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(SelectObjects, SsgetOfASingleObjectTakesOneAnswer)
{
    m_services.answers = AnswersFile::fromText(u"2,1\nnext\n", QString());
    EXPECT_EQ(evaluate("(cdr (assoc 0 (entget (ssname (ssget \":S\") 0))))"), "\"CIRCLE\"");
    EXPECT_EQ(evaluate("(getstring)"), "\"next\"");
    m_services.answers = AnswersFile::fromText(u"\n", QString());
    EXPECT_EQ(evaluate("(ssget \":S\")"), "nil");
}

TEST_F(SelectObjects, SsgetAsksForItselfWhileACommandWaits)
{
    evaluate("(command \"_.line\" \"0,0\")");
    for (const std::string mode : {"", "\":S\""}) {
        m_services.answers = AnswersFile::fromText(u"2,1\n\n", QString());
        EXPECT_EQ(evaluate("(cdr (assoc 0 (entget (ssname (ssget " + mode + ") 0))))"), "\"CIRCLE\"");
        EXPECT_EQ(evaluate("(getvar \"CMDNAMES\")"), "\"LINE\"");
    }
    evaluate("(command \"7,0\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE", "LINE"));
    EXPECT_EQ(evaluate("(cdr (assoc 11 (entget (entlast))))"), "(7.0 0.0 0.0)");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(SelectObjects, EscAtSsgetEndsTheProgramAndLeavesTheWaitingCommandAlone)
{
    evaluate("(ssget \"X\" '((0 . \"POINT\"))) (command \"_.move\" \"_p\" \"\")");
    m_services.answers = AnswersFile::fromText(u"_all\n@esc\n", QString());
    EXPECT_EQ(evaluate("(ssget)"), "error: Function cancelled");
    EXPECT_EQ(evaluate("(list (sslength (ssget \"P\")) (getvar \"CMDNAMES\"))"), "(1 \"MOVE\")");
    evaluate("(command \"0,0\" \"5,5\")");
    EXPECT_EQ(evaluate("(cdr (assoc 10 (entget (ssname (ssget \"P\") 0))))"), "(6.0 6.0 0.0)");
    EXPECT_EQ(evaluate("(ssget)"), "error: Function cancelled");
}

TEST_F(SelectObjects, AfterSsgetTheWaitingCommandShowsItsPromptAgain)
{
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.line\" \"0,0\")");
    m_services.answers = AnswersFile::fromText(u"_l\n\n", QString());
    takePrinted();
    evaluate("(ssget)");
    EXPECT_EQ(takePrinted(), "\nSelect objects: _l\n\n1 found\nSelect objects: \n");
    evaluate("(command \"1,1\")");
    EXPECT_THAT(takePrinted(), testing::StartsWith("\nSpecify next point or [Undo]: 1,1\n"));
}

TEST_F(SelectObjects, SsgetBelongsToTheStepOfItsProgram)
{
    m_document.drawing().database().journal().nextStep();
    m_services.answers = AnswersFile::fromText(u"_all\n\n", QString());
    evaluate("(entmake '((0 . \"TEXT\") (10 0 0) (40 . 1) (1 . \"a\")))"
             "(ssget)"
             "(entmake '((0 . \"TEXT\") (10 0 0) (40 . 1) (1 . \"b\")))");
    EXPECT_EQ(evaluate("(sslength (ssget \"X\" '((0 . \"TEXT\"))))"), "2");
    evaluate("(command \"_.u\")");
    EXPECT_EQ(evaluate("(ssget \"X\" '((0 . \"TEXT\")))"), "nil");
}

TEST_F(SelectObjects, ErrnoTellsAPickOfNothingFromEnter)
{
    for (const std::string ask : {"entsel", "nentsel"}) {
        m_services.answers = AnswersFile::fromText(u"9,9\n\n2,1\n", QString());
        evaluate("(setvar \"ERRNO\" 0)");
        EXPECT_EQ(evaluate("(list (" + ask + ") (getvar \"ERRNO\"))"), "(nil 7)");
        EXPECT_EQ(evaluate("(list (" + ask + ") (getvar \"ERRNO\"))"), "(nil 52)");
        evaluate("(setvar \"ERRNO\" 0)");
        EXPECT_EQ(evaluate("(list (car (" + ask + ")) (getvar \"ERRNO\"))"),
                  "(" + evaluate("(handent " + handleOf("CIRCLE") + ")") + " 0)");
    }
}

TEST_F(SelectObjects, AllAndRemoveAndAdd)
{
    evaluate("(command \"_.erase\" \"_all\" \"_r\" \"_l\" \"_a\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(SelectObjects, AWindowLivesOnWhileManyAreFoundTakenAndErased)
{
    constexpr int Many = 2000;
    for (int i = 0; i < Many; ++i)
        add({{0, u"POINT"}, {8, u"0"}, {10, drawing::Point{50, 50, 0}}});
    std::vector<std::size_t> left; // at each pulse
    m_document.machine().setPulse([&] { left.push_back(types().size()); });
    evaluate("(command \"_.erase\" \"_w\" '(40 40) '(60 60) \"\")");
    m_document.machine().setPulse({});
    const auto whole = std::ranges::count(left, Many + 3U); // while it finds what is visible and inside, and takes it
    const auto partly = std::ranges::count_if(left, [](std::size_t count) { return count > 3 && count < Many + 3; });
    EXPECT_GT(whole, 3 * Many / 256 - 2);
    EXPECT_GT(partly, Many / 256 - 2);
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(SelectObjects, UndoTakesTheLastOneBack)
{
    evaluate("(command \"_.erase\" \"_all\" \"_u\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(SelectObjects, PreviousIsWhatTheLastCommandHad)
{
    evaluate("(command \"_.select\" \"_l\" \"\") (command \"_.erase\" \"_p\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(SelectObjects, PreviousIsEmptyWhenItsObjectsAreErased)
{
    evaluate("(command \"_.erase\" \"_l\" \"\") (setvar \"CMDECHO\" 1)");
    takePrinted();
    evaluate("(command \"_.erase\" \"_p\" \"\")");
    EXPECT_THAT(takePrinted(), HasSubstr("0 found"));
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(SelectObjects, ABlankAloneIsEnter)
{
    evaluate("(command \"_.erase\" \"_l\" \" \")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(SelectObjects, WhatIsNoObjectIsComplainedAbout)
{
    evaluate("(command \"_.erase\" \"nothing\" \"_l\" \"\")");
    EXPECT_EQ(takePrinted(), "\nInvalid selection\n");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(SelectObjects, AWindowTakesWhatLiesInIt)
{
    evaluate("(command \"_.erase\" \"_w\" \"0.5,0.5\" \"3.5,3.5\" \"\")"); // the line begins outside
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(SelectObjects, ACrossingTakesWhatItTouches)
{
    evaluate("(command \"_.erase\" \"_c\" \"2.4,2.4\" \"2.6,2.6\" \"\")"); // within the circle, which it does not touch
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    evaluate("(command \"_.erase\" \"_c\" '(2.9 1.9) '(5 2.1) \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT"));
}

TEST_F(SelectObjects, PolygonsAndFences)
{
    evaluate("(command \"_.erase\" \"_wp\" \"0.5,0.5\" \"1.5,0.6\" \"0.9,1.6\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE", "LINE"));
    evaluate("(command \"_.erase\" \"_f\" \"0,1\" \"0.5,0\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre("CIRCLE"));
    evaluate("(command \"_.erase\" \"_cp\" \"2.5,2\" \"5,1\" \"5,3\" \"\" \"\")");
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(SelectObjects, APlaceTakesWhatIsThereOrBeginsARectangle)
{
    evaluate("(command \"_.zoom\" \"_w\" '(0 0) '(8 5))");
    evaluate("(command \"_.erase\" '(3 2) \"\")"); // on the circle
    EXPECT_THAT(types(), ElementsAre("POINT", "LINE"));
    evaluate("(command \"_.erase\" '(1.5 0.5) '(0.5 1.6) \"\")"); // to the left: the line is touched
    EXPECT_THAT(types(), ElementsAre());
}

TEST_F(SelectObjects, AnEntityIsPickedByAPlace)
{
    evaluate("(command \"_.zoom\" \"_w\" '(0 0) '(8 5))");
    evaluate("(command \"_.area\" \"_o\" '(2 3))");
    EXPECT_EQ(evaluate("(rtos (getvar \"AREA\") 2 4)"), "\"3.1416\"");
}

TEST_F(SelectObjects, ObjectsOnLockedLayersStay)
{
    database().replace(m_document.drawing().tables().find(drawing::known::Layer, u"0"),
                       {{0, u"LAYER"}, {2, u"0"}, {70, std::int64_t{4}}, {62, std::int64_t{7}}, {6, u"Continuous"}});
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.erase\" \"_all\" \"\")");
    EXPECT_THAT(takePrinted(), HasSubstr("3 found\n3 was on a locked layer."));
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(SelectObjects, ACommandLeftAloneRightAfterSelectTakesItsObjects)
{
    evaluate("(command \"_.select\" \"_l\" \" \" \"_.erase\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(SelectObjects, ACommandWithObjectsOfItsOwnDoesNotTakeThoseOfSelect)
{
    evaluate("(command \"_.select\" \"_l\" \"\" \"_.erase\" \"_all\" \"_r\" \"_p\" \"\")");
    EXPECT_THAT(types(), ElementsAre("LINE"));
}

TEST_F(SelectObjects, WithPickfirstOffTheCommandAfterSelectWaits)
{
    evaluate("(setvar \"PICKFIRST\" 0) (command \"_.select\" \"_l\" \"\" \"_.erase\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "1");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(SelectObjects, WhatIsSelectedBeforehandIsTakenWithoutAsking)
{
    evaluate("(sssetfirst nil (ssadd (entlast))) (command \"_.erase\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    EXPECT_EQ(evaluate("(cadr (ssgetfirst))"), "nil");
}

TEST_F(SelectObjects, ACommandThatSelectsNothingDropsWhatIsSelectedBeforehand)
{
    evaluate("(sssetfirst nil (ssadd (entlast))) (command \"_.point\" \"9,9\")");
    EXPECT_EQ(evaluate("(cadr (ssgetfirst))"), "nil");
    evaluate("(command \"_.erase\" (entlast) \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(SelectObjects, ACommandThatAsksForMoreFirstTakesWhatIsSelectedBeforehand)
{
    evaluate("(sssetfirst nil (ssadd (entlast))) (command \"_.-block\" \"part\" \"0,0\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(SelectObjects, OnlyTheFirstSelectionOfACommandTakesWhatIsSelectedBeforehand)
{
    evaluate("(sssetfirst nil (ssget \"X\" '((0 . \"LINE\"))))");
    evaluate("(command \"_.zoom\" \"_w\" '(0 0) '(8 5) \"_.trim\" '(1.29 1.29) \"\")"); // the line cuts, not the rest
    EXPECT_EQ(evaluate("(cadr (ssgetfirst))"), "nil");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(SelectObjects, ACommandThatMayInterruptOthersLeavesObjectsSelected)
{
    evaluate("(sssetfirst nil (ssadd (entlast))) (command \"_.zoom\" \"_e\" \"'_.pan\" \"0,0\" \"1,1\")");
    EXPECT_EQ(evaluate("(sslength (cadr (ssgetfirst)))"), "1");
    evaluate("(command \"_.osmode\" 0 \"_.setvar\" \"ORTHOMODE\" 1)");
    EXPECT_EQ(evaluate("(sslength (cadr (ssgetfirst)))"), "1");
}

TEST_F(SelectObjects, WithPickfirstOffWhatIsSelectedBeforehandIsDropped)
{
    evaluate("(setvar \"PICKFIRST\" 0) (sssetfirst nil (ssadd (entlast))) (command \"_.erase\" \"\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
    EXPECT_EQ(evaluate("(cadr (ssgetfirst))"), "nil");
}

// Programs read what ssnamex gives by place: (METHOD ENAME 0 ...), polygons behind all entities.
class HowSelected : public SelectObjects
{
protected:
    HowSelected() { evaluate("(command \"_.zoom\" \"_w\" '(0 0) '(8 5))"); }
    // With the types instead of the entity names.
    std::string how(const std::string &set)
    {
        return evaluate("(mapcar '(lambda (one) (mapcar '(lambda (part) (if (= (type part) 'ENAME)"
                        " (cdr (assoc 0 (entget part))) part)) one)) (ssnamex " +
                        set + "))");
    }
};

TEST_F(HowSelected, SsgetWithPlaces)
{
    EXPECT_EQ(how("(ssget '(3 2))"), "((1 \"CIRCLE\" 0 (0 (3.0 2.0 0.0))))");
    const std::string window = "(-1 (0 (0.5 0.5 0.0)) (0 (1.5 0.5 0.0)) (0 (1.5 1.5 0.0)) (0 (0.5 1.5 0.0)))";
    EXPECT_EQ(how("(ssget \"_W\" '(0.5 0.5) '(1.5 1.5))"), "((2 \"POINT\" 0 -1) " + window + ")");
    EXPECT_EQ(how("(ssget \"_C\" '(0.5 0.5) '(1.5 1.5))"),
              "((3 \"LINE\" 0 -1) (3 \"CIRCLE\" 0 -1) (3 \"POINT\" 0 -1) " + window + ")");
    EXPECT_EQ(how("(ssget \"_WP\" '((0.5 0.5) (1.5 0.6) (0.9 1.6)))"),
              "((2 \"POINT\" 0 -1) (-1 (0 (0.5 0.5 0.0)) (0 (1.5 0.6 0.0)) (0 (0.9 1.6 0.0))))");
    EXPECT_EQ(how("(ssget \"_F\" '((4 2) (2 2)))"),
              "((4 \"LINE\" 0 (0 (2.0 2.0 0.0))) (4 \"CIRCLE\" 0 (0 (3.0 2.0 0.0))))");
    EXPECT_EQ(how("(ssget \"_X\")"), "((0 \"LINE\" 0) (0 \"CIRCLE\" 0) (0 \"POINT\" 0))");
}

TEST_F(HowSelected, APersonSelectsInSeveralWays)
{
    m_services.answers = AnswersFile::fromText(u"3,2\n_c\n-1,-1\n0.5,0.5\n_w\n0.5,0.5\n1.5,1.5\n\n", QString());
    evaluate("(setq set (ssget))");
    EXPECT_EQ(how("set"), "((1 \"CIRCLE\" 0 (0 (3.0 2.0 0.0))) (3 \"LINE\" 0 -1) (2 \"POINT\" 0 -2)"
                          " (-1 (0 (-1.0 -1.0 0.0)) (0 (0.5 -1.0 0.0)) (0 (0.5 0.5 0.0)) (0 (-1.0 0.5 0.0)))"
                          " (-2 (0 (0.5 0.5 0.0)) (0 (1.5 0.5 0.0)) (0 (1.5 1.5 0.0)) (0 (0.5 1.5 0.0))))");
    EXPECT_EQ(how("set 0"), "((1 \"CIRCLE\" 0 (0 (3.0 2.0 0.0))))");
    evaluate("(setq round (ssname set 0)) (ssdel round set) (ssadd round set)");
    EXPECT_EQ(how("set 2"), "((0 \"CIRCLE\" 0))");
}

} // namespace
