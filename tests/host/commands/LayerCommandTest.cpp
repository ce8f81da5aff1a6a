#include "tests/host/commands/CommandTest.h"

namespace {

using drawing::integerOf;
using drawing::textOf;
using testing::HasSubstr;

class LayerCommand : public CommandTest
{
protected:
    drawing::GroupList layer(const char16_t *name)
    {
        const auto record = m_document.drawing().tables().find(drawing::known::Layer, name);
        return record != drawing::NoRecord ? database().groups(record) : drawing::GroupList();
    }
    void run(const std::string &answers) { evaluate("(command \"_.-layer\" " + answers + " \"\")"); }
    std::string current() { return evaluate("(getvar \"CLAYER\")"); }
};

TEST_F(LayerCommand, MakeMakesTheCurrentLayer)
{
    run("\"_m\" \"Walls\" \"_c\" \"red\" \"\"");
    EXPECT_EQ(current(), "\"Walls\"");
    EXPECT_EQ(integerOf(layer(u"walls"), 62), 1);
    EXPECT_EQ(textOf(layer(u"walls"), 6), u"Continuous");
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(LayerCommand, NewMakesSeveralAndLeavesTheCurrentOne)
{
    run("\"_n\" \"A,B\"");
    EXPECT_FALSE(layer(u"A").empty());
    EXPECT_FALSE(layer(u"B").empty());
    EXPECT_EQ(current(), "\"0\"");
}

TEST_F(LayerCommand, SetWantsALayerThatIsThereAndNotFrozen)
{
    run("\"_n\" \"A\" \"_s\" \"A\"");
    EXPECT_EQ(current(), "\"A\"");
    run("\"_s\" \"Nowhere\"");
    EXPECT_EQ(takePrinted(), "\nCannot find layer \"Nowhere\".\n");
    run("\"_f\" \"0\" \"_s\" \"0\"");
    EXPECT_EQ(takePrinted(), "\nCannot set a frozen layer as current.\n");
    EXPECT_EQ(current(), "\"A\"");
}

TEST_F(LayerCommand, OnOffFreezeThawLockUnlockByPattern)
{
    run("\"_n\" \"W1,W2,X\" \"_off\" \"W*\" \"_f\" \"w*\" \"_lo\" \"W1\"");
    EXPECT_LT(integerOf(layer(u"W1"), 62), 0);
    EXPECT_EQ(integerOf(layer(u"W1"), 70), 5);
    EXPECT_EQ(integerOf(layer(u"W2"), 70), 1);
    EXPECT_EQ(integerOf(layer(u"X"), 70), 0);
    run("\"_on\" \"*\" \"_t\" \"*\" \"_u\" \"*\"");
    EXPECT_EQ(integerOf(layer(u"W1"), 62), 7);
    EXPECT_EQ(integerOf(layer(u"W1"), 70), 0);
}

TEST_F(LayerCommand, TheCurrentLayerIsNotFrozenAndTurnedOffOnlyWhenConfirmed)
{
    run("\"_f\" \"0\"");
    EXPECT_EQ(takePrinted(), "\nCannot freeze layer \"0\". It is the CURRENT layer.\n");
    run("\"_off\" \"0\" \"_n\"");
    EXPECT_EQ(integerOf(layer(u"0"), 62), 7);
    run("\"_off\" \"0\" \"_y\"");
    EXPECT_EQ(integerOf(layer(u"0"), 62), -7);
}

TEST_F(LayerCommand, ColorLinetypeLineweightAndPlot)
{
    run("\"_n\" \"A\" \"_c\" 30 \"A\" \"_l\" \"dashed\" \"A\" \"_lw\" 0.5 \"A\" \"_p\" \"_n\" \"A\"");
    EXPECT_EQ(integerOf(layer(u"A"), 62), 30);
    EXPECT_EQ(textOf(layer(u"A"), 6), u"dashed");
    EXPECT_EQ(integerOf(layer(u"A"), 370), 50);
    EXPECT_EQ(integerOf(layer(u"A"), 290, 1), 0);
    EXPECT_NE(m_document.drawing().tables().find(drawing::known::Linetype, u"DASHED"), drawing::NoRecord);
    run("\"_c\" \"_t\" \"10,20,30\" \"A\"");
    EXPECT_EQ(integerOf(layer(u"A"), 420), 0x0A141E);
    run("\"_c\" \"_t\" \"255,0,0\" \"A\" \"_lw\" 0.26 \"A\"");
    EXPECT_EQ(integerOf(layer(u"A"), 62), 1);
    EXPECT_EQ(integerOf(layer(u"A"), 420), 0xFF0000);
    EXPECT_EQ(integerOf(layer(u"A"), 370), 25);
}

TEST_F(LayerCommand, WhatGoesWrongInAnOptionDoesNotEndTheCommand)
{
    run("\"_l\" \"no such\" \"_n\" \"A\" \"_c\" \"mauve\" \"_n\" \"a/b\" \"_n\" \"B\"");
    EXPECT_EQ(takePrinted(), "\nCannot find linetype \"no such\".\n\nA color number or standard color name is "
                             "required.\n\nInvalid layer name.\n");
    EXPECT_FALSE(layer(u"B").empty());
}

TEST_F(LayerCommand, RenameTakesTheEntitiesAlong)
{
    run("\"_m\" \"A\"");
    evaluate("(command \"_.point\" \"0,0\")");
    run("\"_r\" \"A\" \"B\"");
    EXPECT_TRUE(layer(u"A").empty());
    EXPECT_EQ(textOf(lastGroups(), 8), u"B");
    EXPECT_EQ(current(), "\"B\"");
    run("\"_r\" \"B\" \"0\"");
    EXPECT_EQ(takePrinted(), "\nCannot rename layer \"B\" to \"0\".\n");
}

TEST_F(LayerCommand, ListsLayers)
{
    run("\"_n\" \"A\" \"_f\" \"A\" \"?\" \"A\"");
    EXPECT_THAT(takePrinted(), HasSubstr("\n\"A\"  On  7  Frozen\n"));
}

TEST_F(LayerCommand, AWholeCommandIsOneUndoStepAndTakesTheCurrentLayerBack)
{
    run("\"_m\" \"Walls\" \"_c\" \"red\" \"\"");
    evaluate("(command \"_.u\")");
    EXPECT_TRUE(layer(u"Walls").empty());
    EXPECT_EQ(current(), "\"0\"");
}

} // namespace
