#include "host/commands/PaperSizes.h"
#include "tests/host/commands/CommandTest.h"

namespace {

using commands::paperSize;
using commands::PlotJob;
using testing::HasSubstr;

TEST(PaperSizes, AreFoundByNameAndByMeasure)
{
    EXPECT_EQ(paperSize(u"a3")->height, 420);
    EXPECT_EQ(paperSize(u"ISO_full_bleed_A2_(594.00_x_420.00_MM)")->width, 420);
    EXPECT_NEAR(paperSize(u"ANSI B (17.00 x 11.00 Inches)")->height, 431.8, 1e-9);
    EXPECT_EQ(paperSize(u"100 x 50 mm")->width, 50);
    EXPECT_FALSE(paperSize(u"A33"));
    EXPECT_FALSE(paperSize(u""));
    EXPECT_FALSE(paperSize(u"1 x 1 mm"));
}

class PlotCommand : public CommandTest
{
protected:
    void SetUp() override
    {
        m_services.plotter = [this](const drawing::Drawing &, const PlotJob &job, std::u16string &failure) {
            m_jobs.push_back(job);
            failure = u"The disk is full.";
            return m_canPlot;
        };
    }
    const PlotJob::Page &page() { return *m_jobs.back().page; }

    std::vector<PlotJob> m_jobs;
    bool m_canPlot = true;
};

TEST_F(PlotCommand, PlotsAWindowOfTheModelToAPdf)
{
    evaluate(
        "(command \"-PLOT\" \"Y\" \"Model\" \"To PDF.pc3\" \"ISO full bleed A3 (420.00 x 297.00 MM)\" \"M\" \"P\" \"N\""
        " \"W\" '(10 20) '(0 0) \"1:50\" '(5 6) \"Y\" \"monochrome.ctb\" \"Y\" \"A\" \"out\" \"N\" \"Y\")");
    ASSERT_EQ(m_jobs.size(), 1u) << takePrinted();
    EXPECT_EQ(m_jobs[0].layout, u"Model");
    EXPECT_EQ(m_jobs[0].path, u"out.pdf");
    EXPECT_EQ(page().width, 297);
    EXPECT_EQ(page().height, 420);
    EXPECT_EQ(page().area, PlotJob::Area::Window);
    EXPECT_EQ(page().upper.y, 20);
    EXPECT_EQ(page().lower.x, 0);
    EXPECT_EQ(page().scale, 0.02);
    EXPECT_EQ(page().offsetY, 6);
    EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
}

TEST_F(PlotCommand, PlotsWhatTheScreenShowsWhereverTheUsersOriginIs)
{
    evaluate("(command \"_.ZOOM\" \"_C\" '(100 50) 20 \"_.UCS\" '(90 40) \"\")");
    evaluate(
        "(command \"-PLOT\" \"Y\" \"Model\" \"PNG\" \"A4\" \"M\" \"L\" \"N\" \"D\" \"F\" \"C\" \"Y\" \".\" \"Y\" \"A\""
        " \"a.png\" \"N\" \"Y\")");
    ASSERT_EQ(m_jobs.size(), 1u) << takePrinted();
    EXPECT_DOUBLE_EQ((page().lower.x + page().upper.x) / 2, 100);
    EXPECT_DOUBLE_EQ(page().lower.y, 40);
    EXPECT_DOUBLE_EQ(page().upper.y, 60);
}

class PlottedViews : public PlotCommand
{
protected:
    void plotView()
    {
        evaluate(
            "(command \"-PLOT\" \"Y\" \"Model\" \"PNG\" \"A4\" \"M\" \"L\" \"N\" \"V\" \"detail\" \"F\" \"C\" \"Y\""
            " \".\" \"Y\" \"A\" \"a.png\" \"N\" \"Y\")");
    }
};

TEST_F(PlottedViews, AreWhereTheyWereSavedWhateverTheirTargetAndTwist)
{
    evaluate("(entmake '((0 . \"VIEW\") (100 . \"AcDbSymbolTableRecord\") (100 . \"AcDbViewTableRecord\")"
             " (2 . \"detail\") (70 . 0) (40 . 20.0) (10 5.0 0.0) (41 . 40.0) (11 0.0 0.0 1.0) (12 100.0 50.0 0.0)"
             " (42 . 50.0) (43 . 0.0) (44 . 0.0) (50 . 1.5707963267948966) (71 . 0)))");
    plotView();
    ASSERT_EQ(m_jobs.size(), 1u) << takePrinted();
    EXPECT_NEAR(page().lower.x, 90, 1e-9); // turned by a quarter, what is 40 wide in the view is upright
    EXPECT_NEAR(page().upper.x, 110, 1e-9);
    EXPECT_NEAR(page().lower.y, 25, 1e-9);
    EXPECT_NEAR(page().upper.y, 65, 1e-9);
}

TEST_F(PlottedViews, AreWindowsWhateverTheCoordinateSystem)
{
    evaluate(
        "(command \"_.ucs\" \"_z\" 90 \"_.plan\" \"\" \"_.view\" \"_w\" \"detail\" '(0 0) '(8 6) \"_.ucs\" \"_w\")");
    plotView();
    ASSERT_EQ(m_jobs.size(), 1u) << takePrinted();
    EXPECT_NEAR(page().lower.x, -6, 1e-9);
    EXPECT_NEAR(page().upper.x, 0, 1e-9);
    EXPECT_NEAR(page().lower.y, 0, 1e-9);
    EXPECT_NEAR(page().upper.y, 8, 1e-9);
}

TEST_F(PlotCommand, PlotsALayoutWithItsOwnQuestions)
{
    evaluate("(command \"_.-plot\" \"_y\" \"Layout1\" \"PNG\" \"A4\" \"_i\" \"_l\" \"_n\" \"_e\" \"_f\" \"_c\" \"_y\" "
             "\".\" \"_y\""
             " \"_n\" \"_n\" \"_n\" \"a.png\" \"_n\" \"_y\")");
    ASSERT_EQ(m_jobs.size(), 1u) << takePrinted();
    EXPECT_EQ(page().area, PlotJob::Area::Extents);
    EXPECT_EQ(page().scale, 0);
    EXPECT_EQ(page().offset, PlotJob::Offset::Centred);
    EXPECT_EQ(page().width, 297);
    EXPECT_EQ(m_jobs[0].path, u"a.png");
}

TEST_F(PlotCommand, WithoutDetailsTheLayoutSaysHow)
{
    evaluate("(command \"_.-plot\" \"_n\" \"\" \"\" \"SVG\" \"\" \"_n\" \"_y\")");
    ASSERT_EQ(m_jobs.size(), 1u) << takePrinted();
    EXPECT_FALSE(m_jobs[0].page);
    EXPECT_TRUE(m_jobs[0].path.ends_with(u"Drawing1-Model.svg"));
}

TEST_F(PlotCommand, APrinterCanOnlyPlotToAFile)
{
    evaluate("(command \"_.-plot\" \"_n\" \"\" \"\" \"Big printer\" \"_n\")");
    EXPECT_THAT(takePrinted(), HasSubstr("There is no printer here."));
    evaluate("(command \"_.-plot\" \"_n\" \"\" \"\" \"Big printer\" \"_y\" \"a\" \"_n\" \"_y\")");
    ASSERT_EQ(m_jobs.size(), 1u);
    EXPECT_EQ(m_jobs[0].path, u"a.pdf");
}

TEST_F(PlotCommand, NothingIsPlottedWithoutProceeding)
{
    evaluate("(command \"_.-plot\" \"_n\" \"\" \"\" \"\" \"a\" \"_n\" \"_n\")");
    EXPECT_TRUE(m_jobs.empty());
}

TEST_F(PlotCommand, WhatFailsIsTold)
{
    m_canPlot = false;
    evaluate("(command \"_.-plot\" \"_n\" \"\" \"\" \"\" \"a\" \"_n\" \"\")");
    EXPECT_EQ(takePrinted(), "\nThe disk is full.\n");
}

TEST_F(PlotCommand, UnknownPapersLayoutsAndScalesAreComplainedAbout)
{
    evaluate("(command \"_.-plot\" \"_y\" \"none\")");
    EXPECT_EQ(takePrinted(), "\nLayout \"none\" not found.\n");
    evaluate(
        "(command \"_.-plot\" \"_y\" \"\" \"\" \"parchment\" \"A4\" \"\" \"\" \"\" \"_e\" \"0:1\" \"_f\") (command)");
    EXPECT_EQ(takePrinted(), "\nPaper size \"parchment\" not found.\n\nRequires a scale such as 1:50, or Fit.\n");
}

TEST_F(PlotCommand, AnEmptyAreaIsRefused)
{
    evaluate("(command \"_.-plot\" \"_y\" \"\" \"\" \"\" \"\" \"\" \"\" \"_w\" '(1 1) '(1 5))");
    EXPECT_EQ(takePrinted(), "\nThe plot area is empty.\n");
}

} // namespace
