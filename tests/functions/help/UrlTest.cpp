#include "functions/help.h"

#include "tests/support/HandlerTest.h"

namespace {

class Url : public HandlerTest
{
protected:
    // What entGetX gives: nodes with 8-bit texts.
    void setData(const std::vector<std::pair<int, std::string>> &nodes)
    {
        resbuf **link = &host().replies.list;
        *link = nullptr;
        for (const auto &[code, text] : nodes) {
            *link = host().nodes().addNarrowText(text);
            (*link)->restype = static_cast<std::int16_t>(code);
            link = &(*link)->rbnext;
        }
    }
    // What entGet gives.
    void setDefinition()
    {
        host().replies.list = host().nodes().addText(u"LINE");
        host().replies.list->rbnext = host().nodes().add(TypeShort, {.longInteger = 7});
    }
};

const std::string urlData = "-3 1001 \"PE_URL\" 1000 \"http://a\" 1002 \"{\" 1000 \"\" 1000 \"http://a\" "
                            "1002 \"{\" 1071 0 1002 \"}\" 1002 \"}\"";
const std::string search = operation(operation("tblSearch", "APPID").c_str(), "PE_URL") + " 1";
const std::string query = operation("entGetX 7:8 0", "PE_URL");

} // namespace

TEST_F(Url, GetGivesTheFirstTextThatIsNotEmptyAndLeavesTheDataToTheInterpreter)
{
    setData({{1001, "PE_URL"}, {1002, "{"}, {1000, ""}, {1000, "http://\xE4"}, {1000, "other"}});
    EXPECT_EQ(call(geturl, {entity(7, 8)}),
              (Operations{"getArgs", query, operation("retWStr", "http://\u00E4"), "releaseRb 1"}));
}

TEST_F(Url, GetOnAnEntityWhoseDataHoldsOnlyEmptyTextsGivesNil)
{
    setData({{1001, "PE_URL"}, {1000, ""}, {1000, ""}});
    EXPECT_EQ(call(geturl, {entity(7, 8)}), (Operations{"getArgs", query, "retNil", "releaseRb 1"}));
    setData({});
    EXPECT_EQ(call(geturl, {entity(7, 8)}), (Operations{"getArgs", query, "retNil", "releaseRb 1"}));
}

TEST_F(Url, SetAppendsTheDataToTheDefinition)
{
    host().setArguments({entity(7, 8), text(u"http://a")});
    setDefinition();
    EXPECT_EQ(seturl(), StatusNormal);
    EXPECT_EQ(host().operations(),
              (Operations{"getArgs", search, operation("regApp", "PE_URL"), "entGet 7:8 1", "buildList " + urlData,
                          "entMod 5005 \"LINE\" 5003 7 " + urlData, "releaseRb list", "releaseRb 1"}));
}

TEST_F(Url, SetRegistersTheApplicationOnlyBeforeTheFirstWrite)
{
    host().replies.tableRecord = host().nodes().addText(u"APPID");
    host().setArguments({entity(7, 8), text(u"http://a")});
    setDefinition();
    EXPECT_EQ(seturl(), StatusNormal);
    EXPECT_EQ(host().operations().at(2), "entGet 7:8 1");
}

TEST_F(Url, SetOnAnEntityThatCannotBeModifiedGivesNil)
{
    host().setAnswer("entMod", StatusError);
    EXPECT_EQ(call(seturl, {entity(7, 8), text(u"http://a")}),
              (Operations{"getArgs", search, operation("regApp", "PE_URL"), "entGet 7:8 1", "buildList " + urlData,
                          "entMod", "retNil", "releaseRb null", "releaseRb 1"}));
}

TEST_F(Url, MissingAndWrongArgumentsAreRefused)
{
    EXPECT_EQ(call(geturl, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(geturl, {text(u"a")}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
    EXPECT_EQ(call(seturl, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(seturl, {entity(7, 8)}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(seturl, {entity(7, 8), nil()}), (Operations{"getArgs", wrongType, "retNil", "releaseRb 2"}));
}
