#include "host/commands/NewEntity.h"

#include "host/commands/Colors.h"
#include "host/drawing/entities/EntityMaking.h"

namespace commands {

using namespace drawing;

namespace {

enum Code : int {
    LinetypeCode = 6,
    ElevationCode = 38,
    ThicknessCode = 39,
    StartWidthCode = 40,
    EndWidthCode = 41,
    BulgeCode = 42,
    LinetypeScaleCode = 48,
    FollowCode = 66,
    FlagsCode = 70,
    CountCode = 90,
    LineweightCode = 370,
    ExtrusionCode = 210,
};

constexpr std::int64_t ClosedFlag = 1;
constexpr int LineweightByLayer = -1;

bool isByLayer(const std::u16string &linetype)
{
    return folded(linetype) == folded(u"ByLayer");
}

void addLightPolyline(GroupList &groups, const std::vector<PolylineVertex> &vertices, std::int64_t flags)
{
    groups.push_back(textGroup(groupcode::Subclass, u"AcDbPolyline"));
    groups.push_back(integerGroup(CountCode, static_cast<std::int64_t>(vertices.size())));
    groups.push_back(integerGroup(FlagsCode, flags));
    groups.push_back(realGroup(ElevationCode, vertices.front().place.z));
    for (const PolylineVertex &vertex : vertices) {
        groups.push_back(flatPointGroup(groupcode::FirstX, vertex.place));
        groups.push_back(realGroup(StartWidthCode, vertex.startWidth));
        groups.push_back(realGroup(EndWidthCode, vertex.endWidth));
        groups.push_back(realGroup(BulgeCode, vertex.bulge));
    }
}

RecordId addHeavyPolyline(Context &context, GroupList groups, const std::vector<PolylineVertex> &vertices,
                          std::int64_t flags)
{
    groups.push_back(integerGroup(FollowCode, 1));
    groups.push_back(pointGroup(groupcode::FirstX, {0, 0, vertices.front().place.z}));
    groups.push_back(integerGroup(FlagsCode, flags));
    const RecordId polyline = addEntity(context, groups);
    for (const PolylineVertex &vertex : vertices) {
        GroupList part = newEntity(context, u"VERTEX");
        part.push_back(pointGroup(groupcode::FirstX, vertex.place));
        part.push_back(realGroup(StartWidthCode, vertex.startWidth));
        part.push_back(realGroup(EndWidthCode, vertex.endWidth));
        part.push_back(realGroup(BulgeCode, vertex.bulge));
        addPart(context, polyline, part);
    }
    addPart(context, polyline, newEntity(context, u"SEQEND"));
    return polyline;
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
    setColor(groups, colorFromText(session.text(u"CECOLOR")).value_or(Color()));
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
    const bool isLight = !context.database().isBefore2000() && context.session().integer(u"PLINETYPE") != 0;
    const bool generates = context.session().integer(u"PLINEGEN") != 0;
    constexpr std::int64_t GenerateFlag = 128;
    const std::int64_t flags = (closing == Closing::Closed ? ClosedFlag : 0) | (generates ? GenerateFlag : 0);
    GroupList groups = newEntity(context, isLight ? u"LWPOLYLINE" : u"POLYLINE");
    if (!isLight) {
        extrude(context, plane, groups);
        return addHeavyPolyline(context, groups, vertices, flags);
    }
    addLightPolyline(groups, vertices, flags);
    extrude(context, plane, groups);
    return addEntity(context, groups);
}

} // namespace commands
