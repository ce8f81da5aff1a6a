#pragma once

#include "host/drawing/edit/GroupEditing.h"

// The groups of dimensions (DXF reference, DIMENSION).
namespace drawing::dimension {

enum Code : int {
    TypedCode = 1,
    StyleCode = 3,
    LineCode = 10, // a place on the dimension line or arc; see Kind for others
    TextCode = 11,
    FirstCode = 13,
    SecondCode = 14,
    TipCode = 15,
    ArcCode = 16,
    LeaderCode = 40,
    MeasurementCode = 42,
    AngleCode = 50,
    HorizontalCode = 51,
    ObliqueCode = 52,
    TextAngleCode = 53,
    KindCode = 70,
    ExtrusionCode = 210
};

enum Kind : std::int64_t {
    Rotated = 0,
    Aligned = 1,
    AngleOfLines = 2,       // 13 and 14 are the ends of a line, 15 and 10 those of the other; 16 is on the arc
    Diameter = 3,           // 15 and 10 are the ends
    Radius = 4,             // 10 is the centre, 15 on the curve
    AngleByThreePoints = 5, // 15 is the vertex
    Ordinate = 6            // 10 is the origin, 13 what is measured, 14 where the text hangs
};

constexpr std::int64_t KindBits = 7, OwnBlockFlag = 32, AlongXFlag = 64, TextPlacedFlag = 128;

inline std::int64_t kindOf(const GroupList &groups)
{
    return integerOf(groups, KindCode) & KindBits;
}

} // namespace drawing::dimension
