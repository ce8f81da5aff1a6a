#include "functions/help.h"

#include "tests/support/HandlerTest.h"

namespace {

class HelpTrap : public HandlerTest
{
protected:
    static Operations trapped(const char *file, const char *topic, const char *released)
    {
        return {"getArgs", std::string("helpTrap \"CMD\" \"") + file + "\" \"" + topic + '"', "retT",
                std::string("releaseRb ") + released};
    }
};

} // namespace

TEST_F(HelpTrap, ATopicAloneUsesTheHelpFileWexoTools)
{
    EXPECT_EQ(call(acetHelpTrap, {text(u"CMD"), text(u"topic")}), trapped("WexoTools.chm", "topic", "null"));
    EXPECT_EQ(call(acetHelpTrap, {text(u"CMD"), text(u"topic"), nil()}), trapped("WexoTools.chm", "topic", "3"));
}

TEST_F(HelpTrap, TheNameAlonePassesTwoEmptyStrings)
{
    EXPECT_EQ(call(acetHelpTrap, {text(u"CMD")}), trapped("", "", "null"));
    EXPECT_EQ(call(acetHelpTrap, {text(u"CMD"), nil(), text(u"file.chm")}), trapped("", "", "2"));
}

TEST_F(HelpTrap, AHelpFileOfItsOwnReplacesTheDefault)
{
    EXPECT_EQ(call(acetHelpTrap, {text(u"CMD"), text(u"topic"), text(u"own.chm")}),
              trapped("own.chm", "topic", "null"));
    EXPECT_EQ(call(acetHelpTrap, {text(u"CMD"), text(u"topic"), text(u"own.chm"), nil()}),
              trapped("own.chm", "topic", "4"));
}

TEST_F(HelpTrap, AnyOtherStatusGivesNil)
{
    host().setAnswer("helpTrap", StatusError);
    EXPECT_EQ(call(acetHelpTrap, {text(u"CMD")}).at(2), "retNil");
}

TEST_F(HelpTrap, AMissingOrWrongNameIsRefused)
{
    EXPECT_EQ(call(acetHelpTrap, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetHelpTrap, {nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
