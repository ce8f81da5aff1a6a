#include "tests/host/commands/CommandTest.h"

#include "host/drawing/LayoutEditing.h"

namespace {

using testing::ElementsAre;

class LayoutCommand : public CommandTest
{
protected:
    std::vector<std::string> layouts()
    {
        std::vector<std::string> names;
        for (const drawing::Layout &layout : drawing::layouts(database()))
            names.push_back(QString::fromStdU16String(layout.name).toStdString());
        return names;
    }
    void addPoint(const std::string &place) { evaluate("(command \"_.point\" \"" + place + "\")"); }
    // Of the points that selection finds in a layout.
    std::string pointsOn(const std::string &layout)
    {
        return evaluate("(if (setq s (ssget \"_X\" '((0 . \"POINT\") (410 . \"" + layout + "\")))) (sslength s) 0)");
    }
};

TEST_F(LayoutCommand, MakesRenamesAndDeletesLayouts)
{
    evaluate("(command \"_.-layout\" \"_n\" \"Plan\")");
    evaluate("(command \"_.-layout\" \"_n\" \"\")");
    EXPECT_THAT(layouts(), ElementsAre("Model", "Layout1", "Plan", "Layout2"));
    evaluate("(command \"_.-layout\" \"_r\" \"plan\" \"Ground floor\")");
    evaluate("(command \"_.-layout\" \"_d\" \"Layout1\")");
    EXPECT_THAT(layouts(), testing::UnorderedElementsAre("Model", "Ground floor", "Layout2"));
}

TEST_F(LayoutCommand, EachLayoutHasItsOwnObjects)
{
    evaluate("(command \"_.-layout\" \"_n\" \"Plan\" \"_.-layout\" \"_s\" \"Layout1\")");
    addPoint("1,1");
    evaluate("(command \"_.-layout\" \"_s\" \"Plan\")");
    EXPECT_EQ(evaluate("(list (getvar \"CTAB\") (getvar \"TILEMODE\"))"), "(\"Plan\" 0)");
    addPoint("2,2");
    addPoint("3,3");
    EXPECT_EQ(pointsOn("Layout1") + pointsOn("Plan") + pointsOn("Model"), "120");
    EXPECT_EQ(evaluate("(sslength (ssget \"_A\"))"), "2");
    evaluate("(setvar \"CTAB\" \"LAYOUT1\")");
    EXPECT_EQ(evaluate("(sslength (ssget \"_A\"))"), "1");
    EXPECT_EQ(pointsOn("Layout1") + pointsOn("Plan"), "12");
    evaluate("(setvar \"CTAB\" \"Model\")");
    EXPECT_EQ(evaluate("(list (getvar \"CTAB\") (getvar \"TILEMODE\"))"), "(\"Model\" 1)");
}

TEST_F(LayoutCommand, UndoGoesBackToTheOtherLayout)
{
    evaluate("(command \"_.-layout\" \"_n\" \"Plan\" \"_.-layout\" \"_s\" \"Layout1\")");
    addPoint("1,1");
    evaluate("(command \"_.-layout\" \"_s\" \"Plan\" \"_.u\")");
    EXPECT_EQ(evaluate("(getvar \"CTAB\")"), "\"Layout1\"");
    EXPECT_EQ(pointsOn("Layout1") + pointsOn("Plan"), "10");
    evaluate("(command \"_.redo\")");
    EXPECT_EQ(evaluate("(getvar \"CTAB\")"), "\"Plan\"");
}

TEST_F(LayoutCommand, ACopyHasTheObjectsToo)
{
    evaluate("(setvar \"TILEMODE\" 0)");
    addPoint("1,1");
    evaluate("(command \"_.-layout\" \"_c\" \"\" \"\")");
    EXPECT_THAT(layouts(), ElementsAre("Model", "Layout1", "Layout1 (2)"));
    EXPECT_EQ(pointsOn("Layout1") + pointsOn("Layout1 (2)"), "11");
}

TEST_F(LayoutCommand, DeletingTheCurrentLayoutShowsAnother)
{
    evaluate("(command \"_.-layout\" \"_n\" \"Plan\") (setvar \"CTAB\" \"Plan\")");
    addPoint("1,1");
    evaluate("(command \"_.-layout\" \"_d\" \"\")");
    EXPECT_EQ(evaluate("(getvar \"CTAB\")"), "\"Layout1\"");
    EXPECT_EQ(evaluate("(ssget \"_X\")"), "nil");
    takePrinted();
    evaluate("(command \"_.-layout\" \"_d\" \"\")");
    EXPECT_EQ(takePrinted(), "\nThe only layout cannot be deleted.\n");
}

TEST_F(LayoutCommand, WrongNamesAreComplainedAbout)
{
    evaluate("(command \"_.-layout\" \"_n\" \"LAYOUT1\")");
    EXPECT_EQ(takePrinted(), "\nLayout \"LAYOUT1\" already exists.\n");
    evaluate("(command \"_.-layout\" \"_n\" \"a*b\")");
    EXPECT_EQ(takePrinted(), "\nInvalid layout name.\n");
    evaluate("(command \"_.-layout\" \"_s\" \"none\")");
    EXPECT_EQ(takePrinted(), "\nLayout \"none\" not found.\n");
    EXPECT_EQ(evaluate("(setvar \"CTAB\" \"none\")").substr(0, 6), "error:");
}

TEST_F(LayoutCommand, ListsWhatThereIs)
{
    evaluate("(command \"_.-layout\" \"_?\")");
    EXPECT_EQ(takePrinted(), "\nActive Layouts:\nLayout: Model\nLayout: Layout1\n");
}

} // namespace
