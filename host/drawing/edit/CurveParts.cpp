// What is left of a curve entity: the parts of its way, written as entities again.
#include "host/drawing/edit/CurveWay.h"

#include "host/drawing/Dictionaries.h"
#include "host/drawing/edit/GroupEditing.h"
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
        arc = commonGroups(groups, u"ARC");
        arc.push_back(pointGroup(groupcode::FirstX, placeOf(groups, groupcode::FirstX)));
        arc.push_back(realGroup(RadiusCode, realOf(groups, RadiusCode)));
        for (const int code : {ThicknessCode, ExtrusionCode})
            if (const Group *group = findGroup(groups, code))
                arc.push_back(*group);
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

std::optional<GroupList> partGroups(const Drawing &drawing, RecordId entity, const CurveWay &way, const WayPart &part)
{
    const GroupList groups = drawing.database().groups(entity);
    const std::u16string type = drawing.database().type(entity);
    if (type == u"LINE")
        return linePart(groups, way, part);
    if (type == u"ARC" || type == u"CIRCLE")
        return arcPart(groups, way, part);
    if (type == u"ELLIPSE")
        return ellipsePart(groups, way, part);
    if (type == u"SPLINE")
        return splinePart(groups, way, part);
    const std::optional<PolylineData> polyline = polylineOf(drawing.database(), entity);
    if (!polyline || drawing.database().isBefore2000())
        return std::nullopt;
    return lightPolyline(commonGroups(groups, u"LWPOLYLINE"), slice(*polyline, way, part));
}

bool isExtended(const Group &group)
{
    return group.code >= groupcode::ExtendedString;
}

// What a new piece of an entity has of it: its extended data.
GroupList withExtendedDataOf(const GroupList &old, GroupList groups)
{
    if (std::none_of(groups.begin(), groups.end(), isExtended))
        std::copy_if(old.begin(), old.end(), std::back_inserter(groups), isExtended);
    return groups;
}

// An entity that is written anew also keeps its handle and owner, and what stands in braces: the extension dictionary
// and the reactors.
GroupList withIdentityOf(const GroupList &old, GroupList groups)
{
    GroupList identity;
    bool isInBraces = false;
    for (const Group &group : old) {
        const bool isBrace = group.code == groupcode::Braces;
        const bool isOpening = isBrace && std::get<std::u16string>(group.value).starts_with(u'{');
        if (isExtended(group))
            break;
        const bool isNamed = group.code == groupcode::Handle || group.code == groupcode::Owner;
        if (isBrace || isInBraces ? !hasGroup(groups, groupcode::Braces) : isNamed && !hasGroup(groups, group.code))
            identity.push_back(group);
        isInBraces = isOpening || (isInBraces && !isBrace);
    }
    groups.insert(groups.begin() + 1, identity.begin(), identity.end());
    return withExtendedDataOf(old, std::move(groups));
}

// Another entity beside this one, which keeps its extension dictionary and reactors.
RecordId addPiece(Drawing &drawing, RecordId entity, GroupList groups)
{
    const Database &database = drawing.database();
    return addEntityTo(drawing, withExtendedDataOf(database.groups(entity), groupsForCopy(std::move(groups))),
                       destinationOf(database, entity));
}

// The extension dictionary of an entity becomes that of another, which has none.
void handOverDictionary(Database &database, RecordId from, RecordId to)
{
    const RecordId dictionary = extensionDictionary(database, from);
    if (dictionary == NoRecord || database.record(dictionary).isGone())
        return;
    GroupList groups = database.groups(to);
    const auto handle =
        std::find_if(groups.begin(), groups.end(), [](const Group &group) { return group.code == groupcode::Handle; });
    groups.insert(handle == groups.end() ? groups.begin() + 1 : handle + 1,
                  {{groupcode::Braces, u"{ACAD_XDICTIONARY"},
                   {groupcode::HardEntry, Handle{database.record(dictionary).handle}},
                   {groupcode::Braces, u"}"}});
    database.replace(to, groups);
    GroupList owned = database.groups(dictionary);
    setGroup(owned, {groupcode::Owner, Handle{database.record(to).handle}});
    database.replace(dictionary, owned);
}

// The entity itself where the type stays, else another one.
bool become(Drawing &drawing, RecordId entity, GroupList groups)
{
    Database &database = drawing.database();
    if (textOf(groups, groupcode::Type) == database.type(entity))
        return database.replace(entity, withIdentityOf(database.groups(entity), std::move(groups)));
    const RecordId added = addPiece(drawing, entity, std::move(groups));
    if (added == NoRecord)
        return false;
    handOverDictionary(database, entity, added);
    database.erase(entity);
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
    std::vector<GroupList> wanted;
    for (const WayPart &part : parts) {
        std::optional<GroupList> groups = partGroups(drawing, entity, *way, part);
        if (!groups)
            return false;
        wanted.push_back(std::move(*groups));
    }
    if (wanted.empty()) {
        drawing.database().erase(entity);
        return true;
    }
    for (std::size_t i = 1; i < wanted.size(); ++i)
        if (addPiece(drawing, entity, wanted[i]) == NoRecord)
            return false;
    return become(drawing, entity, wanted.front());
}

bool replacePolyline(Drawing &drawing, RecordId entity, const PolylineData &polyline)
{
    if (drawing.database().isBefore2000())
        return false;
    const GroupList common = commonGroups(drawing.database().groups(entity), u"LWPOLYLINE");
    return become(drawing, entity, lightPolyline(common, polyline));
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
