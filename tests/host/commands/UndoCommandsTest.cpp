#include "tests/host/commands/CommandTest.h"

#include <QTemporaryDir>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class UndoCommands : public CommandTest
{
protected:
    UndoCommands()
    {
        for (const char16_t *type : {u"POINT", u"CIRCLE", u"LINE"})
            add({{0, type}, {8, u"0"}, {10, drawing::Point{1, 1, 0}}, {40, 1.0}});
        database().journal().clear();
    }
    void eraseLast() { evaluate("(command \"_.erase\" \"_l\" \"\")"); }
};

TEST_F(UndoCommands, EveryCommandIsOneStep)
{
    eraseLast();
    eraseLast();
    evaluate("(command \"_.u\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    evaluate("(command \"_.u\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
    evaluate("(command \"_.redo\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(UndoCommands, ANumberOfStepsAtOnce)
{
    eraseLast();
    eraseLast();
    evaluate("(command \"_.undo\" 2)");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(UndoCommands, AGroupIsOneStep)
{
    eraseLast();
    evaluate("(command \"_.undo\" \"_be\")");
    EXPECT_EQ(evaluate("(getvar \"UNDOCTL\")"), "13");
    eraseLast();
    eraseLast();
    evaluate("(command \"_.undo\" \"_e\")");
    EXPECT_EQ(evaluate("(getvar \"UNDOCTL\")"), "5");
    EXPECT_THAT(types(), ElementsAre());
    evaluate("(command \"_.undo\" \"1\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(UndoCommands, BackGoesToTheMark)
{
    eraseLast();
    evaluate("(command \"_.undo\" \"_mark\")");
    eraseLast();
    eraseLast();
    evaluate("(command \"_.undo\" \"_back\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.undo\" \"_mark\" \"_.undo\" \"_back\")");
    EXPECT_THAT(takePrinted(), HasSubstr("Mark encountered."));
}

TEST_F(UndoCommands, BackWithoutMarkAsksBeforeEverythingIsUndone)
{
    eraseLast();
    evaluate("(command \"_.undo\" \"_back\" \"_no\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    evaluate("(command \"_.undo\" \"_back\" \"_yes\")");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(UndoCommands, NothingBeforeAnOpenTransactionIsUndone)
{
    eraseLast();
    database().journal().startTransaction();
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.u\")");
    EXPECT_THAT(takePrinted(), HasSubstr("A transaction is open: nothing before it can be undone."));
    evaluate("(command \"_.undo\" \"_back\")");
    EXPECT_THAT(takePrinted(), HasSubstr("A transaction is open: nothing before it can be undone."));
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(UndoCommands, AnErrorThatEndsTheProgramEndsItsTransactionsAndKeepsTheirChanges)
{
    eraseLast();
    database().journal().startTransaction();
    database().journal().startTransaction();
    eraseLast();
    EXPECT_EQ(evaluate("(car 5)"), "error: bad argument type: listp 5");
    EXPECT_THAT(types(), ElementsAre("POINT"));
    evaluate("(command \"_.undo\" 2)");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE", "LINE"));
}

TEST_F(UndoCommands, AnErrorThatTheProgramCatchesLeavesItsTransactionOpen)
{
    database().journal().startTransaction();
    evaluate("(vl-catch-all-apply 'car '(5))");
    EXPECT_TRUE(database().journal().isTransactionOpen());
}

TEST_F(UndoCommands, TheErrorHandlerOfTheProgramRunsWithinItsTransaction)
{
    database().journal().startTransaction();
    evaluate("(defun *error* (message) (entdel (entlast))) (car 5)");
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
    EXPECT_FALSE(database().journal().isTransactionOpen());
}

TEST_F(UndoCommands, ControlSwitchesUndoOffAndOn)
{
    evaluate("(command \"_.undo\" \"_control\" \"_none\")");
    EXPECT_EQ(evaluate("(getvar \"UNDOCTL\")"), "0");
    eraseLast();
    evaluate("(command \"_.undo\" \"_all\")");
    EXPECT_EQ(evaluate("(getvar \"UNDOCTL\")"), "5");
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.undo\" 1)");
    EXPECT_THAT(takePrinted(), HasSubstr("Everything has been undone."));
    EXPECT_THAT(types(), ElementsAre("POINT", "CIRCLE"));
}

TEST_F(UndoCommands, ControlAsksWhatTheOptionIsAbout)
{
    evaluate("(setvar \"CMDECHO\" 1) (command \"_.undo\" \"_control\" \"_layer\" \"_yes\")");
    EXPECT_THAT(takePrinted(), HasSubstr("Combine layer property changes?"));
    evaluate("(command \"_.undo\" \"_control\" \"_combine\" \"_yes\")");
    EXPECT_THAT(takePrinted(), HasSubstr("Combine zoom and pan operations?"));
}

TEST_F(UndoCommands, ControlOneLeavesTheLastStepToUndo)
{
    eraseLast();
    evaluate("(command \"_.undo\" \"_control\" \"_one\")");
    EXPECT_EQ(evaluate("(getvar \"UNDOCTL\")"), "3");
    eraseLast();
    eraseLast();
    evaluate("(command \"_.u\" \"_.u\")");
    EXPECT_THAT(types(), ElementsAre("POINT"));
    evaluate("(command \"_.redo\")");
    EXPECT_THAT(types(), ElementsAre());
    evaluate("(command \"_.undo\" 5)");
    EXPECT_THAT(types(), ElementsAre("POINT"));
    evaluate("(command \"_.undo\" \"_control\" \"_all\")");
    EXPECT_EQ(evaluate("(getvar \"UNDOCTL\")"), "5");
}

TEST_F(UndoCommands, ANumberBelowOneIsRefused)
{
    evaluate("(command \"_.point\" \"5,5\" \"_.undo\" 0)");
    EXPECT_EQ(takePrinted(), "\nRequires an integer between 1 and 32767.\n");
    const std::size_t before = types().size();
    evaluate("(command 1)");
    EXPECT_EQ(types().size(), before - 1);
}

TEST_F(UndoCommands, WhatWasErasedAndDrawnInAnotherDrawingIsForgotten)
{
    const QTemporaryDir folder;
    const std::string path = folder.filePath(QStringLiteral("drawing.dxf")).toStdString();
    evaluate("(command \"_.line\" \"0,0\" \"5,5\" \"\" \"_.saveas\" \"\" \"" + path + "\")");
    const std::size_t count = types().size();
    for (int time = 0; time < 2; ++time) // the same file, so that its records have the same numbers
        evaluate("(command \"_.erase\" \"_all\" \"\" \"_.open\" \"_y\" \"" + path + "\")");
    ASSERT_EQ(types().size(), count);
    evaluate("(while (entlast) (entdel (entlast))) (command \"_.oops\")");
    EXPECT_TRUE(types().empty());
    takePrinted();
    evaluate("(command \"_.line\" \"\")");
    EXPECT_EQ(takePrinted(), "\nNo line or arc to continue.\n");
}

} // namespace
