#include "host/commands/NewEntity.h"

#include "host/commands/Colors.h"
#include "host/drawing/Lineweights.h"
#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/entities/RecordTypes.h"

#include <cmath>

namespace commands {

using namespace drawing;

namespace {

enum Code : int {
    LinetypeCode = 6,
    ThicknessCode = 39,
    StartWidthCode = 40,
    EndWidthCode = 41,
    BulgeCode = 42,
    LinetypeScaleCode = 48,
    FollowCode = 66,
    FlagsCode = 70,
    LineweightCode = 370,
    ExtrusionCode = 210,
};

bool isByLayer(const std::u16string &linetype)
{
    return folded(linetype) == folded(u"ByLayer");
}

RecordId addHeavyPolyline(Context &context, GroupList groups, const PolylineData &polyline)
{
    constexpr std::int64_t ClosedFlag = 1, GenerateFlag = 128;
    const std::int64_t flags = (polyline.isClosed ? ClosedFlag : 0) | (polyline.generatesLinetype ? GenerateFlag : 0);
    groups.push_back(integerGroup(FollowCode, 1));
    groups.push_back(pointGroup(groupcode::FirstX, {0, 0, polyline.vertices.front().place.z}));
    groups.push_back(integerGroup(FlagsCode, flags));
    const RecordId added = addEntity(context, groups);
    for (const PolylineVertex &vertex : polyline.vertices) {
        GroupList part = newEntity(context, u"VERTEX");
        part.push_back(pointGroup(groupcode::FirstX, vertex.place));
        part.push_back(realGroup(StartWidthCode, vertex.startWidth));
        part.push_back(realGroup(EndWidthCode, vertex.endWidth));
        part.push_back(realGroup(BulgeCode, vertex.bulge));
        addPart(context, added, part);
    }
    addPart(context, added, newEntity(context, u"SEQEND"));
    return added;
}

} // namespace

GroupList newEntity(Context &context, std::u16string type)
{
    const Session &session = context.session();
    GroupList groups{textGroup(groupcode::Type, std::move(type))};
    if (!context.database().isBefore2000())
        groups.push_back(textGroup(groupcode::Subclass, u"AcDbEntity"));
    groups.push_back(textGroup(groupcode::Layer, session.text(u"CLAYER")));
    if (const std::u16string linetype = session.text(u"CELTYPE"); !isByLayer(linetype))
        groups.push_back(textGroup(LinetypeCode, linetype));
    setColor(context.database(), groups, colorFromText(session.text(u"CECOLOR")).value_or(Color()));
    if (const double scale = session.real(u"CELTSCALE"); scale != 1)
        groups.push_back(realGroup(LinetypeScaleCode, scale));
    if (const int weight = session.integer(u"CELWEIGHT");
        weight != LineweightByLayer && !context.database().isBefore2000())
        groups.push_back(integerGroup(LineweightCode, weight));
    return groups;
}

void extrude(Context &context, const WorkPlane &plane, GroupList &groups)
{
    if (const double thickness = context.session().real(u"THICKNESS"); thickness != 0)
        groups.push_back(realGroup(ThicknessCode, thickness));
    if (plane.normal() != Vector{0, 0, 1})
        groups.push_back(pointGroup(ExtrusionCode, plane.normal()));
}

RecordId addEntity(Context &context, const GroupList &groups)
{
    const std::u16string type = textOf(groups, groupcode::Type);
    if (!drawing::canHoldEntities(context.database(), type))
        throw CommandError{u"A drawing before R13 has no " + type + u" objects."};
    Placement placement;
    placement.isPaperSpace = context.session().isPaperSpaceCurrent();
    const RecordId added = drawing::addEntity(context.drawing(), groups, placement);
    if (added == NoRecord)
        throw CommandError{u"The object cannot be made."};
    return added;
}

void addPart(Context &context, RecordId whole, const GroupList &groups)
{
    if (drawing::addPart(context.drawing(), whole, groups) == NoRecord)
        throw CommandError{u"The object cannot be made."};
}

RecordId addLine(Context &context, const Vector &start, const Vector &end)
{
    const WorkPlane plane(context.session());
    GroupList groups = newEntity(context, u"LINE");
    groups.push_back(pointGroup(groupcode::FirstX, start));
    groups.push_back(pointGroup(groupcode::FirstX + 1, end));
    extrude(context, plane, groups);
    return addEntity(context, groups);
}

RecordId addPolyline(Context &context, const WorkPlane &plane, const std::vector<PolylineVertex> &vertices,
                     Closing closing)
{
    PolylineData polyline;
    polyline.vertices = vertices;
    polyline.isClosed = closing == Closing::Closed;
    polyline.generatesLinetype = context.session().integer(u"PLINEGEN") != 0;
    polyline.extrusion = plane.normal();
    polyline.thickness = context.session().real(u"THICKNESS");
    if (!context.database().isBefore2000() && context.session().integer(u"PLINETYPE") != 0)
        return addEntity(context, lightPolyline(newEntity(context, u"LWPOLYLINE"), polyline));
    GroupList groups = newEntity(context, u"POLYLINE");
    extrude(context, plane, groups);
    return addHeavyPolyline(context, groups, polyline);
}

void rememberEnd(Context &context, const WorkPlane &plane, const Point &end, double direction, Shape shape)
{
    const Vector ahead = plane.toWorld().direction({std::cos(direction), std::sin(direction), 0});
    context.memory().drawnEnd = DrawnEnd{plane.world(end), ahead, shape == Shape::Curved};
}

} // namespace commands
