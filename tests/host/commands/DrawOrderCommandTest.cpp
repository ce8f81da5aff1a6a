#include "host/render/Spaces.h"
#include "tests/host/commands/CommandTest.h"

namespace {

using testing::ElementsAre;

class DrawOrderCommand : public CommandTest
{
protected:
    void SetUp() override
    {
        for (const char *name : {"a", "b", "c", "d"})
            evaluate(std::string("(command \"_.point\" \"0,0\") (setq ") + name + " (entlast))");
        for (const char *name : {"a", "b", "c", "d"})
            m_names[evaluate(std::string("(cdr (assoc 5 (entget ") + name + ")))")] = name;
    }
    // From the lowest to the topmost.
    std::string order()
    {
        std::string names;
        for (const drawing::RecordId entity : render::modelEntities(m_document.drawing()))
            names += m_names[evaluate("(cdr (assoc 5 (entget (handent \"" +
                                      QString::number(database().record(entity).handle, 16).toStdString() + "\"))))")];
        return names;
    }

private:
    std::map<std::string, std::string> m_names; // by handle
};

TEST_F(DrawOrderCommand, BringsToFrontAndSendsToBack)
{
    EXPECT_EQ(order(), "abcd");
    evaluate("(command \"_.draworder\" a \"\" \"_f\")");
    EXPECT_EQ(order(), "bcda");
    evaluate("(command \"_.draworder\" c d \"\" \"_b\")");
    EXPECT_EQ(order(), "cdba");
    evaluate("(command \"_.draworder\" b \"\" \"\")");
    EXPECT_EQ(order(), "bcda");
}

TEST_F(DrawOrderCommand, PutsAboveAndUnderOthers)
{
    evaluate("(command \"_.draworder\" d \"\" \"_u\" b c \"\")");
    EXPECT_EQ(order(), "adbc");
    evaluate("(command \"_.draworder\" a \"\" \"_a\" d b \"\")");
    EXPECT_EQ(order(), "dbac");
}

TEST_F(DrawOrderCommand, UndoBringsTheOrderBack)
{
    evaluate("(command \"_.draworder\" a \"\" \"_f\")");
    evaluate("(command \"_.u\")");
    EXPECT_EQ(order(), "abcd");
}

TEST_F(DrawOrderCommand, AReferenceThatIsMovedItselfLeavesTheOrder)
{
    evaluate("(command \"_.draworder\" d \"\" \"_a\" d \"\")");
    EXPECT_EQ(order(), "dabc");
}

} // namespace
