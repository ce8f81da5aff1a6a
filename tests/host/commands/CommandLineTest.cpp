#include "tests/host/commands/CommandTest.h"

namespace {

using testing::HasSubstr;

using CommandLine = CommandTest;

TEST_F(CommandLine, ACommandThatIsNotThereIsComplainedAboutAndTheRestIsDropped)
{
    EXPECT_EQ(evaluate("(command \"_.foo\" \"LUPREC\" 2)"), "nil");
    EXPECT_EQ(takePrinted(), "\nUnknown command \"FOO\".\n");
    EXPECT_EQ(evaluate("(getvar \"LUPREC\")"), "4");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(CommandLine, ACommandKeepsItsPlaceBetweenCalls)
{
    EXPECT_EQ(evaluate("(command \"_setvar\") (getvar \"CMDACTIVE\")"), "1");
    EXPECT_EQ(evaluate("(getvar \"CMDNAMES\")"), "\"SETVAR\"");
    EXPECT_EQ(evaluate("(command \"luprec\")"), "nil");
    EXPECT_EQ(evaluate("(getvar \"LASTPROMPT\")"), "\"Enter new value for LUPREC <4>: \"");
    EXPECT_EQ(evaluate("(command 6) (getvar \"LUPREC\")"), "6");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(CommandLine, ACallWithoutArgumentsOrWithNilIsEsc)
{
    EXPECT_EQ(evaluate("(command \"_setvar\" \"LUPREC\") (command) (getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(evaluate("(command \"_setvar\" \"LUPREC\" nil \"_.luprec\" 3) (getvar \"LUPREC\")"), "3");
}

TEST_F(CommandLine, PromptsAndAnswersAreShownWhenCmdechoIsOne)
{
    evaluate("(setvar \"CMDECHO\" 1)");
    takePrinted();
    evaluate("(command \"_.setvar\" \"LUPREC\" 5)");
    EXPECT_EQ(takePrinted(), "\n_.setvar\nEnter variable name: LUPREC\nEnter new value for LUPREC <4>: 5\n");
    evaluate("(command \"_.setvar\")");
    EXPECT_EQ(takePrinted(), "\n_.setvar\nEnter variable name: ");
    evaluate("(command \"LUPREC\" 4)");
    EXPECT_EQ(takePrinted(), "LUPREC\nEnter new value for LUPREC <5>: 4\n");
    evaluate("(setvar \"CMDECHO\" 0) (command \"_.setvar\" \"LUPREC\" 5)");
    EXPECT_EQ(takePrinted(), "");
}

TEST_F(CommandLine, WhatDoesNotFitIsComplainedAboutAndAskedAgain)
{
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"LUPREC\" \"many\" 7) (getvar \"LUPREC\")"), "7");
    EXPECT_EQ(takePrinted(), "\nRequires an integer value.\n");
}

// A program's wrong number is taken and dropped; what comes behind it answers the same question.
TEST_F(CommandLine, NumbersBeyondTheLimitsOfAQuestionAreComplainedAboutAndAskedAgain)
{
    const std::string positive = "\nValue must be positive and nonzero.\n", notNegative = "\nValue must be positive.\n",
                      nonzero = "\nValue must be nonzero.\n";
    const struct
    {
        std::string command, number, complaint, rest;
    } cases[] = {
        {"\"_.circle\" \"50,50\"", "-1", positive, "2"},
        {"\"_.ellipse\" \"_c\" \"50,50\" \"60,50\"", "0", positive, "2"},
        {"\"_.donut\"", "-1", notNegative, "0 2 \"50,50\" \"\""},
        {"\"_.donut\" 1", "0", positive, "2 \"50,50\" \"\""},
        {"\"_.arc\" \"50,0\" \"_e\" \"60,0\" \"_r\"", "0", nonzero, "20"},
        {"\"_.arc\" \"50,0\" \"_e\" \"60,0\" \"_a\"", "0", nonzero, "90"},
        {"\"_.arc\" \"_c\" \"50,0\" \"60,0\" \"_l\"", "0", nonzero, "5"},
        {"\"_.pline\" \"50,0\" \"_w\"", "-1", notNegative, "1 1 \"60,0\" \"\""},
        {"\"_.pline\" \"50,0\" \"_a\" \"_r\"", "0", nonzero, "9 \"60,0\" \"\""},
        {"\"_.rectang\" \"_f\"", "-1", notNegative, "1 \"50,0\" \"60,10\""},
        {"\"_.rectang\" \"50,0\" \"_d\"", "0", nonzero, "4 5 \"60,10\""},
        {"\"_.array\" \"_l\" \"\" \"_r\"", "0", "\nRequires an integer between 1 and 100000.\n", "1 2 5"},
        {"\"_.array\" \"_l\" \"\" \"_r\" 2 1", "\"far\"", "\nRequires numeric distance or two points.\n", "5"},
        {"\"_.array\" \"_l\" \"\" \"_p\" \"0,0\" \"\" 90", "0", nonzero, "30 \"_y\""},
        {"\"_.-text\" \"0,0\"", "0", positive, "2 0 \"word\""},
        {"\"_.chprop\" (entlast) \"\" \"_s\"", "-1", positive, "2 \"\" \"_.point\" \"5,5\""},
        {"\"_.chprop\" (entlast) \"\" \"_tr\"", "91", "\nRequires an integer between 0 and 90.\n",
         "50 \"\" \"_.point\" \"5,5\""},
        {"\"_.-block\" \"one\" \"0,0\" (entlast) \"\" \"_.point\" \"5,5\" \"_.-insert\" \"one\" \"0,0\"", "0", nonzero,
         "1 1 0"},
        {"\"_.measure\" (entlast)", "0", positive, "2"},
        {"\"_.divide\" (entlast)", "1", "\nRequires an integer between 2 and 32767.\n", "3"},
        {"\"_.offset\"", "0", positive, "2 (list (entlast) '(0 0)) '(200 200) \"\""},
    };
    for (const auto &[command, number, complaint, rest] : cases) {
        evaluate("(command \"_.erase\" \"_all\" \"\" \"_.line\" \"0,0\" \"9,9\" \"\")");
        takePrinted();
        evaluate("(command " + command + ")");
        EXPECT_EQ(takePrinted(), "") << command;
        const std::string prompt = evaluate("(getvar \"LASTPROMPT\")");
        evaluate("(command " + number + ")");
        EXPECT_EQ(takePrinted(), complaint) << command;
        EXPECT_EQ(evaluate("(getvar \"LASTPROMPT\")"), prompt) << command;
        evaluate("(command " + rest + ")");
        EXPECT_EQ(takePrinted(), "") << command;
        EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0") << command;
        EXPECT_GT(types().size(), 1u) << command;
    }
}

TEST_F(CommandLine, ShortNamesRunTheCommands)
{
    evaluate("(command \"L\" \"0,0\" \"9,9\" \"\" \"_c\" \"5,5\" 2 \"_.pl\" \"0,0\" \"1,1\" \"\" \"_e\" \"_l\" \"\")");
    EXPECT_EQ(types(), (std::vector<std::string>{"LINE", "CIRCLE"}));
    EXPECT_EQ(evaluate("(command \"-la\") (getvar \"CMDNAMES\")"), "\"-LAYER\"");
    EXPECT_EQ(takePrinted(), "");
    evaluate("(command) (command \"_q\")");
    EXPECT_EQ(takePrinted(), "\nUnknown command \"Q\".\n");
}

// The words in the brackets of a prompt, as short as they may be.
std::vector<std::string> optionsOf(const std::string &prompt)
{
    const std::size_t open = prompt.find('['), close = prompt.find(']');
    std::vector<std::string> options{{}};
    bool isFirstWord = true;
    for (const char letter : prompt.substr(open + 1, close - open - 1)) {
        if (letter == '/')
            options.emplace_back();
        else if (isFirstWord && std::isupper(letter) != 0)
            options.back() += letter;
        isFirstWord = letter == '/' || (isFirstWord && letter != ' ');
    }
    return options;
}

TEST_F(CommandLine, EveryOptionThatAPromptOffersIsTaken)
{
    const QTemporaryDir folder;
    const std::string written = folder.filePath(QStringLiteral("written")).toStdString();
    evaluate("(command \"_.line\" \"0,0\" \"9,9\" \"\" \"_.-block\" \"one\" \"0,0\" \"_l\" \"\")"
             "(command \"_.line\" \"0,0\" \"9,9\" \"\")");
    for (const std::string &start : std::vector<std::string>{"\"_.rectang\"",
                                                             "\"_.rectang\" \"0,0\"",
                                                             "\"_.rectang\" \"0,0\" \"_r\"",
                                                             "\"_.rectang\" \"0,0\" \"_a\" 9",
                                                             "\"_.offset\"",
                                                             "\"_.offset\" 2",
                                                             "\"_.offset\" 2 (entlast)",
                                                             "\"_.offset\" 2 (entlast) \"_m\"",
                                                             "\"_.copy\" \"_l\" \"\"",
                                                             "\"_.copy\" \"_l\" \"\" \"0,0\" \"1,1\"",
                                                             "\"_.move\" \"_l\" \"\"",
                                                             "\"_.stretch\" \"_l\" \"\"",
                                                             "\"_.rotate\" \"_l\" \"\" \"0,0\"",
                                                             "\"_.rotate\" \"_l\" \"\" \"0,0\" \"_r\" 0",
                                                             "\"_.scale\" \"_l\" \"\" \"0,0\"",
                                                             "\"_.scale\" \"_l\" \"\" \"0,0\" \"_r\" 1",
                                                             "\"_.-insert\" \"one\"",
                                                             "\"_.-insert\" \"one\" \"0,0\"",
                                                             "\"_.area\"",
                                                             "\"_.area\" \"_a\"",
                                                             "\"_.area\" \"_s\"",
                                                             "\"_.divide\" (entlast)",
                                                             "\"_.divide\" (entlast) \"_b\" \"one\"",
                                                             "\"_.measure\" (entlast)",
                                                             "\"_.limits\"",
                                                             "\"_.dist\" \"0,0\"",
                                                             "\"_.dist\" \"0,0\" \"_m\"",
                                                             "\"_.text\"",
                                                             "\"_.text\" \"_j\"",
                                                             "\"_.-attdef\"",
                                                             "\"_.-attdef\" \"\" \"tag\" \"\" \"\"",
                                                             "\"_.ucs\"",
                                                             "\"_.ucs\" \"_na\"",
                                                             "\"_.color\"",
                                                             "\"_.saveas\" \"_dxf\"",
                                                             "\"_.dxfout\" \"" + written + "\""}) {
        evaluate("(command " + start + ")");
        const std::string prompt = evaluate("(getvar \"LASTPROMPT\")");
        EXPECT_THAT(optionsOf(prompt), testing::Each(testing::Ne(""))) << prompt;
        for (const std::string &option : optionsOf(prompt)) {
            evaluate("(command) (command " + start + ")");
            takePrinted();
            evaluate("(command \"" + option + "\")");
            EXPECT_THAT(takePrinted(), testing::Not(testing::AnyOf(HasSubstr("equire"), HasSubstr("option keyword"),
                                                                   HasSubstr("found"), HasSubstr("named"))))
                << prompt << option;
        }
        evaluate("(command)");
    }
}

TEST_F(CommandLine, APersonIsAskedAgainForANumberBeyondTheLimits)
{
    m_services.answers = AnswersFile::fromText(u"0,0\n-1\n0\n2\n", QStringLiteral("answers"));
    EXPECT_EQ(m_document.commandLine().runTyped(u"circle"), commands::CommandLine::Result::Taken);
    EXPECT_EQ(evaluate("(cdr (assoc 40 (entget (entlast))))"), "2.0");
}

TEST_F(CommandLine, PauseAsksThePerson)
{
    m_services.answers = AnswersFile::fromText(u"3\n", QStringLiteral("answers"));
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"LUPREC\" PAUSE) (getvar \"LUPREC\")"), "3");
    EXPECT_THAT(takePrinted(), HasSubstr("Enter new value for LUPREC <4>: 3"));
}

