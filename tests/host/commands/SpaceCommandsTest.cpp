#include "tests/host/commands/CommandTest.h"

namespace {

class SpaceCommands : public CommandTest
{
protected:
    void addViewport()
    {
        drawing::GroupList groups{drawing::textGroup(0, u"VIEWPORT"), drawing::textGroup(8, u"0"),
                                  drawing::integerGroup(67, 1), drawing::integerGroup(69, 2)};
        add(groups);
    }
    std::string spaceOfNewLine()
    {
        return evaluate("(command \"_.line\" \"0,0\" \"1,1\" \"\") (cdr (assoc 67 (entget (entlast))))");
    }
};

TEST_F(SpaceCommands, ALayoutsPaperOrTheModelIsWorkedOn)
{
    addViewport();
    evaluate("(setvar \"TILEMODE\" 0)");
    EXPECT_EQ(evaluate("(getvar \"CVPORT\")"), "1");
    EXPECT_EQ(spaceOfNewLine(), "1");
    evaluate("(command \"_.mspace\")");
    EXPECT_EQ(evaluate("(getvar \"CVPORT\")"), "2");
    EXPECT_EQ(spaceOfNewLine(), "0");
    evaluate("(command \"_.pspace\")");
    EXPECT_EQ(spaceOfNewLine(), "1");
}

TEST_F(SpaceCommands, TheModelTabAndALayoutWithoutViewportsRefuse)
{
    evaluate("(command \"_.pspace\")");
    EXPECT_EQ(takePrinted(), "\n** Command not allowed in Model Tab **\n");
    evaluate("(setvar \"TILEMODE\" 0) (command \"_.mspace\")");
    EXPECT_EQ(takePrinted(), "\nThere are no active Model space viewports.\n");
    EXPECT_EQ(evaluate("(getvar \"CVPORT\")"), "1");
}

} // namespace
