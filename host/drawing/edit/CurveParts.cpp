// What is left of a curve entity: the parts of its way, written as entities again.
#include "host/drawing/edit/CurveWay.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/Rewriting.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <cmath>

namespace drawing {

using geometry::Course;
using geometry::EllipticArc;
using geometry::Matrix;
using geometry::Nurbs;
using geometry::Vector;

namespace {

enum Code : int {
    EndCode = 11,
    ThicknessCode = 39,
    RadiusCode = 40,
    StartParameterCode = 41,
    EndParameterCode = 42,
    StartAngleCode = 50,
    EndAngleCode = 51,
    FlagsCode = 70,
    DegreeCode = 71,
    KnotCountCode = 72,
    PointCountCode = 73,
    FitCountCode = 74,
    ExtrusionCode = 210,
};

double degreesOf(double radians)
{
    constexpr double Turn = 360;
    const double angle = std::fmod(radians * (Turn / geometry::FullTurn), Turn);
    return angle < 0 ? angle + Turn : angle;
}

double parameterAt(const Course &course, double place)
{
    return course.first() + (course.last() - course.first()) * place;
}

GroupList linePart(GroupList groups, const CurveWay &way, const WayPart &part)
{
    setGroup(groups, pointGroup(groupcode::FirstX, way.at(part.from)));
    setGroup(groups, pointGroup(EndCode, way.at(part.to)));
    return groups;
}

// Angles in the object's coordinates are the parameters of its curve.
GroupList arcPart(const GroupList &groups, const CurveWay &way, const WayPart &part)
{
    const Course &course = way.pieces().front();
    GroupList arc = groups;
    if (textOf(groups, groupcode::Type) == u"CIRCLE") {
        const auto mark = [&](std::u16string_view marker) {
            if (hasGroup(groups, groupcode::Subclass))
                arc.push_back(textGroup(groupcode::Subclass, std::u16string(marker)));
        };
        arc = commonGroups(groups, u"ARC");
        mark(u"AcDbCircle");
        arc.push_back(pointGroup(groupcode::FirstX, placeOf(groups, groupcode::FirstX)));
        arc.push_back(realGroup(RadiusCode, realOf(groups, RadiusCode)));
        for (const int code : {ThicknessCode, ExtrusionCode})
            if (const Group *group = findGroup(groups, code))
                arc.push_back(*group);
        mark(u"AcDbArc");
    }
    setGroup(arc, realGroup(StartAngleCode, degreesOf(parameterAt(course, part.from))));
    setGroup(arc, realGroup(EndAngleCode, degreesOf(parameterAt(course, part.to))));
    return arc;
}

GroupList ellipsePart(GroupList groups, const CurveWay &way, const WayPart &part)
{
    const Course &course = way.pieces().front();
    setGroup(groups, realGroup(StartParameterCode, parameterAt(course, part.from)));
    setGroup(groups, realGroup(EndParameterCode, parameterAt(course, part.to)));
    return groups;
}

GroupList splinePart(const GroupList &groups, const CurveWay &way, const WayPart &part)
{
    const Course &course = way.pieces().front();
    const geometry::Curve curve = course.part(parameterAt(course, part.from), parameterAt(course, part.to));
    return splineGroups(commonGroups(groups, u"SPLINE"), std::get<Nurbs>(curve));
}

double between(double from, double to, double part)
{
    return from + (to - from) * part;
}

// A vertex for each begun segment; bulges and widths are those of the segment's part.
PolylineData slice(const PolylineData &polyline, const CurveWay &way, const WayPart &part)
{
    constexpr double Rounding = 1e-9;
    const Matrix toObject = geometry::inverse(Matrix::ofExtrusion(polyline.extrusion));
    PolylineData result = polyline;
    result.isClosed = false;
    result.vertices.clear();
    for (double at = part.from; at < part.to - Rounding;) {
        const double first = std::floor(at + Rounding), next = std::min(first + 1, part.to);
        const auto &old = polyline.vertices[static_cast<std::size_t>(first) % polyline.vertices.size()];
        const double begin = std::max(at - first, 0.0), end = next - first;
        PolylineData::Vertex vertex;
        vertex.place = begin <= Rounding ? old.place : toObject.place(way.at(at));
        vertex.startWidth = between(old.startWidth, old.endWidth, begin);
        vertex.endWidth = between(old.startWidth, old.endWidth, end);
        vertex.bulge = std::tan(std::atan(old.bulge) * (end - begin));
        result.vertices.push_back(vertex);
        at = next;
    }
    PolylineData::Vertex last;
    last.place = toObject.place(way.at(part.to));
    result.vertices.push_back(last);
    return result;
}

GroupList partGroups(const Drawing &drawing, RecordId entity, const CurveWay &way, const WayPart &part)
{
    const GroupList groups = drawing.database().groups(entity);
    const std::u16string type = drawing.database().type(entity);
    if (type == u"LINE")
        return linePart(groups, way, part);
    if (type == u"ARC" || type == u"CIRCLE")
        return arcPart(groups, way, part);
    if (type == u"ELLIPSE")
        return ellipsePart(groups, way, part);
    return splinePart(groups, way, part);
}

// Another entity beside this one, which keeps its extension dictionary and reactors.
RecordId addPiece(Drawing &drawing, RecordId entity, GroupList groups)
{
    const Database &database = drawing.database();
    return addEntityTo(drawing, withExtendedDataOf(database.groups(entity), groupsForCopy(std::move(groups))),
                       destinationOf(database, entity));
}

// The others of the parts are copies.
bool keepPolylineParts(Drawing &drawing, RecordId entity, const CurveWay &way, const std::vector<WayPart> &parts)
{
    const std::optional<PolylineData> whole = polylineOf(drawing.database(), entity);
    std::vector<RecordId> pieces{entity};
    while (pieces.size() < parts.size())
        pieces.push_back(copyEntity(drawing, entity));
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (pieces[i] == NoRecord || !replacePolyline(drawing, pieces[i], slice(*whole, way, parts[i])))
            return false;
    return true;
}

} // namespace

GroupList splineGroups(GroupList groups, const Nurbs &nurbs)
{
    constexpr std::int64_t RationalFlag = 4;
    const bool isRational = std::ranges::any_of(nurbs.weights, [](double weight) { return weight != 1; });
    groups.push_back(textGroup(groupcode::Subclass, u"AcDbSpline"));
    groups.push_back(integerGroup(FlagsCode, isRational ? RationalFlag : 0));
    groups.push_back(integerGroup(DegreeCode, nurbs.degree));
    groups.push_back(integerGroup(KnotCountCode, static_cast<std::int64_t>(nurbs.knots.size())));
    groups.push_back(integerGroup(PointCountCode, static_cast<std::int64_t>(nurbs.points.size())));
    groups.push_back(integerGroup(FitCountCode, 0));
    for (const double knot : nurbs.knots)
        groups.push_back(realGroup(RadiusCode, knot));
    if (isRational)
        for (const double weight : nurbs.weights)
            groups.push_back(realGroup(StartParameterCode, weight));
    for (const Vector &point : nurbs.points)
        groups.push_back(pointGroup(groupcode::FirstX, point));
    return groups;
}

bool keepParts(Drawing &drawing, RecordId entity, const std::vector<WayPart> &parts)
{
    const std::optional<CurveWay> way = CurveWay::of(drawing, entity);
    if (!way)
        return false;
    if (parts.empty()) {
        drawing.database().erase(entity);
        return true;
    }
    if (polylineOf(drawing.database(), entity))
        return keepPolylineParts(drawing, entity, *way, parts);
    std::vector<GroupList> wanted;
    for (const WayPart &part : parts)
        wanted.push_back(partGroups(drawing, entity, *way, part));
    for (std::size_t i = 1; i < wanted.size(); ++i)
        if (addPiece(drawing, entity, wanted[i]) == NoRecord)
            return false;
    return rewriteEntity(drawing, entity, wanted.front());
}

bool moveEnd(Drawing &drawing, RecordId entity, WayEnd end, const Vector &to)
{
    Database &database = drawing.database();
    const std::optional<CurveWay> way = CurveWay::of(drawing, entity);
    const std::u16string type = database.type(entity);
    if (!way || way->isClosed() || type == u"SPLINE")
        return false;
    const Course &piece = end == WayEnd::Start ? way->pieces().front() : way->pieces().back();
    double parameter = *piece.parameterOf(to, geometry::Span::Extended);
    // Of an arc a place before its start is one behind it by less than a full turn.
    if (piece.arc() && end == WayEnd::Start)
        parameter -= geometry::FullTurn;
    const double part = (parameter - piece.first()) / (piece.last() - piece.first());
    GroupList groups = database.groups(entity);
    std::optional<PolylineData> polyline = polylineOf(database, entity);
    if (!polyline) {
        const WayPart whole = end == WayEnd::Start ? WayPart{part, 1} : WayPart{0, part};
        if (type == u"LINE")
            setGroup(groups, pointGroup(end == WayEnd::Start ? groupcode::FirstX : EndCode, piece.at(parameter)));
        else
            groups = type == u"ELLIPSE" ? ellipsePart(groups, *way, whole) : arcPart(groups, *way, whole);
        return database.replace(entity, groups);
    }
    const Vector place = geometry::inverse(Matrix::ofExtrusion(polyline->extrusion)).place(piece.at(parameter));
    auto &vertices = polyline->vertices;
    PolylineData::Vertex &moved = end == WayEnd::Start ? vertices.front() : vertices.back();
    PolylineData::Vertex &bent = end == WayEnd::Start ? vertices.front() : vertices[vertices.size() - 2];
    bent.bulge = std::tan(std::atan(bent.bulge) * (end == WayEnd::Start ? 1 - part : part));
    moved.place = place;
    return replacePolyline(drawing, entity, *polyline);
}

} // namespace drawing