TEST_F(CommandLine, PauseAsksAgainUntilThereIsAnAnswer)
{
    m_services.answers = AnswersFile::fromText(u"many\n3\n", QStringLiteral("answers"));
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"LUPREC\" PAUSE \"_.auprec\" 5) "
                       "(mapcar 'getvar '(LUPREC AUPREC))"),
              "(3 5)");
    EXPECT_THAT(takePrinted(), HasSubstr("Requires an integer value."));
}

TEST_F(CommandLine, WhatAPersonAnswersIsShownOnce)
{
    evaluate("(setvar \"CMDECHO\" 1)");
    m_services.answers = AnswersFile::fromText(u"3\n", QStringLiteral("answers"));
    takePrinted();
    evaluate("(command \"_.setvar\" \"LUPREC\" PAUSE)");
    EXPECT_EQ(takePrinted(), "\n_.setvar\nEnter variable name: LUPREC\nEnter new value for LUPREC <4>: 3\n\n");
}

TEST_F(CommandLine, ATypedCommandAsksThePersonForEverything)
{
    m_services.answers = AnswersFile::fromText(u"LUPREC\nmany\n3\n", QStringLiteral("answers"));
    EXPECT_EQ(m_document.commandLine().runTyped(u"setvar"), commands::CommandLine::Result::Taken);
    EXPECT_EQ(takePrinted(), "\nEnter variable name: LUPREC\n\nEnter new value for LUPREC <4>: many\n"
                             "\nRequires an integer value.\n\nEnter new value for LUPREC <4>: 3\n");
    EXPECT_FALSE(m_document.commandLine().isActive());
    EXPECT_EQ(m_document.commandLine().runTyped(u"setvar"), commands::CommandLine::Result::Cancelled);
    EXPECT_EQ(m_document.commandLine().runTyped(u"foo"), commands::CommandLine::Result::Unknown);
}

