#include "tests/host/commands/CommandTest.h"

#include "tests/host/drawing/Audit.h"

namespace {

using drawing::integerOf;
using drawing::placeOf;
using drawing::realOf;
using drawing::textOf;
using geometry::Vector;
using testing::ElementsAre;

class AttributeCommand : public CommandTest
{
protected:
    void makeBlock(const std::string &name)
    {
        evaluate("(command \"_.-block\" \"" + name + "\" '(0 0) \"_all\" \"\")");
    }
    // What the attributes of the last insert say, in order.
    std::string values()
    {
        return evaluate("(setq e (entlast) all nil)"
                        "(while (= \"ATTRIB\" (cdr (assoc 0 (entget (setq e (entnext e))))))"
                        " (setq all (cons (cdr (assoc 1 (entget e))) all))) (reverse all)");
    }
};

TEST_F(AttributeCommand, AsksForTagPromptDefaultAndText)
{
    evaluate("(command \"_.attdef\" \"\" \"number\" \"Which number\" \"A 1\" '(1 2) 3.5 90)");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_THAT(types(), ElementsAre("ATTDEF"));
    EXPECT_EQ(textOf(lastGroups(), 2), u"NUMBER");
    EXPECT_EQ(textOf(lastGroups(), 3), u"Which number");
    EXPECT_EQ(textOf(lastGroups(), 1), u"A 1");
    EXPECT_EQ(textOf(lastGroups(), 7), u"Standard");
    EXPECT_EQ(integerOf(lastGroups(), 70), 0);
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 2, 0}));
    EXPECT_EQ(realOf(lastGroups(), 40), 3.5);
    EXPECT_EQ(realOf(lastGroups(), 50), 90);
    EXPECT_EQ(evaluate("(getvar \"TEXTSIZE\")"), "3.5");
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(AttributeCommand, TheStyleMayHaveTheHeight)
{
    evaluate("(command \"_.-style\" \"Notes\" \"romans.shx\" 2 1 0 \"_n\" \"_n\" \"_n\""
             " \"_.-attdef\" \"\" \"tag\" \"\" \"\" \"_s\" \"Notes\" '(1 2) 0)");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(realOf(lastGroups(), 40), 2);
    EXPECT_EQ(textOf(lastGroups(), 7), u"Notes");
}

TEST_F(AttributeCommand, IsJustifiedAsTextsAre)
{
    evaluate("(command \"-att\" \"\" \"tag\" \"\" \"\" \"_j\" \"_mc\" '(1 2) 1 0)");
    EXPECT_EQ(integerOf(lastGroups(), 72), 1);
    EXPECT_EQ(integerOf(lastGroups(), 74), 2);
    EXPECT_EQ(placeOf(lastGroups(), 11), (Vector{1, 2, 0}));
    EXPECT_LT(placeOf(lastGroups(), 10).x, 0.5); // where the base line of the tag begins
    EXPECT_EQ(drawing::auditOf(database()), "");
}

TEST_F(AttributeCommand, ModesAreChangedUntilEnterAndStay)
{
    evaluate(
        "(setvar \"CMDECHO\" 1) (command \"_.attdef\" \"_i\" \"_v\" \"_p\" \"_v\" \"\" \"a\" \"\" \"\" '(0 0) 1 0)");
    EXPECT_THAT(takePrinted(), testing::HasSubstr("Invisible=Y  Constant=N  Verify=N  Preset=Y"));
    EXPECT_EQ(integerOf(lastGroups(), 70), 1 | 8);
    evaluate("(command \"_.attdef\" \"_i\" \"\" \"b\" \"\" \"\" '(0 0) 1 0)");
    EXPECT_EQ(integerOf(lastGroups(), 70), 8);
    EXPECT_EQ(evaluate("(getvar \"AFLAGS\")"), "8");
}

TEST_F(AttributeCommand, ModesAreThoseOfTheVariable)
{
    evaluate("(setvar \"AFLAGS\" 5) (command \"_.attdef\" \"\" \"a\" \"\" \"\" '(0 0) 1 0)");
    EXPECT_EQ(integerOf(lastGroups(), 70), 5);
}

TEST_F(AttributeCommand, AConstantOneHasNoPrompt)
{
    evaluate("(command \"_.attdef\" \"_c\" \"\" \"maker\" \"Us\" '(0 0) 1 0)");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(textOf(lastGroups(), 1), u"Us");
    EXPECT_EQ(textOf(lastGroups(), 3), u"");
    EXPECT_EQ(integerOf(lastGroups(), 70), 2);
}

TEST_F(AttributeCommand, ATagThatIsEmptyOrHasABlankIsAskedAgain)
{
    evaluate("(command \"_.attdef\" \"\" \"\" \"two words\" \"one\" \"\" \"\" '(0 0) 1 0)");
    const std::string complaint = "\nAn attribute tag has one letter at least, and no blanks.\n";
    EXPECT_EQ(takePrinted(), complaint + complaint);
    EXPECT_EQ(textOf(lastGroups(), 2), u"ONE");
}

TEST_F(AttributeCommand, EnterGoesOnBelowTheLastDefinition)
{
    evaluate("(command \"_.attdef\" \"\" \"a\" \"\" \"\" '(1 20) 3 0 \"_.text\" '(50 50) 1 0 \"text\""
             " \"_.attdef\" \"\" \"b\" \"\" \"\" \"\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(textOf(lastGroups(), 2), u"B");
    EXPECT_EQ(realOf(lastGroups(), 40), 3);
    EXPECT_EQ(placeOf(lastGroups(), 10), (Vector{1, 15, 0}));
}

TEST_F(AttributeCommand, InsertAsksForWhatItDefines)
{
    for (const char *version : {"AC1009", "AC1015", "AC1032"}) {
        openEmptyDrawing(version);
        evaluate("(command \"_.circle\" '(0 0) 1 \"_.attdef\" \"\" \"number\" \"Which number\" \"none\" '(1 2) 3.5 0"
                 " \"_.attdef\" \"\" \"colour\" \"\" \"red\" \"_r\" '(1 -2) 3.5 0)");
        makeBlock("Door");
        evaluate("(setvar \"ATTREQ\" 1) (command \"_.-insert\" \"Door\" '(10 20) 1 1 0 \"A17\")");
        EXPECT_EQ(evaluate("(getvar \"LASTPROMPT\")"), "\"COLOUR <red>: \"") << version;
        evaluate("(command \"\")");
        EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
        EXPECT_EQ(values(), "(\"A17\" \"red\")") << version;
        EXPECT_EQ(drawing::auditOf(database()), "") << version;
    }
}

TEST_F(AttributeCommand, InsertAsksForPresetOnesNotAtAllAndForOthersTwiceToVerifyThem)
{
    evaluate("(command \"_.attdef\" \"_p\" \"\" \"set\" \"\" \"as it is\" '(0 0) 1 0"
             " \"_.attdef\" \"_p\" \"_v\" \"\" \"checked\" \"\" \"one\" '(0 5) 1 0"
             " \"_.attdef\" \"_v\" \"\" \"plain\" \"\" \"\" '(0 9) 1 0)");
    makeBlock("Part");
    evaluate("(command \"_.-insert\" \"Part\" '(10 20) 1 1 0 \"two\" \"words\")");
    EXPECT_EQ(evaluate("(getvar \"LASTPROMPT\")"), "\"CHECKED <two>: \"");
    evaluate("(command \"three\")");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(values(), "(\"as it is\" \"three\" \"words\")");
}

} // namespace
