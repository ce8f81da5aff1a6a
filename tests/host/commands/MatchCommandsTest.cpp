#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

namespace {

using drawing::integerOf;
using drawing::textOf;

using MatchCommands = CommandTest;

TEST_F(MatchCommands, PropertiesAreTakenOver)
{
    evaluate("(command \"_.point\" \"0,0\") (setq target (entlast))"
             "(command \"_.-layer\" \"_m\" \"Walls\" \"\") (setvar \"CECOLOR\" \"3\") (command \"_.line\" \"0,0\" "
             "\"1,0\" \"\")"
             "(setq source (entlast)) (command \"_.matchprop\" source target \"\")");
    const auto groups = database().groups(database().record(last()).previous);
    EXPECT_EQ(textOf(groups, 0), u"POINT");
    EXPECT_EQ(textOf(groups, 8), u"Walls");
    EXPECT_EQ(integerOf(groups, 62), 3);
}

TEST_F(MatchCommands, ABlockIsRenamedWithItsInserts)
{
    evaluate("(command \"_.circle\" \"0,0\" 1) (command \"_.-block\" \"Ring\" \"0,0\" \"_l\" \"\")"
             "(command \"_.insert\" \"Ring\" '(0 0) \"\" \"\" \"\") (command \"_.rename\" \"_b\" \"ring\" \"Wheel\")");
    EXPECT_EQ(textOf(lastGroups(), 2), u"Wheel");
    EXPECT_NE(m_document.drawing().tables().find(drawing::known::Block, u"Wheel"), drawing::NoRecord);
    EXPECT_NE(m_document.drawing().tables().find(drawing::known::BlockRecord, u"Wheel"), drawing::NoRecord);
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(MatchCommands, ANameThatIsTakenOrNotThereIsSaid)
{
    evaluate("(command \"_.-style\" \"Notes\" \"arial.ttf\" \"\" \"\" \"\" \"\" \"\")"
             "(command \"_.rename\" \"_s\" \"Notes\" \"Standard\")");
    EXPECT_EQ(takePrinted(), "\nCannot rename text style \"Notes\" to \"Standard\".\n");
    evaluate("(command \"_.rename\" \"_b\" \"None\" \"Other\")");
    EXPECT_EQ(takePrinted(), "\nCannot find block \"None\".\n");
}

TEST_F(MatchCommands, DelayTakesItsNumberAndDoesNotWait)
{
    EXPECT_EQ(evaluate("(command \"_.delay\" 30000) (getvar \"CMDACTIVE\")"), "0");
}

} // namespace
