#include "tests/host/commands/CommandTest.h"

namespace {

using testing::HasSubstr;

class ListCommand : public CommandTest
{
protected:
    std::string listed(const std::string &making)
    {
        evaluate("(command " + making + ")");
        takePrinted();
        evaluate("(command \"_.list\" (entlast) \"\")");
        EXPECT_EQ(evaluate("(getvar \"CMDACTIVE\")"), "0");
        return takePrinted();
    }
};

TEST_F(ListCommand, ALine)
{
    evaluate("(command \"_.line\" \"0,0\" \"3,4,1\" \"\")");
    const std::string handle = evaluate("(strcase (cdr (assoc 5 (entget (entlast)))) T)");
    evaluate("(command \"_.list\" \"_l\" \"\")");
    EXPECT_EQ(takePrinted(), "\n                  LINE      Layer: \"0\""
                             "\n                            Space: Model space"
                             "\n                    Handle = " +
                                 handle.substr(1, handle.size() - 2) +
                                 "\n                 from point, X=   0.0000  Y=   0.0000  Z=   0.0000"
                                 "\n                   to point, X=   3.0000  Y=   4.0000  Z=   1.0000"
                                 "\n         Angle in XY Plane =    53"
                                 "\n                   Delta X =    3.0000"
                                 "\n                   Delta Y =    4.0000"
                                 "\n                   Delta Z =    1.0000"
                                 "\n                      length    5.0990\n");
}

TEST_F(ListCommand, PlacesAreInTheUserCoordinates)
{
    const std::string text = listed("\"_.circle\" \"5,6\" 2 \"_.ucs\" \"_o\" \"1,1\"");
    EXPECT_THAT(text, HasSubstr("center point, X=   4.0000  Y=   5.0000  Z=   0.0000"));
    EXPECT_THAT(text, HasSubstr("radius    2.0000"));
    EXPECT_THAT(text, HasSubstr("circumference   12.5664"));
    EXPECT_THAT(text, HasSubstr("area   12.5664"));
}

TEST_F(ListCommand, AnArcHasAnglesAndNoArea)
{
    const std::string text = listed("\"_.arc\" \"2,0\" \"_c\" \"0,0\" \"0,2\"");
    EXPECT_THAT(text, HasSubstr("start angle    0\n"));
    EXPECT_THAT(text, HasSubstr("end angle    90\n"));
    EXPECT_THAT(text, HasSubstr("length    3.1416\n"));
    EXPECT_THAT(text, testing::Not(HasSubstr("area")));
}

TEST_F(ListCommand, APolylineHasItsVertices)
{
    const std::string text = listed("\"_.rectang\" \"0,0\" \"4,3\"");
    EXPECT_THAT(text, HasSubstr("LWPOLYLINE Layer:"));
    EXPECT_THAT(text, HasSubstr("Closed"));
    EXPECT_THAT(text, HasSubstr("at point X=   4.0000  Y=   3.0000  Z=   0.0000"));
    EXPECT_THAT(text, HasSubstr("length   14.0000\n"));
    EXPECT_THAT(text, HasSubstr("area   12.0000\n"));
}

TEST_F(ListCommand, AnInsertHasItsBlockAndScales)
{
    const std::string text = listed("\"_.circle\" \"0,0\" 1 \"_.-block\" \"Door\" \"0,0\" \"_l\" \"\""
                                    " \"_.-insert\" \"door\" \"7,8\" 2 3 90");
    EXPECT_THAT(text, HasSubstr("BLOCK REFERENCE Layer:"));
    EXPECT_THAT(text, HasSubstr("Block Name: \"Door\""));
    EXPECT_THAT(text, HasSubstr("at point, X=   7.0000  Y=   8.0000  Z=   0.0000"));
    EXPECT_THAT(text, HasSubstr("Y scale factor:    3.0000"));
    EXPECT_THAT(text, HasSubstr("rotation angle:    90"));
}

TEST_F(ListCommand, AnInsertHasItsAttributes)
{
    const std::string text = listed("\"_.attdef\" \"\" \"number\" \"\" \"\" \"0,0\" 1 0 \"_.-block\" \"Door\" \"0,0\""
                                    " \"_l\" \"\" \"_.-insert\" \"door\" \"7,8\" 1 1 0 \"A 17\"");
    EXPECT_THAT(text, HasSubstr("attribute NUMBER = \"A 17\"\n"));
    EXPECT_THAT(text, testing::Not(HasSubstr("attribute  =")));
}

TEST_F(ListCommand, ATextHasItsStyleAndWhatItSays)
{
    const std::string text = listed("\"_.color\" \"red\" \"_.text\" \"1,2\" 3.5 0 \"Some text\"");
    EXPECT_THAT(text, HasSubstr("Color: 1\n"));
    EXPECT_THAT(text, HasSubstr("Style = \"Standard\""));
    EXPECT_THAT(text, HasSubstr("start point, X=   1.0000  Y=   2.0000"));
    EXPECT_THAT(text, HasSubstr("height    3.5000"));
    EXPECT_THAT(text, HasSubstr("text \"Some text\""));
}

TEST_F(ListCommand, OthersHaveTheirPlaces)
{
    EXPECT_THAT(listed("\"_.solid\" \"0,0\" \"4,0\" \"0,5\" \"4,5\" \"\""),
                HasSubstr("at point, X=   4.0000  Y=   5.0000"));
    EXPECT_THAT(listed("\"_.ellipse\" \"_c\" \"0,0\" \"10,0\" 5"), HasSubstr("area  157.0796"));
}

TEST_F(ListCommand, AllThatIsSelectedIsListed)
{
    evaluate("(command \"_.point\" \"1,1\" \"_.point\" \"2,2\" \"_.li\" \"_all\" \"\")");
    const std::string text = takePrinted();
    EXPECT_THAT(text, HasSubstr("X=   1.0000"));
    EXPECT_THAT(text, HasSubstr("X=   2.0000"));
}

} // namespace
