#include "functions/colors.h"

#include "sdk/fx/CFxSystemServices.h"
#include "tests/support/HandlerTest.h"

namespace {

// Services that remember what was shown.
class MessageServices final : public CFxSystemServices
{
public:
    MessageServices() { HostSdk::installSystemServices(this); }
    ~MessageServices() { HostSdk::installSystemServices(nullptr); }
    CFxDocumentManager *documentManager() override { return nullptr; }
    QWidget *mainWindow() override { return nullptr; }
    void htmlPrompt(const CFxString &, bool) override {}
    void message(const CFxString &text) override { messages.push_back(text.toQString().toStdString()); }

    std::vector<std::string> messages;
};

class Truecolorcli : public HandlerTest
{
protected:
    // At the first prompt the keyword, at the second this text.
    Operations callWithColor(const std::u16string &color)
    {
        host().setAnswer("getInt", StatusKeyword);
        host().replies.input = u"Truecolor";
        host().replies.text = color;
        return call(acadTruecolorcli, {shortInteger(3)});
    }
    std::string resultOf(const std::u16string &color)
    {
        const Operations operations = callWithColor(color);
        return operations.at(operations.size() - 3);
    }

    MessageServices m_services;
};

const std::string limits = operation("initGet 6", "Truecolor");
const std::string newColor = operation("getInt", "\nNew Color <3>: ");
const std::string components = operation("getString 0 100", "\nRed,Green,Blue: ");
const char invalid[] = "Invalid color.  Type three comma separated values from 0 to 255.";

Operations indexOperations(int index)
{
    const std::string number = std::to_string(index);
    return {"getArgs",
            limits,
            newColor,
            "newRb 5016",
            "prependRb 5003 " + number,
            "prependRb 5018",
            "prependRb 5003 62",
            "retList 5016 5003 62 5018 5003 " + number,
            "releaseRb list",
            "releaseRb 1"};
}

} // namespace

TEST_F(Truecolorcli, ANumberGivesThePairOf62AndTheNumber)
{
    host().replies.number = 5;
    EXPECT_EQ(call(acadTruecolorcli, {shortInteger(3)}), indexOperations(5));
    EXPECT_EQ(host().replies.defaultNumber, 3); // the variable starts with the current index
}

TEST_F(Truecolorcli, WithEnterAtTheFirstPromptReturnsTheCurrentIndex)
{
    host().setAnswer("getInt", StatusNoInput);
    host().replies.number = 5;
    EXPECT_EQ(call(acadTruecolorcli, {shortInteger(3)}), indexOperations(3));
}

TEST_F(Truecolorcli, PureRedGivesIndex1AndItsTrueColor)
{
    EXPECT_EQ(callWithColor(u"255,0,0"),
              (Operations{"getArgs", limits, newColor, "getInput 100", components,
                          "buildList 5016 5003 62 5018 5003 1 5017 5016 5003 420 5018 5010 16711680 5017",
                          "retList 5016 5003 62 5018 5003 1 5017 5016 5003 420 5018 5010 16711680 5017",
                          "releaseRb list", "releaseRb 1"}));
}

TEST_F(Truecolorcli, NumbersBeyondAByteAreReducedToTheirLow8Bits)
{
    EXPECT_EQ(resultOf(u"511,256,-256"), "retList 5016 5003 62 5018 5003 1 5017 5016 5003 420 5018 5010 16711680 5017");
}

TEST_F(Truecolorcli, APartThatIsNoNumberIs0)
{
    EXPECT_EQ(resultOf(u"255,x,"), "retList 5016 5003 62 5018 5003 1 5017 5016 5003 420 5018 5010 16711680 5017");
}

TEST_F(Truecolorcli, TwoNumbersAndFourBothShowTheInvalidColourMessage)
{
    for (const char16_t *color : {u"1,2", u"1,2,3,4", u""}) {
        m_services.messages.clear();
        EXPECT_EQ(callWithColor(color),
                  (Operations{"getArgs", limits, newColor, "getInput 100", components, "releaseRb 1"}));
        EXPECT_EQ(m_services.messages, std::vector<std::string>{invalid});
    }
}

TEST_F(Truecolorcli, ACancelledSecondPromptSetsNoResult)
{
    host().setAnswer("getString", StatusCancelled);
    EXPECT_EQ(callWithColor(u"255,0,0"),
              (Operations{"getArgs", limits, newColor, "getInput 100", components, "releaseRb 1"}));
    EXPECT_TRUE(m_services.messages.empty());
}

TEST_F(Truecolorcli, AnotherKeywordSetsNoResult)
{
    host().setAnswer("getInt", StatusKeyword);
    host().replies.input = u"truecolor";
    EXPECT_EQ(call(acadTruecolorcli, {shortInteger(3)}),
              (Operations{"getArgs", limits, newColor, "getInput 100", "releaseRb 1"}));
}

TEST_F(Truecolorcli, ACancelledPromptSetsNoResult)
{
    for (const int status : {StatusCancelled, StatusError}) {
        host().setAnswer("getInt", status);
        EXPECT_EQ(call(acadTruecolorcli, {shortInteger(3)}), (Operations{"getArgs", limits, newColor, "releaseRb 1"}));
    }
}

TEST_F(Truecolorcli, AMissingOrWrongIndexIsRefused)
{
    EXPECT_EQ(call(acadTruecolorcli, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acadTruecolorcli, {longInteger(70000)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
