// LIST: what is known of objects, for people to read.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/Blocks.h"
#include "host/drawing/edit/Area.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/edit/TransformRows.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::groupcode::FirstX;

namespace {

enum Code : int {
    TextCode = 1,
    TagCode = 2,
    PromptCode = 3,
    LinetypeCode = 6,
    StyleCode = 7,
    EndCode = 11,
    RadiusCode = 40,
    WidthCode = 41,
    DepthCode = 43,
    RotationCode = 50,
    EndAngleCode = 51,
    ColorCode = 62,
};

// An object that is being listed.
class Listing
{
public:
    Listing(Context &context, RecordId entity)
        : m_session(context.session()), m_drawing(context.drawing()), m_plane(m_session), m_entity(entity),
          m_groups(context.database().groups(entity)), m_type(drawing::textOf(m_groups, drawing::groupcode::Type))
    {
    }

    void print()
    {
        printHead();
        if (m_type == u"LINE")
            printLine();
        else if (m_type == u"CIRCLE" || m_type == u"ARC")
            printRound();
        else if (m_type == u"INSERT")
            printInsert();
        else if (m_type == u"TEXT" || m_type == u"MTEXT" || m_type == u"ATTDEF")
            printText();
        else if (const auto polyline = drawing::polylineOf(m_drawing.database(), m_entity))
            printPolyline(*polyline);
        else
            printPlaces();
        printSize();
        m_session.print(u"\n");
    }

private:
    void printLabelled(std::u16string_view label, const std::u16string &value)
    {
        constexpr int LabelWidth = 28;
        const QString padded = QString::fromStdU16String(std::u16string(label)).rightJustified(LabelWidth);
        m_session.print(u'\n' + padded.toStdU16String() + value);
    }
    std::u16string number(double value) const
    {
        constexpr int Width = 9;
        return QString::fromStdU16String(m_session.distanceText(value)).rightJustified(Width).toStdU16String();
    }
    void printNumber(std::u16string_view label, double value) { printLabelled(label, u" " + number(value)); }
    void printAngle(std::u16string_view label, double radians)
    {
        printLabelled(label, u"    " + m_session.angleText(radians - m_session.real(u"ANGBASE")));
    }
    void printPlace(std::u16string_view label, const Vector &world)
    {
        const Point place = m_plane.user(world);
        printLabelled(label, u" X=" + number(place.x) + u"  Y=" + number(place.y) + u"  Z=" + number(place.z));
    }

    double real(int code, double fallback = 0) const { return drawing::realOf(m_groups, code, fallback); }
    std::u16string text(int code) const { return drawing::textOf(m_groups, code); }
    // Of a place in the object's own coordinates.
    Vector world(const Vector &place) const
    {
        return geometry::Matrix::ofExtrusion(drawing::extrusionOf(m_groups)).place(place);
    }
    Vector ownPlace() const { return world(drawing::placeOf(m_groups, FirstX)); }

    void printHead()
    {
        constexpr int TitleWidth = 10;
        const std::u16string name = m_type == u"INSERT" ? u"BLOCK REFERENCE" : m_type;
        const bool isOnPaper = drawing::integerOf(m_groups, drawing::groupcode::Space) != 0;
        const QString title = QString::fromStdU16String(name).leftJustified(TitleWidth - 1) + QLatin1Char(' ');
        m_session.print(u"\n                  " + title.toStdU16String() + u"Layer: \"" +
                        drawing::textOf(m_groups, drawing::groupcode::Layer, u"0") + u'"');
        printLabelled(u"", isOnPaper ? u"Space: Paper space" : u"Space: Model space");
        if (const drawing::Group *color = drawing::findGroup(m_groups, ColorCode))
            printLabelled(u"Color:", u' ' + shown(std::get<std::int64_t>(color->value)));
        if (drawing::hasGroup(m_groups, LinetypeCode))
            printLabelled(u"Linetype:", u" \"" + text(LinetypeCode) + u'"');
        const QString handle = QString::number(m_drawing.database().record(m_entity).handle, 16);
        printLabelled(u"Handle =", u' ' + handle.toStdU16String());
    }

    void printLine()
    {
        const Vector start = drawing::placeOf(m_groups, FirstX), end = drawing::placeOf(m_groups, EndCode);
        const Point from = m_plane.user(start), to = m_plane.user(end);
        printPlace(u"from point,", start);
        printPlace(u"to point,", end);
        printAngle(u"Angle in XY Plane =", std::atan2(to.y - from.y, to.x - from.x));
        printNumber(u"Delta X =", to.x - from.x);
        printNumber(u"Delta Y =", to.y - from.y);
        printNumber(u"Delta Z =", to.z - from.z);
    }

