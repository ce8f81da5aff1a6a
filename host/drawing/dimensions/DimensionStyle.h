#pragma once

#include "host/drawing/Drawing.h"

#include <string>
#include <string_view>

namespace drawing {

// A variable of dimensions: where a style keeps it (DXF reference, DIMSTYLE), and what it means when it keeps nothing.
struct DimensionVariable
{
    std::u16string_view name;
    int code;
    double standard;
};

// clang-format off
inline constexpr DimensionVariable dimensionVariables[] = {
    {u"DIMSCALE", 40, 1},       {u"DIMASZ", 41, 0.18},   {u"DIMEXO", 42, 0.0625},  {u"DIMDLI", 43, 0.38},
    {u"DIMEXE", 44, 0.18},      {u"DIMRND", 45, 0},      {u"DIMDLE", 46, 0},       {u"DIMTP", 47, 0},
    {u"DIMTM", 48, 0},          {u"DIMTOL", 71, 0},      {u"DIMLIM", 72, 0},       {u"DIMTIH", 73, 1},
    {u"DIMTOH", 74, 1},         {u"DIMSE1", 75, 0},      {u"DIMSE2", 76, 0},       {u"DIMTAD", 77, 0},
    {u"DIMZIN", 78, 0},         {u"DIMTXT", 140, 0.18},  {u"DIMCEN", 141, 0.09},   {u"DIMTSZ", 142, 0},
    {u"DIMALTF", 143, 25.4},    {u"DIMLFAC", 144, 1},    {u"DIMGAP", 147, 0.09},   {u"DIMALT", 170, 0},
    {u"DIMALTD", 171, 2},       {u"DIMTOFL", 172, 0},    {u"DIMSAH", 173, 0},      {u"DIMCLRD", 176, 0},
    {u"DIMCLRE", 177, 0},       {u"DIMCLRT", 178, 0},    {u"DIMDEC", 271, 4},      {u"DIMLUNIT", 277, 2},
    {u"DIMAZIN", 79, 0},        {u"DIMADEC", 179, 0},
};
// clang-format on

// DIMPOST, and the handle of DIMTXSTY, which styles of before R2000 do not have.
inline constexpr int DimensionPostCode = 3, DimensionTextStyleCode = 340;

// What dimensions are drawn by. Lengths are those of the drawing, with DIMSCALE.
struct DimensionStyle
{
    double arrowSize, tickSize;       // DIMASZ, and DIMTSZ: strokes instead of arrows where it is more than 0
    double extensionOffset, overhang; // DIMEXO, DIMEXE
    double textHeight, gap;           // DIMTXT, DIMGAP
    double centreSize, lineStep;      // DIMCEN, DIMDLI: from one dimension line to the next
    double lengthFactor, rounding;    // DIMLFAC, DIMRND
    int decimals, zeros;              // DIMDEC, DIMZIN
    int angleDecimals, angleZeros;    // DIMADEC (less than 0: as DIMDEC), DIMAZIN
    int lineColor, extensionColor, textColor;
    bool hidesFirstExtension, hidesSecondExtension; // DIMSE1, DIMSE2
    bool isTextAbove, isTextLevel;                  // DIMTAD, DIMTIH
    std::u16string post, textStyle;                 // DIMPOST, DIMTXSTY
};

// The style whose variables have these values, under the codes of a style's record.
DimensionStyle dimensionStyle(const GroupList &variables, std::u16string textStyle);

// The style of a dimension: that which it names, with its own values for some of the variables.
DimensionStyle styleOfDimension(const Drawing &drawing, const GroupList &dimension);

// Gives a dimension values of its own where these variables differ from the style that it names; takes away those that
// it has had. What else an application keeps with the dimension stays.
void overrideStyle(Drawing &drawing, GroupList &dimension, const GroupList &variables);
void removeOverrides(GroupList &dimension);

} // namespace drawing
