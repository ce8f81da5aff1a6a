#include "host/drawing/edit/TransformRows.h"

#include "host/drawing/edit/GroupEditing.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace drawing {

namespace {

using enum GroupRole;

constexpr RoleRow thickness{39, Length}, extrusion{210, Extrusion};

constexpr RoleRow lineRows[] = {{10, Place}, {11, Place}, thickness, extrusion};
constexpr RoleRow pointRows[] = {{10, Place}, {50, ObjectAngle}, thickness, extrusion};
constexpr RoleRow faceRows[] = {{10, Place}, {11, Place}, {12, Place}, {13, Place}};
constexpr RoleRow rayRows[] = {{10, Place}, {11, Direction}};
constexpr RoleRow circleRows[] = {{10, ObjectPlace}, {40, Length}, thickness, extrusion};
constexpr RoleRow arcRows[] = {{10, ObjectPlace}, {40, Length}, {50, ObjectAngle},
                               {51, ObjectAngle}, thickness,    extrusion};
constexpr RoleRow ellipseRows[] = {{10, Place}, {11, Offset}, extrusion};
constexpr RoleRow splineRows[] = {{10, Place}, {11, Place}, {12, Direction}, {13, Direction}, extrusion};
constexpr RoleRow polylineRows[] = {{10, ObjectPlace}, {40, Length}, {41, Length}, thickness, extrusion};
constexpr RoleRow vertexRows[] = {{10, ObjectPlace}, {40, Length}, {41, Length}, {42, Bulge}, {50, ObjectAngle}};
constexpr RoleRow spaceVertexRows[] = {{10, Place}};
constexpr RoleRow solidRows[] = {{10, ObjectPlace}, {11, ObjectPlace}, {12, ObjectPlace},
                                 {13, ObjectPlace}, thickness,         extrusion};
constexpr RoleRow textRows[] = {{10, ObjectPlace}, {11, ObjectPlace}, {40, Length},
                                {50, Rotation},    thickness,         extrusion};
constexpr RoleRow mtextRows[] = {{10, Place},  {11, Direction}, {40, Length},   {41, Length}, {42, Length},
                                 {43, Length}, {46, Length},    {50, Rotation}, extrusion};
constexpr RoleRow insertRows[] = {{10, ObjectPlace}, {41, Length}, {42, Length},   {43, Length},
                                  {44, Length},      {45, Length}, {50, Rotation}, extrusion};
constexpr RoleRow dimensionRows[] = {{10, Place},       {11, ObjectPlace}, {12, ObjectPlace}, {13, Place},
                                     {14, Place},       {15, Place},       {16, ObjectPlace}, {40, Length},
                                     {50, ObjectAngle}, {53, Deviation},   extrusion};
constexpr RoleRow leaderRows[] = {{10, Place}, {211, Direction}, {212, Offset}, {213, Offset}, extrusion};
constexpr RoleRow imageRows[] = {{10, Place}, {11, Offset}, {12, Offset}};
constexpr RoleRow viewportRows[] = {{10, Place}, {40, Length}, {41, Length}};
constexpr RoleRow multilineRows[] = {{10, Place},  {11, Place},  {12, Direction}, {13, Direction},
                                     {40, Length}, {41, Length}, {42, Length},    extrusion};
constexpr RoleRow meshRows[] = {{10, Place}};
constexpr RoleRow helixRows[] = {{10, Place}, {11, Place}, {12, Direction}, {40, Length}, {42, Length}};
constexpr RoleRow toleranceRows[] = {{10, Place}, {11, Direction}, extrusion};

void swapValues(GroupList &groups, int first, int second)
{
    const double a = realOf(groups, first), b = realOf(groups, second);
    setGroup(groups, realGroup(first, b));
    setGroup(groups, realGroup(second, a));
}

// A mirror turns an arc's direction round; it is counter-clockwise again with its ends exchanged.
void finishArc(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    if (similarity.mirrors())
        swapValues(groups, 50, 51);
}

// Its own place holds no more than the height of its vertices.
void finishPolyline(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    const bool isInSpace = (integerOf(groups, groupcode::Count) & InSpaceFlags) != 0;
    const double height = placeOf(groups, groupcode::FirstX, similarity.place({0, 0, 0})).z;
    setGroup(groups, pointGroup(groupcode::FirstX, {0, 0, isInSpace ? 0 : height}));
}

void finishEllipse(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    if (!similarity.mirrors())
        return;
    const double start = realOf(groups, 41), end = realOf(groups, 42, geometry::FullTurn);
    if (end - start >= geometry::FullTurn)
        return;
    const auto inTurn = [](double angle) { return angle < 0 ? angle + geometry::FullTurn : angle; };
    setGroup(groups, realGroup(41, inTurn(geometry::FullTurn - end)));
    setGroup(groups, realGroup(42, inTurn(geometry::FullTurn - start)));
}

void finishInsert(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    // Scales are left out where they are 1.
    for (const int code : {41, 42, 43})
        if (!hasGroup(groups, code) && (similarity.scale() != 1 || similarity.mirrors()))
            setGroup(groups, realGroup(code, similarity.scale()));
    if (!similarity.mirrors())
        return;
    setGroup(groups, realGroup(42, -realOf(groups, 42, 1)));
    if (hasGroup(groups, 45))
        setGroup(groups, realGroup(45, -realOf(groups, 45)));
}

enum TextCode : int {
    Alignment = 11,
    RotationAngle = 50,
    Generation = 71,
    Horizontal = 72,
    Vertical = 73,
    AttributeVertical = 74
};

// Which way a text is justified, in the other direction.
std::int64_t acrossText(std::int64_t horizontal)
{
    constexpr std::int64_t Left = 0, Right = 2;
    return horizontal == Left ? Right : (horizontal == Right ? Left : horizontal);
}

std::int64_t upsideDown(std::int64_t vertical)
{
    constexpr std::int64_t Baseline = 0, Bottom = 1, Middle = 2, Top = 3;
    if (vertical == Middle)
        return Middle;
    return vertical == Top ? Baseline : (vertical == Bottom || vertical == Baseline ? Top : vertical);
}

void turnAround(GroupList &groups)
{
    constexpr double HalfTurn = 180, Turn = 360;
    const double angle = realOf(groups, RotationAngle) + HalfTurn;
    setGroupInFirstPart(groups, realGroup(RotationAngle, angle >= Turn ? angle - Turn : angle));
}

// Texts between two places run from the first to the second; they know no other ways to be justified.
void keepReadableBetweenPlaces(GroupList &groups)
{
    if (isUpright(realOf(groups, RotationAngle)))
        return;
    const geometry::Vector left = placeOf(groups, groupcode::FirstX), right = placeOf(groups, Alignment, left);
    setGroup(groups, pointGroup(groupcode::FirstX, right));
    setGroupInFirstPart(groups, pointGroup(Alignment, left));
    turnAround(groups);
}

// The mirrored text covers the same area as the mirror's image of the old one, but reads from left to right: either its
// left and right ends or its top and bottom change places, so that it does not stand on its head.
void keepReadable(GroupList &groups, int verticalCode)
{
    constexpr std::int64_t Aligned = 3, Centred = 4, Fit = 5;
    const std::int64_t horizontal = integerOf(groups, Horizontal), vertical = integerOf(groups, verticalCode);
    if (horizontal == Aligned || horizontal == Fit)
        return keepReadableBetweenPlaces(groups);
    if (!hasGroup(groups, Alignment) || (horizontal == 0 && vertical == 0))
        setGroupInFirstPart(groups, pointGroup(Alignment, placeOf(groups, groupcode::FirstX)));
    if (isUpright(realOf(groups, RotationAngle))) {
        if (horizontal != Centred)
            setGroup(groups, integerGroup(verticalCode, upsideDown(vertical)));
    } else {
        setGroupInFirstPart(groups, integerGroup(Horizontal, acrossText(horizontal)));
        turnAround(groups);
    }
}

void mirrorText(GroupList &groups, const ObjectSimilarity &similarity, bool mirrorsTexts, int verticalCode)
{
    constexpr std::int64_t Backwards = 2;
    if (!similarity.mirrors())
        return;
    if (!mirrorsTexts)
        return keepReadable(groups, verticalCode);
    turnAround(groups);
    setGroupInFirstPart(groups, integerGroup(Generation, integerOf(groups, Generation) ^ Backwards));
}

void finishText(GroupList &groups, const ObjectSimilarity &similarity, bool mirrorsTexts)
{
    mirrorText(groups, similarity, mirrorsTexts, Vertical);
}

void finishAttribute(GroupList &groups, const ObjectSimilarity &similarity, bool mirrorsTexts)
{
    mirrorText(groups, similarity, mirrorsTexts, AttributeVertical);
}

constexpr int ParagraphDirection = 11;

bool isUprightParagraph(const GroupList &groups, const ObjectSimilarity &similarity)
{
    return hasGroup(groups, ParagraphDirection) ? isUpright(placeOf(groups, ParagraphDirection), similarity.extrusion())
                                                : isUpright(realOf(groups, RotationAngle));
}

// Paragraphs are never mirrored: their left and right, or their top and bottom, change places, as those of texts do.
void finishParagraphs(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    constexpr int AttachmentCode = 71, Columns = 3, Rows = 3;
    if (!similarity.mirrors())
        return;
    const std::int64_t attachment = integerOf(groups, AttachmentCode, 1) - 1;
    std::int64_t row = attachment / Columns, column = attachment % Columns;
    if (isUprightParagraph(groups, similarity)) {
        row = Rows - 1 - row;
    } else {
        column = Columns - 1 - column;
        if (hasGroup(groups, ParagraphDirection))
            setGroup(groups, pointGroup(ParagraphDirection, -placeOf(groups, ParagraphDirection)));
        else
            turnAround(groups);
    }
    setGroup(groups, integerGroup(AttachmentCode, row * Columns + column + 1));
}

// The elements stand to the left of the way when one looks against the extrusion direction. In a mirror they stand to
// the right, or to the left as seen from the other side: so the scale and the distances along the miters keep their
// signs.
void finishMultiline(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    constexpr int ExtrusionCode = 210;
    if (!similarity.mirrors())
        return;
    const auto start = std::ranges::find(groups, groupcode::FirstX, &Group::code);
    if (!hasGroup(groups, ExtrusionCode) && start != groups.end()) // ahead of the vertices
        groups.insert(start + 1, pointGroup(ExtrusionCode, {}));
    setGroup(groups, pointGroup(ExtrusionCode, geometry::Vector{} - similarity.extrusion())); // 0 stays 0, not -0
}

void finishHelix(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    constexpr int RightHandedCode = 290;
    if (similarity.mirrors())
        setGroup(groups, integerGroup(RightHandedCode, integerOf(groups, RightHandedCode, 1) == 0 ? 1 : 0));
}

// The measurement is shown where the dimension has no text of its own. Angles stay what they are. That of a line that
// runs along the x axis may be missing.
void finishDimension(GroupList &groups, const ObjectSimilarity &similarity, bool)
{
    constexpr int MeasurementCode = 42, LineAngleCode = 50, LastPlaceCode = 14;
    constexpr std::int64_t TypeBits = 7, Rotated = 0, Angular = 2, AngularByThreePoints = 5;
    const std::int64_t type = integerOf(groups, groupcode::Count) & TypeBits;
    const auto place = std::ranges::find(groups, LastPlaceCode, &Group::code);
    if (type == Rotated && !hasGroup(groups, LineAngleCode) && similarity.angle(0) != 0 && place != groups.end())
        groups.insert(place + 1, realGroup(LineAngleCode, similarity.angle(0)));
    if (type != Angular && type != AngularByThreePoints && hasGroup(groups, MeasurementCode))
        setGroup(groups, realGroup(MeasurementCode, realOf(groups, MeasurementCode) * similarity.scale()));
}

// Sorted by type.
constexpr TransformSchema schemas[] = {
    {u"3DFACE", faceRows},
    {u"ARC", arcRows, finishArc},
    {u"ATTDEF", textRows, finishAttribute},
    {u"ATTRIB", textRows, finishAttribute},
    {u"CIRCLE", circleRows},
    {u"DIMENSION", dimensionRows, finishDimension},
    {u"ELLIPSE", ellipseRows, finishEllipse},
    {u"HELIX", splineRows, finishHelix, u"AcDbHelix", helixRows},
    {u"IMAGE", imageRows},
    {u"INSERT", insertRows, finishInsert},
    {u"LEADER", leaderRows},
    {u"LINE", lineRows},
    {u"MESH", meshRows},
    {u"MLINE", multilineRows, finishMultiline},
    {u"MTEXT", mtextRows, finishParagraphs},
    {u"POINT", pointRows},
    {u"POLYLINE", polylineRows, finishPolyline},
    {u"RAY", rayRows},
    {u"SEQEND", {}},
    {u"SHAPE", textRows},
    {u"SOLID", solidRows},
    {u"SPLINE", splineRows},
    {u"TEXT", textRows, finishText},
    {u"TOLERANCE", toleranceRows},
    {u"TRACE", solidRows},
    {u"VERTEX", vertexRows},
    {u"VIEWPORT", viewportRows},
    {u"WIPEOUT", imageRows},
    {u"XLINE", rayRows},
};

static_assert(std::ranges::is_sorted(schemas, {},
                                     [](const TransformSchema &one) { return std::u16string_view(one.type); }));

} // namespace

bool isUpright(double angle)
{
    constexpr double Quarter = 90, ThreeQuarters = 270;
    return angle <= Quarter || angle > ThreeQuarters;
}

bool isUpright(const geometry::Vector &direction, const geometry::Vector &normal)
{
    constexpr double Turn = 360, Tiny = 1e-12;
    const auto toObject = geometry::inverse(geometry::Matrix::ofExtrusion(normal));
    const geometry::Vector written = toObject.direction(direction);
    const double angle = std::atan2(written.y, written.x) * (Turn / geometry::FullTurn);
    return isUpright(angle < -Tiny ? angle + Turn : angle);
}

constexpr TransformSchema spaceVertexSchema{u"VERTEX", spaceVertexRows};

const TransformSchema *transformSchema(std::u16string_view type)
{
    const auto typeOf = [](const TransformSchema &one) { return std::u16string_view(one.type); };
    const auto found = std::ranges::lower_bound(schemas, type, {}, typeOf);
    return found != std::end(schemas) && type == found->type ? &*found : nullptr;
}

} // namespace drawing
