// The view and the variables that tell of it.

#include "tests/host/ui/interaction/InteractionTest.h"

class ViewVariablesTest : public InteractionTest
{
};

TEST_F(ViewVariablesTest, TellWhatTheViewShows)
{
    EXPECT_EQ(value("(getvar \"VIEWSIZE\")"), "80.0");
    EXPECT_EQ(value("(getvar \"VIEWCTR\")"), "(50.0 40.0 0.0)");
    const std::string size = std::to_string(view().width()) + ".0 " + std::to_string(view().height()) + ".0";
    EXPECT_EQ(value("(getvar \"SCREENSIZE\")"), "(" + size + ")");
    view().zoom(2, QRectF(view().rect()).center());
    EXPECT_EQ(value("(getvar \"VIEWSIZE\")"), "40.0");
}

TEST_F(ViewVariablesTest, ZoomAndPanChangeTheView)
{
    type("(command \"_.zoom\" \"_Window\" '(0 0) '(10 10))");
    EXPECT_NEAR(view().centre().x(), 5, 1e-9);
    EXPECT_NEAR(view().height() / view().scale(), 10, 1e-9);
    type("(command \"_.pan\" '(0 0) '(1 2))");
    EXPECT_NEAR(view().centre().x(), 4, 1e-9);
    EXPECT_NEAR(view().centre().y(), 3, 1e-9);
    EXPECT_EQ(value("(getvar \"VIEWSIZE\")"), "10.0");
}

TEST_F(ViewVariablesTest, TheCentreIsOfTheUsersCoordinateSystem)
{
    type("(command \"_.ucs\" \"_Origin\" '(10 5 0))");
    view().zoom(1.5, QRectF(view().rect()).center());
    EXPECT_EQ(value("(getvar \"VIEWCTR\")"), "(40.0 35.0 0.0)");
}
