#include "host/render/PageSetup.h"

#include <algorithm>
#include <cmath>

namespace render {

namespace {

enum Flag { Centred = 4, UseStandardScale = 16, ScaleWeights = 64, PlotWeights = 128 };
enum PaperUnit { Inch, Millimetre, Pixel };
constexpr double MillimetresPerInch = 25.4;
constexpr std::int64_t ToFit = 0;

struct Groups
{
    double margins[4] = {}; // left, bottom, right, top
    double width = 0, height = 0, offsetX = 0, offsetY = 0;
    double windowLeft = 0, windowBottom = 0, windowRight = 0, windowTop = 0;
    double numerator = 1, denominator = 1, standardScale = 1;
    std::int64_t flags = 0, unit = Millimetre, quarterTurns = 0, area = 5, standardType = 16;
};

void takeReal(const drawing::Item &item, Groups &groups)
{
    constexpr int FirstMargin = 40, LastMargin = 43;
    struct Row
    {
        int code;
        double &value;
    };
    const Row rows[] = {{44, groups.width},        {45, groups.height},        {46, groups.offsetX},
                        {47, groups.offsetY},      {48, groups.windowLeft},    {49, groups.windowBottom},
                        {140, groups.windowRight}, {141, groups.windowTop},    {142, groups.numerator},
                        {143, groups.denominator}, {147, groups.standardScale}};
    if (!std::isfinite(item.real))
        return;
    if (item.code >= FirstMargin && item.code <= LastMargin)
        groups.margins[item.code - FirstMargin] = item.real;
    for (const Row &row : rows)
        if (item.code == row.code)
            row.value = item.real;
}

void takeInteger(const drawing::Item &item, Groups &groups)
{
    struct Row
    {
        int code;
        std::int64_t &value;
    };
    const Row rows[] = {
        {70, groups.flags}, {72, groups.unit}, {73, groups.quarterTurns}, {74, groups.area}, {75, groups.standardType}};
    for (const Row &row : rows)
        if (item.code == row.code)
            row.value = item.integer;
}

// The layout's own part behind the plot settings has the same codes with other meanings.
Groups read(const drawing::Database &database, drawing::RecordId layout)
{
    Groups groups;
    drawing::GroupReader reader = database.reader(layout);
    for (drawing::Item item; reader.next(item);) {
        if (item.code == drawing::groupcode::Subclass && item.value == "AcDbLayout")
            break;
        if (item.kind == drawing::ValueKind::Real)
            takeReal(item, groups);
        else if (drawing::isInteger(item.kind))
            takeInteger(item, groups);
    }
    return groups;
}

// The drawing is turned counterclockwise by quarter turns on the paper, so its edges lie at other edges of the paper.
QMarginsF turnedMargins(const Groups &groups)
{
    const auto margin = [&](std::int64_t edge) { // counted against the clock from the left edge of the drawing
        return std::max(0.0, groups.margins[(edge + groups.quarterTurns) & 3]);
    };
    return {margin(0), margin(3), margin(2), margin(1)};
}

double scaleOf(const Groups &groups)
{
    const bool isStandard = (groups.flags & UseStandardScale) != 0;
    if (isStandard && groups.standardType == ToFit)
        return 0;
    const double ratio = isStandard ? groups.standardScale : groups.numerator / groups.denominator;
    const double unit = groups.unit == Inch ? MillimetresPerInch : 1;
    return ratio > 0 && std::isfinite(ratio) ? ratio * unit : unit;
}

} // namespace

PageSetup pageSetup(const drawing::Database &database, drawing::RecordId layout)
{
    const Groups groups = read(database, layout);
    PageSetup setup;
    const bool hasPaper = groups.width > 0 && groups.height > 0 && groups.unit != Pixel;
    if (hasPaper)
        setup.paper =
            groups.quarterTurns % 2 == 0 ? QSizeF(groups.width, groups.height) : QSizeF(groups.height, groups.width);
    setup.margins = turnedMargins(groups);
    setup.offset = {groups.offsetX, groups.offsetY};
    setup.area = static_cast<PageSetup::Area>(std::clamp<std::int64_t>(groups.area, 0, 5));
    setup.window =
        QRectF(QPointF(groups.windowLeft, groups.windowBottom), QPointF(groups.windowRight, groups.windowTop))
            .normalized();
    setup.scale = scaleOf(groups);
    setup.isCentred = (groups.flags & Centred) != 0;
    setup.drawsWeights = (groups.flags & PlotWeights) != 0;
    setup.scalesWeights = (groups.flags & ScaleWeights) != 0;
    return setup;
}

} // namespace render