TEST_F(CommandLine, EscAtAPauseEndsTheCommandAndTheProgram)
{
    EXPECT_EQ(evaluate("(command \"_.setvar\" \"LUPREC\" PAUSE)"), "error: Function cancelled");
    EXPECT_EQ(evaluate("(list (getvar \"CMDACTIVE\") (getvar \"LUPREC\"))"), "(0 4)");
}

TEST_F(CommandLine, VlCmdfTellsWhetherTheCommandIsThere)
{
    EXPECT_EQ(evaluate("(vl-cmdf \"_.luprec\" 2)"), "T");
    EXPECT_EQ(evaluate("(vl-cmdf \"_.foo\")"), "nil");
}

TEST_F(CommandLine, CommandSRunsOneWholeCommandOrFails)
{
    EXPECT_EQ(evaluate("(command-s \"_.luprec\" 2)"), "nil");
    EXPECT_EQ(evaluate("(command-s \"_.luprec\")"), "error: command-s: the command needs more input");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
    EXPECT_EQ(evaluate("(command-s \"_.luprec\" PAUSE)"), "error: invalid argument for command-s: pause");
    EXPECT_EQ(evaluate("(command-s \"_.foo\")"), "error: command-s: unknown command");
}

TEST_F(CommandLine, ATransparentCommandRunsInsideAnother)
{
    evaluate("(command \"_.setvar\" \"LUPREC\" \"'_.setvar\")");
    EXPECT_EQ(evaluate("(getvar \"CMDNAMES\")"), "\"SETVAR'SETVAR\"");
    EXPECT_EQ(evaluate("(command \"AUPREC\" 2 6) (list (getvar \"AUPREC\") (getvar \"LUPREC\"))"), "(2 6)");
}

TEST_F(CommandLine, AValueThatNoCommandTakesIsAnError)
{
    EXPECT_EQ(evaluate("(command 'foo)"), "error: bad argument type");
}

} // namespace
