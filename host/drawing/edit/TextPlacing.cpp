#include "host/drawing/edit/TextPlacing.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <cmath>

namespace drawing {

using geometry::HorizontalAlignment;
using geometry::Vector;
using geometry::VerticalAlignment;

namespace {

enum Code : int {
    StyleCode = 7,
    SecondCode = 11,
    HeightCode = 40,
    WidthFactorCode = 41,
    RotationCode = 50,
    ObliqueCode = 51,
    GenerationCode = 71,
    HorizontalCode = 72,
    VerticalCode = 73,
    VerticalOfAttributeCode = 74,
};

HorizontalAlignment horizontalOf(const GroupList &text)
{
    const std::int64_t value = integerOf(text, HorizontalCode);
    return value >= 0 && value <= 5 ? static_cast<HorizontalAlignment>(value) : HorizontalAlignment::Left;
}

VerticalAlignment verticalOf(const GroupList &text)
{
    const bool isText = textOf(text, groupcode::Type) == u"TEXT";
    const std::int64_t value = integerOf(text, isText ? VerticalCode : VerticalOfAttributeCode);
    return value >= 0 && value <= 3 ? static_cast<VerticalAlignment>(value) : VerticalAlignment::Baseline;
}

// The letters of an attribute's definition are its tag.
std::u16string stringOf(const GroupList &text)
{
    return textOf(text, textOf(text, groupcode::Type) == u"ATTDEF" ? groupcode::Name : groupcode::PrimaryText);
}

// In text heights, with a width factor of 1.
double widthOf(const Drawing &drawing, const GroupList &text)
{
    const RecordId style = drawing.tables().find(known::Style, textOf(text, StyleCode, u"STANDARD"));
    return text::layOutLine(stringOf(text), geometry::textStyleOf(drawing.database(), style).fontName()).width;
}

void stretch(const Drawing &drawing, GroupList &text)
{
    const Vector way = placeOf(text, SecondCode) - placeOf(text, groupcode::FirstX);
    const double distance = std::hypot(way.x, way.y), width = widthOf(drawing, text);
    if (!(distance > 0) || !(width > 0))
        return;
    const double turn = std::atan2(way.y, way.x);
    const double counted = turn < 0 ? turn + geometry::FullTurn : turn;
    setGroupInFirstPart(text, realGroup(RotationCode, counted * (360 / geometry::FullTurn)));
    if (horizontalOf(text) == HorizontalAlignment::Aligned)
        setGroupInFirstPart(text, realGroup(HeightCode, distance / (width * realOf(text, WidthFactorCode, 1))));
    else
        setGroupInFirstPart(text, realGroup(WidthFactorCode, distance / (width * realOf(text, HeightCode, 1))));
}

void beginBaseLine(const Drawing &drawing, GroupList &text)
{
    enum Generation { Backward = 2, UpsideDown = 4 };
    const std::int64_t generation = integerOf(text, GenerationCode);
    const double turn = geometry::radians(realOf(text, RotationCode)), height = realOf(text, HeightCode, 1);
    const Vector along{std::cos(turn), std::sin(turn), 0};
    const Vector upright =
        Vector{-along.y, along.x, 0} + along * std::tan(geometry::radians(realOf(text, ObliqueCode)));
    const text::Place start = geometry::baseLineStart(horizontalOf(text), verticalOf(text), widthOf(drawing, text));
    const double right = start.x * height * realOf(text, WidthFactorCode, 1) * ((generation & Backward) != 0 ? -1 : 1);
    const double up = start.y * height * ((generation & UpsideDown) != 0 ? -1 : 1);
    setGroup(text, pointGroup(groupcode::FirstX, placeOf(text, SecondCode) + along * right + upright * up));
}

bool isBetweenPlaces(const GroupList &text)
{
    const HorizontalAlignment horizontal = horizontalOf(text);
    return hasGroup(text, SecondCode) &&
           (horizontal == HorizontalAlignment::Aligned || horizontal == HorizontalAlignment::Fit);
}

// Aligned at its second point. The one of others may have any value.
bool isJustified(const GroupList &text)
{
    const bool isAtBeginning =
        horizontalOf(text) == HorizontalAlignment::Left && verticalOf(text) == VerticalAlignment::Baseline;
    return !isAtBeginning && hasGroup(text, SecondCode) && !isBetweenPlaces(text);
}

} // namespace

void moveText(GroupList &text, const Vector &place)
{
    const Vector by = place - placeOf(text, isJustified(text) ? SecondCode : groupcode::FirstX);
    for (const int code : {groupcode::FirstX, int{SecondCode}})
        if (hasGroup(text, code))
            setGroup(text, pointGroup(code, placeOf(text, code) + by));
}

void settleText(const Drawing &drawing, GroupList &text)
{
    if (isBetweenPlaces(text))
        stretch(drawing, text);
    else if (isJustified(text))
        beginBaseLine(drawing, text);
}

} // namespace drawing
