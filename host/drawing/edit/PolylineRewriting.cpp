// Polylines with other vertices, which stay the records that they are.
#include "host/drawing/edit/PolylineSegments.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/Rewriting.h"
#include "host/drawing/entities/EntityMaking.h"

#include <algorithm>

namespace drawing {

namespace {

enum Code : int {
    StartWidthCode = 40,
    EndWidthCode = 41,
    BulgeCode = 42,
    TangentCode = 50,
    FlagsCode = 70,
    SurfaceCode = 75
};

constexpr std::int64_t FitFlags = 2 | 4; // arcs or a spline through the vertices
constexpr std::int64_t VertexFitFlags = 1 | 2 | 8;

void setReal(GroupList &groups, int code, double value, double fallback)
{
    if (realOf(groups, code, fallback) != value)
        setGroup(groups, realGroup(code, value));
}

void setVertex(GroupList &groups, const PolylineData::Vertex &vertex, const GroupList &whole)
{
    if (placeOf(groups, groupcode::FirstX) != vertex.place)
        setGroup(groups, pointGroup(groupcode::FirstX, vertex.place));
    setReal(groups, StartWidthCode, vertex.startWidth, realOf(whole, StartWidthCode));
    setReal(groups, EndWidthCode, vertex.endWidth, realOf(whole, EndWidthCode));
    setReal(groups, BulgeCode, vertex.bulge, 0);
}

// A POLYLINE, whose vertices are records of their own.
class VertexRewriting
{
public:
    VertexRewriting(Drawing &drawing, RecordId entity)
        : m_drawing(drawing), m_database(drawing.database()), m_entity(entity), m_whole(m_database.groups(entity))
    {
    }

    bool write(const PolylineData &polyline)
    {
        const std::optional<PolylineData> old = polylineOf(m_database, m_entity);
        if (!old)
            return false;
        const bool isFit = (integerOf(m_whole, FlagsCode) & FitFlags) != 0;
        if (isFit && !std::ranges::equal(old->vertices, polyline.vertices, {}, &PolylineData::Vertex::place,
                                         &PolylineData::Vertex::place))
            removeFit();
        return writeVertices(polyline.vertices) && writeWhole(polyline);
    }

private:
    // A curve through the old places is none through the new ones; what it looked like stays.
    void removeFit()
    {
        m_keepsFit = false;
        for (const RecordId vertex : splineFrameOf(m_database, m_entity))
            m_database.erase(vertex);
    }

    bool writeVertices(const std::vector<PolylineData::Vertex> &vertices)
    {
        const std::vector<RecordId> records = shownVerticesOf(m_database, m_entity);
        RecordId last = m_entity;
        for (std::size_t index = 0; index < vertices.size(); ++index) {
            if (index >= records.size())
                last = addVertex(last, vertices[index]);
            else if (changeVertex(records[index], vertices[index]))
                last = records[index];
            else
                return false;
            if (last == NoRecord)
                return false;
        }
        for (std::size_t index = vertices.size(); index < records.size(); ++index)
            m_database.erase(records[index]);
        return true;
    }

    bool changeVertex(RecordId record, const PolylineData::Vertex &vertex)
    {
        GroupList groups = m_database.groups(record);
        setVertex(groups, vertex, m_whole);
        if (const std::int64_t flags = integerOf(groups, FlagsCode); !m_keepsFit && (flags & VertexFitFlags) != 0) {
            setGroup(groups, integerGroup(FlagsCode, flags & ~VertexFitFlags));
            removeGroups(groups, TangentCode);
        }
        return m_database.replace(record, groups);
    }

    RecordId addVertex(RecordId last, const PolylineData::Vertex &vertex)
    {
        GroupList groups = commonGroups(m_whole, u"VERTEX");
        groups.push_back(pointGroup(groupcode::FirstX, vertex.place));
        setVertex(groups, vertex, m_whole);
        return addPartBehind(m_drawing, last, m_entity, groups);
    }

    bool writeWhole(const PolylineData &polyline)
    {
        GroupList groups = m_whole;
        std::int64_t flags = polylineFlags(polyline, integerOf(groups, FlagsCode));
        if (!m_keepsFit) {
            flags &= ~FitFlags;
            removeGroups(groups, SurfaceCode);
        }
        if (flags != integerOf(groups, FlagsCode))
            setGroup(groups, integerGroup(FlagsCode, flags));
        return m_database.replace(m_entity, groups);
    }

    Drawing &m_drawing;
    Database &m_database;
    RecordId m_entity;
    GroupList m_whole;
    bool m_keepsFit = true;
};

} // namespace

bool replacePolyline(Drawing &drawing, RecordId entity, const PolylineData &polyline)
{
    const Database &database = drawing.database();
    if (database.record(entity).type == known::Polyline)
        return VertexRewriting(drawing, entity).write(polyline);
    const GroupList common = commonGroups(database.groups(entity), u"LWPOLYLINE");
    return !database.isBefore2000() && rewriteEntity(drawing, entity, lightPolyline(common, polyline));
}

} // namespace drawing
