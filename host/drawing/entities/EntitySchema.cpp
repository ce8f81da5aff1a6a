#include "host/drawing/entities/EntitySchema.h"

#include <algorithm>

namespace drawing {

namespace {

using enum SchemaRow::Presence;

constexpr SchemaRow required(int code)
{
    return {code, Required};
}

constexpr SchemaRow optional(int code)
{
    return {code};
}

constexpr SchemaRow number(int code, double value = 0)
{
    return {code, Default, value};
}

constexpr SchemaRow text(int code, const char *value)
{
    return {code, Default, 0, value};
}

constexpr SchemaRow current(int code, const char *variable, double value)
{
    return {code, Current, value, variable};
}

constexpr SchemaRow origin(int code)
{
    return {code, Default};
}

constexpr SchemaRow eachVertex(int code)
{
    return {code, Default, 0, "", true};
}

constexpr SchemaRow extrusion = {210, Default, 1}, thickness = optional(39);

constexpr SchemaRow lineRows[] = {thickness, required(10), required(11), extrusion};
constexpr SubclassSchema line[] = {{"AcDbLine", lineRows}};

constexpr SchemaRow pointRows[] = {required(10), thickness, extrusion, number(50)};
constexpr SubclassSchema point[] = {{"AcDbPoint", pointRows}};

constexpr SchemaRow circleRows[] = {thickness, required(10), required(40), extrusion};
constexpr SubclassSchema circle[] = {{"AcDbCircle", circleRows}};

constexpr SchemaRow arcRows[] = {required(50), required(51)};
constexpr SubclassSchema arc[] = {{"AcDbCircle", circleRows}, {"AcDbArc", arcRows}};

constexpr SchemaRow ellipseRows[] = {required(10), required(11),  extrusion,
                                     required(40), number(41, 0), number(42, 6.283185307179586)};
constexpr SubclassSchema ellipse[] = {{"AcDbEllipse", ellipseRows}};

constexpr SchemaRow lwpolylineRows[] = {required(90),   number(70),     optional(43),   number(38),
                                        number(39),     required(10),   eachVertex(40), eachVertex(41),
                                        eachVertex(42), eachVertex(91), extrusion};
constexpr SubclassSchema lwpolyline[] = {{"AcDbPolyline", lwpolylineRows}};

constexpr SchemaRow polylineRows[] = {number(66, 1), origin(10), thickness,  number(70), number(40), number(41),
                                      extrusion,     number(71), number(72), number(73), number(74), number(75)};
constexpr SubclassSchema polyline[] = {{"AcDb2dPolyline", polylineRows}};
constexpr SubclassSchema polyline3d[] = {{"AcDb3dPolyline", polylineRows}};
constexpr SubclassSchema mesh[] = {{"AcDbPolygonMesh", polylineRows}};
constexpr SubclassSchema polyface[] = {{"AcDbPolyFaceMesh", polylineRows}};

constexpr SchemaRow vertexRows[] = {required(10), number(40), number(41), number(42), number(70),
                                    number(50),   number(71), number(72), number(73), number(74)};
constexpr SubclassSchema vertex[] = {{"AcDbVertex", {}}, {"AcDb2dVertex", vertexRows}};
constexpr SubclassSchema vertex3d[] = {{"AcDbVertex", {}}, {"AcDb3dPolylineVertex", vertexRows}};
constexpr SubclassSchema meshVertex[] = {{"AcDbVertex", {}}, {"AcDbPolygonMeshVertex", vertexRows}};
constexpr SubclassSchema polyfaceVertex[] = {{"AcDbVertex", {}}, {"AcDbPolyFaceMeshVertex", vertexRows}};
constexpr SubclassSchema faceRecord[] = {{"AcDbFaceRecord", vertexRows}};

constexpr SchemaRow insertRows[] = {optional(66),  required(2),   required(10), number(41, 1),
                                    number(42, 1), number(43, 1), number(50),   number(70),
                                    number(71),    number(44),    number(45),   extrusion};
constexpr SubclassSchema insert[] = {{"AcDbBlockReference", insertRows}};

constexpr SchemaRow textRows[] = {thickness,  required(10),        required(40), required(1), number(50), number(41, 1),
                                  number(51), text(7, "Standard"), number(71),   number(72),  origin(11), extrusion};
constexpr SchemaRow textEndRows[] = {number(73)};
constexpr SubclassSchema textEntity[] = {{"AcDbText", textRows}, {"AcDbText", textEndRows}};

constexpr SchemaRow attributeRows[] = {optional(280), required(2), number(70), number(73), number(74), optional(101)};
constexpr SubclassSchema attribute[] = {{"AcDbText", textRows}, {"AcDbAttribute", attributeRows}};

constexpr SchemaRow definitionRows[] = {optional(280), required(3), required(2),  number(70),
                                        number(73),    number(74),  optional(101)};
constexpr SubclassSchema attributeDefinition[] = {{"AcDbText", textRows}, {"AcDbAttributeDefinition", definitionRows}};

constexpr SchemaRow mtextRows[] = {required(10),        current(40, "$TEXTSIZE", 2.5),
                                   number(41),          optional(46),
                                   number(71, 1),       number(72, 5),
                                   optional(3),         required(1),
                                   text(7, "Standard"), extrusion,
                                   optional(11),        optional(42),
                                   optional(43),        number(50),
                                   number(73, 1),       number(44, 1)};
constexpr SubclassSchema mtext[] = {{"AcDbMText", mtextRows}};

constexpr SchemaRow solidRows[] = {required(10), required(11), required(12), required(13), number(39), extrusion};
constexpr SubclassSchema solid[] = {{"AcDbTrace", solidRows}};

constexpr SchemaRow faceRows[] = {required(10), required(11), required(12), required(13), number(70)};
constexpr SubclassSchema face[] = {{"AcDbFace", faceRows}};

constexpr SchemaRow rayRows[] = {required(10), required(11)};
constexpr SubclassSchema ray[] = {{"AcDbRay", rayRows}};
constexpr SubclassSchema xline[] = {{"AcDbXline", rayRows}};

// Bits of group 70 that tell what a polyline, or a vertex, is.
namespace polylineflag {
constexpr std::int64_t ThreeDimensional = 8, Mesh = 16, Polyface = 64;
}
namespace vertexflag {
constexpr std::int64_t ThreeDimensional = 32, Mesh = 64, Polyface = 128;
}

// By type; of several kinds of one type the first that has all its flags set is an entity's.
constexpr EntitySchema schemas[] = {
    {"3DFACE", face},
    {"ARC", arc},
    {"ATTDEF", attributeDefinition},
    {"ATTRIB", attribute},
    {"CIRCLE", circle},
    {"ELLIPSE", ellipse, Markers::Needed},
    {"INSERT", insert},
    {"LINE", line},
    {"LWPOLYLINE", lwpolyline, Markers::Needed},
    {"MTEXT", mtext, Markers::Needed},
    {"POINT", point},
    {"POLYLINE", polyface, Markers::Added, polylineflag::Polyface},
    {"POLYLINE", mesh, Markers::Added, polylineflag::Mesh},
    {"POLYLINE", polyline3d, Markers::Added, polylineflag::ThreeDimensional},
    {"POLYLINE", polyline},
    {"RAY", ray, Markers::Needed},
    {"SOLID", solid},
    {"TEXT", textEntity},
    {"TRACE", solid},
    {"VERTEX", polyfaceVertex, Markers::Added, vertexflag::Polyface | vertexflag::Mesh},
    {"VERTEX", faceRecord, Markers::Added, vertexflag::Polyface},
    {"VERTEX", meshVertex, Markers::Added, vertexflag::Mesh},
    {"VERTEX", vertex3d, Markers::Added, vertexflag::ThreeDimensional},
    {"VERTEX", vertex},
    {"XLINE", xline, Markers::Needed},
};

constexpr int commonCodes[] = {6, 8, 48, 60, 62, 67, 92, 160, 284, 310, 347, 348, 370, 390, 410, 420, 430, 440};

} // namespace

bool SubclassSchema::has(int code) const
{
    return std::ranges::any_of(rows, [code](const SchemaRow &row) { return row.code == code; });
}

const SchemaRow *EntitySchema::rowWithDefault(int code) const
{
    for (const SubclassSchema &subclass : subclasses)
        for (const SchemaRow &row : subclass.rows)
            if (row.code == code && row.presence == Default)
                return &row;
    return nullptr;
}

// Most types differ in length already: there is no quicker way than to look at one after the other.
const EntitySchema *schemaOf(std::string_view type, std::int64_t flags)
{
    const auto *schema = std::ranges::find_if(
        schemas, [&](const EntitySchema &each) { return each.type == type && (each.flags & flags) == each.flags; });
    return schema != std::end(schemas) ? schema : nullptr;
}

bool isCommonCode(int code)
{
    return std::ranges::binary_search(commonCodes, code);
}

} // namespace drawing
