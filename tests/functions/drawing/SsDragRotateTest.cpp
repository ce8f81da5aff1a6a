#include "functions/dragrotate.h"

#include "tests/support/HandlerTest.h"

#include <cmath>
#include <numbers>

constexpr double Pi = std::numbers::pi;

namespace {

// The base point outlives a call: tests that rely on it give one.
class SsDragRotate : public HandlerTest
{
protected:
    static std::string drag(const char *prompt) { return operation("dragSelection 5:6 0", prompt); }
    static std::string angle(double radians) { return "retReal " + std::to_string(radians); }
};

const Argument set = selectionSet(5, 6);
const char defaultPrompt[] = "\nSpecify rotation:";

} // namespace

TEST_F(SsDragRotate, GivesTheAngleFromTheBasePointToThePickedPoint)
{
    host().replies.point = {1, 5, 0};
    EXPECT_EQ(call(acetSsDragRotate, {set, point3d(1, 2, 0)}),
              (Operations{"getArgs", drag(defaultPrompt), "angle", angle(Pi / 2), "releaseRb null"}));
}

TEST_F(SsDragRotate, WithoutABasePointTheAngleIsMeasuredFromTheBasePointOfThePreviousCall)
{
    call(acetSsDragRotate, {set, point3d(10, 0, 0)});
    host().replies.point = {0, 0, 0};
    EXPECT_EQ(call(acetSsDragRotate, {set}),
              (Operations{"getArgs", drag(defaultPrompt), "angle", angle(Pi), "releaseRb null"}));
}

TEST_F(SsDragRotate, A2dPointAsTheBasePointIsAcceptedWithItsThirdDoubleAsItStands)
{
    Argument base = point2d(0, 0);
    base.value.point.z = 9;
    host().replies.point = {0, -1, 0};
    EXPECT_EQ(call(acetSsDragRotate, {set, base}).at(3), angle(-Pi / 2));
    EXPECT_EQ(host().replies.angleFrom.z, 9);
    LispMatrix matrix{};
    host().replies.drag = [&](DragTransform transform) {
        const LispPoint cursor{1, 0, 0};
        transform(&cursor, &matrix);
        EXPECT_EQ(host().replies.angleTo.z, 9);
    };
    EXPECT_EQ(call(acetSsDragRotate, {set}).at(2), "angle"); // of the transform, which has the base of the call before
}

TEST_F(SsDragRotate, ThePromptReplacesTheDefault)
{
    EXPECT_EQ(call(acetSsDragRotate, {set, point3d(0, 0, 0), text(u"Turn: ")}).at(1), drag("Turn: "));
}

TEST_F(SsDragRotate, TheFourthIsSkippedAndTheFifthIsOnlyChecked)
{
    const Arguments arguments = {set, point3d(0, 0, 0), text(u"?"), nil(), shortInteger(1)};
    EXPECT_EQ(call(acetSsDragRotate, arguments).back(), "releaseRb 5");
    for (const std::size_t count : {2U, 3U, 4U})
        EXPECT_EQ(call(acetSsDragRotate, Arguments(arguments.begin(), arguments.begin() + long(count))).back(),
                  "releaseRb null")
            << count;
}

TEST_F(SsDragRotate, WhatIsNoBasePointEndsTheOptionsAndIsReleased)
{
    EXPECT_EQ(call(acetSsDragRotate, {set, text(u"Turn: "), text(u"?")}),
              (Operations{"getArgs", drag(defaultPrompt), "angle", angle(0), "releaseRb 2"}));
}

TEST_F(SsDragRotate, AWrongPromptIsAMessageAndTheDragHappensAllTheSame)
{
    EXPECT_EQ(call(acetSsDragRotate, {set, point3d(0, 0, 0), shortInteger(1), nil(), shortInteger(1)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 3", drag(defaultPrompt), "angle", angle(0),
                          "releaseRb null"}));
}

TEST_F(SsDragRotate, AWrongFifthArgumentIsAMessageAndTheDragHappensAllTheSame)
{
    EXPECT_EQ(
        call(acetSsDragRotate, {set, point3d(0, 0, 0), text(u"?"), nil(), real(1)}),
        (Operations{"getArgs", wrongType, "retNil", "releaseRb 5", drag("?"), "angle", angle(0), "releaseRb null"}));
}

TEST_F(SsDragRotate, TypingAKeywordAtTheDragPromptReturnsThatKeywordAsAStringUpTo511Units)
{
    host().setAnswer("dragSelection", StatusText);
    host().replies.input = std::u16string(600, u'k');
    EXPECT_EQ(call(acetSsDragRotate, {set}), (Operations{"getArgs", drag(defaultPrompt), "getInput 512",
                                                         operation("retWStr", QString(511, u'k')), "releaseRb null"}));
}

TEST_F(SsDragRotate, CancellingTheDragReturnsWithoutAResultOfItsOwn)
{
    for (const int status : {StatusCancelled, StatusError, StatusNoInput}) {
        host().setAnswer("dragSelection", status);
        EXPECT_EQ(call(acetSsDragRotate, {set}), (Operations{"getArgs", drag(defaultPrompt), "releaseRb null"}));
    }
}

TEST_F(SsDragRotate, TheTransformTurnsByTheAngleFromTheCursorToTheBasePoint)
{
    LispMatrix matrix{};
    int status = 0;
    host().replies.drag = [&](DragTransform transform) {
        const LispPoint cursor{3, 2, 0}; // the base point lies straight below: -90 degrees from here
        status = transform(&cursor, &matrix);
    };
    EXPECT_EQ(call(acetSsDragRotate, {set, point3d(3, 0, 0)}).at(2), "angle");
    EXPECT_EQ(status, StatusNormal);
    const double cosine = std::cos(-Pi / 2), sine = std::sin(-Pi / 2);
    const double expected[4][4] = {{1, 0, 0, 0}, {0, cosine, -sine, 0}, {0, sine, cosine, 0}, {0, 0, 0, 1}};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(matrix.rows[row][column], expected[row][column], 1e-15) << row << ' ' << column;
}

TEST_F(SsDragRotate, AMissingOrWrongSelectionSetIsRefusedAndNothingIsDragged)
{
    EXPECT_EQ(call(acetSsDragRotate, {}), (Operations{"getArgs", tooFewArguments, "retNil"}));
    EXPECT_EQ(call(acetSsDragRotate, {entity(5, 6), point3d(0, 0, 0)}),
              (Operations{"getArgs", wrongType, "retNil", "releaseRb 1"}));
}