    void printRound()
    {
        printPlace(u"center point,", ownPlace());
        printNumber(u"radius", real(RadiusCode));
        if (m_type == u"ARC") {
            printAngle(u"start angle", geometry::radians(real(RotationCode)));
            printAngle(u"end angle", geometry::radians(real(EndAngleCode)));
        }
    }

    void printInsert()
    {
        printLabelled(u"Block Name:", u" \"" + text(drawing::groupcode::Name) + u'"');
        printPlace(u"at point,", ownPlace());
        printNumber(u"X scale factor:", real(WidthCode, 1));
        printNumber(u"Y scale factor:", real(WidthCode + 1, 1));
        printAngle(u"rotation angle:", geometry::radians(real(RotationCode)));
        printNumber(u"Z scale factor:", real(DepthCode, 1));
        for (const RecordId part : drawing::partsOf(m_drawing.database(), m_entity))
            printAttribute(m_drawing.database().groups(part));
    }

    void printAttribute(const drawing::GroupList &attribute)
    {
        if (drawing::textOf(attribute, drawing::groupcode::Type) != u"ATTRIB")
            return;
        const std::u16string value = drawing::textOf(attribute, TextCode);
        printLabelled(u"attribute", u' ' + drawing::textOf(attribute, TagCode) + u" = \"" + value + u'"');
    }

    void printText()
    {
        printLabelled(u"Style =", u" \"" + drawing::textOf(m_groups, StyleCode, u"Standard") + u'"');
        const bool isInWorld = m_type == u"MTEXT";
        printPlace(u"start point,", isInWorld ? drawing::placeOf(m_groups, FirstX) : ownPlace());
        printNumber(u"height", real(RadiusCode));
        if (m_type == u"ATTDEF") {
            printLabelled(u"tag", u" \"" + text(TagCode) + u'"');
            printLabelled(u"prompt", u" \"" + text(PromptCode) + u'"');
        }
        printLabelled(m_type == u"ATTDEF" ? u"default" : u"text", u" \"" + text(TextCode) + u'"');
        printAngle(u"rotation angle", geometry::radians(real(RotationCode)));
    }

    void printPolyline(const drawing::PolylineData &polyline)
    {
        printLabelled(polyline.isClosed ? u"Closed" : u"Open", u"");
        for (const drawing::PolylineData::Vertex &vertex : polyline.vertices) {
            m_session.pulse();
            printPlace(u"at point", polyline.isInSpace ? vertex.place : world(vertex.place));
            if (vertex.startWidth != 0 || vertex.endWidth != 0) {
                printNumber(u"starting width", vertex.startWidth);
                printNumber(u"ending width", vertex.endWidth);
            }
            if (vertex.bulge != 0)
                printNumber(u"bulge", vertex.bulge);
        }
    }

    // Of other types all that they stand at.
    void printPlaces()
    {
        const drawing::TransformSchema *schema = drawing::transformSchema(m_type);
        for (const drawing::Group &group : m_groups) {
            const auto *point = std::get_if<Point>(&group.value);
            if (!point || !schema)
                continue;
            const auto row = std::ranges::find(schema->rows, group.code, &drawing::RoleRow::code);
            if (row == schema->rows.end())
                continue;
            if (row->role == drawing::GroupRole::Place)
                printPlace(u"at point,", geometry::vectorOf(*point));
            else if (row->role == drawing::GroupRole::ObjectPlace)
                printPlace(u"at point,", world(geometry::vectorOf(*point)));
        }
    }

    // Of curves, as AREA tells it.
    void printSize()
    {
        const std::optional<drawing::Measured> measured = drawing::measured(m_drawing, m_entity);
        if (!measured)
            return;
        const bool isArea = m_type != u"LINE" && m_type != u"ARC";
        printNumber(m_type == u"CIRCLE" ? u"circumference" : u"length", measured->length);
        if (isArea)
            printNumber(u"area", measured->area);
    }

    Session &m_session;
    const drawing::Drawing &m_drawing;
    WorkPlane m_plane;
    RecordId m_entity;
    drawing::GroupList m_groups;
    std::u16string m_type;
};

} // namespace

Command listObjects(Context &context)
{
    const Selection entities = co_await selectObjects(context, Purpose::Look);
    for (const RecordId entity : entities) {
        context.session().pulse();
        Listing(context, entity).print();
    }
}

} // namespace commands
