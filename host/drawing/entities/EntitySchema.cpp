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

constexpr SchemaRow text(int code, const char16_t *value)
{
    return {code, Default, 0, value};
}

constexpr SchemaRow origin(int code)
{
    return {code, Default};
}

constexpr SchemaRow eachVertex(int code)
{
    return {code, Default, 0, u"", true};
}

constexpr SchemaRow extrusion = {210, Default, 1}, thickness = optional(39);

constexpr SchemaRow lineRows[] = {thickness, required(10), required(11), extrusion};
constexpr SubclassSchema line[] = {{u"AcDbLine", lineRows}};

constexpr SchemaRow pointRows[] = {required(10), thickness, extrusion, number(50)};
constexpr SubclassSchema point[] = {{u"AcDbPoint", pointRows}};

constexpr SchemaRow circleRows[] = {thickness, required(10), required(40), extrusion};
constexpr SubclassSchema circle[] = {{u"AcDbCircle", circleRows}};

constexpr SchemaRow arcRows[] = {required(50), required(51)};
constexpr SubclassSchema arc[] = {{u"AcDbCircle", circleRows}, {u"AcDbArc", arcRows}};

constexpr SchemaRow ellipseRows[] = {required(10), required(11),  extrusion,
                                     required(40), number(41, 0), number(42, 6.283185307179586)};
constexpr SubclassSchema ellipse[] = {{u"AcDbEllipse", ellipseRows}};

constexpr SchemaRow lwpolylineRows[] = {required(90),   number(70),     optional(43),   number(38),
                                        number(39),     required(10),   eachVertex(40), eachVertex(41),
                                        eachVertex(42), eachVertex(91), extrusion};
constexpr SubclassSchema lwpolyline[] = {{u"AcDbPolyline", lwpolylineRows}};

constexpr SchemaRow polylineRows[] = {number(66, 1), origin(10), thickness,  number(70), number(40), number(41),
                                      extrusion,     number(71), number(72), number(73), number(74), number(75)};
constexpr SubclassSchema polyline[] = {{u"AcDb2dPolyline", polylineRows}};
constexpr SubclassSchema polyline3d[] = {{u"AcDb3dPolyline", polylineRows}};
constexpr SubclassSchema mesh[] = {{u"AcDbPolygonMesh", polylineRows}};
constexpr SubclassSchema polyface[] = {{u"AcDbPolyFaceMesh", polylineRows}};

constexpr SchemaRow vertexRows[] = {required(10), number(40), number(41), number(42), number(70),
                                    number(50),   number(71), number(72), number(73), number(74)};
constexpr SubclassSchema vertex[] = {{u"AcDbVertex", {}}, {u"AcDb2dVertex", vertexRows}};
constexpr SubclassSchema vertex3d[] = {{u"AcDbVertex", {}}, {u"AcDb3dPolylineVertex", vertexRows}};
constexpr SubclassSchema meshVertex[] = {{u"AcDbVertex", {}}, {u"AcDbPolygonMeshVertex", vertexRows}};
constexpr SubclassSchema polyfaceVertex[] = {{u"AcDbVertex", {}}, {u"AcDbPolyFaceMeshVertex", vertexRows}};
constexpr SubclassSchema faceRecord[] = {{u"AcDbFaceRecord", vertexRows}};

constexpr SchemaRow insertRows[] = {optional(66),  required(2),   required(10), number(41, 1),
                                    number(42, 1), number(43, 1), number(50),   number(70),
                                    number(71),    number(44),    number(45),   extrusion};
constexpr SubclassSchema insert[] = {{u"AcDbBlockReference", insertRows}};

constexpr SchemaRow textRows[] = {thickness,  required(10),  required(40), required(1),
                                  number(50), number(41, 1), number(51),   text(7, u"Standard"),
                                  number(71), number(72),    origin(11),   extrusion};
constexpr SchemaRow textEndRows[] = {number(73)};
constexpr SubclassSchema textEntity[] = {{u"AcDbText", textRows}, {u"AcDbText", textEndRows}};

constexpr SchemaRow attributeRows[] = {optional(280), required(2), number(70), number(73), number(74), optional(101)};
constexpr SubclassSchema attribute[] = {{u"AcDbText", textRows}, {u"AcDbAttribute", attributeRows}};

constexpr SchemaRow definitionRows[] = {optional(280), required(3), required(2),  number(70),
                                        number(73),    number(74),  optional(101)};
constexpr SubclassSchema attributeDefinition[] = {{u"AcDbText", textRows},
                                                  {u"AcDbAttributeDefinition", definitionRows}};

constexpr SchemaRow mtextRows[] = {required(10),         required(40),  number(41),    optional(46),
                                   number(71, 1),        number(72, 5), optional(3),   required(1),
                                   text(7, u"Standard"), extrusion,     optional(11),  optional(42),
                                   optional(43),         number(50),    number(73, 1), number(44, 1)};
constexpr SubclassSchema mtext[] = {{u"AcDbMText", mtextRows}};

constexpr SchemaRow solidRows[] = {required(10), required(11), required(12), required(13), number(39), extrusion};
constexpr SubclassSchema solid[] = {{u"AcDbTrace", solidRows}};

constexpr SchemaRow faceRows[] = {required(10), required(11), required(12), required(13), number(70)};
constexpr SubclassSchema face[] = {{u"AcDbFace", faceRows}};

constexpr SchemaRow rayRows[] = {required(10), required(11)};
constexpr SubclassSchema ray[] = {{u"AcDbRay", rayRows}};
constexpr SubclassSchema xline[] = {{u"AcDbXline", rayRows}};

// Bits of group 70 that tell what a polyline, or a vertex, is.
namespace polylineflag {
constexpr std::int64_t ThreeDimensional = 8, Mesh = 16, Polyface = 64;
}
namespace vertexflag {
constexpr std::int64_t ThreeDimensional = 32, Mesh = 64, Polyface = 128;
}

// By type; of several kinds of one type the first that has all its flags set is an entity's.
constexpr EntitySchema schemas[] = {
    {u"3DFACE", face},
    {u"ARC", arc},
    {u"ATTDEF", attributeDefinition},
    {u"ATTRIB", attribute},
    {u"CIRCLE", circle},
    {u"ELLIPSE", ellipse, Markers::Needed},
    {u"INSERT", insert},
    {u"LINE", line},
    {u"LWPOLYLINE", lwpolyline, Markers::Needed},
    {u"MTEXT", mtext, Markers::Needed},
    {u"POINT", point},
    {u"POLYLINE", polyface, Markers::Added, polylineflag::Polyface},
    {u"POLYLINE", mesh, Markers::Added, polylineflag::Mesh},
    {u"POLYLINE", polyline3d, Markers::Added, polylineflag::ThreeDimensional},
    {u"POLYLINE", polyline},
    {u"RAY", ray, Markers::Needed},
    {u"SOLID", solid},
    {u"TEXT", textEntity},
    {u"TRACE", solid},
    {u"VERTEX", polyfaceVertex, Markers::Added, vertexflag::Polyface | vertexflag::Mesh},
    {u"VERTEX", faceRecord, Markers::Added, vertexflag::Polyface},
    {u"VERTEX", meshVertex, Markers::Added, vertexflag::Mesh},
    {u"VERTEX", vertex3d, Markers::Added, vertexflag::ThreeDimensional},
    {u"VERTEX", vertex},
    {u"XLINE", xline, Markers::Needed},
};

constexpr int commonCodes[] = {6, 8, 48, 60, 62, 67, 92, 160, 284, 310, 347, 348, 370, 390, 410, 420, 430, 440};

} // namespace

bool SubclassSchema::has(int code) const
{
    return std::ranges::any_of(rows, [code](const SchemaRow &row) { return row.code == code; });
}

const EntitySchema *schemaOf(std::u16string_view type, std::int64_t flags)
{
    const auto found = std::ranges::find_if(schemas, [type, flags](const EntitySchema &schema) {
        return schema.type == type && (schema.flags & flags) == schema.flags;
    });
    return found != std::end(schemas) ? &*found : nullptr;
}

bool isCommonCode(int code)
{
    return std::ranges::binary_search(commonCodes, code);
}

GroupValue defaultValue(const SchemaRow &row)
{
    if (mayBeginPoint(row.code))
        return Point{0, 0, row.number};
    switch (valueKind(row.code)) {
    case ValueKind::Text:
        return row.text;
    case ValueKind::Real:
        return row.number;
    default:
        return static_cast<std::int64_t>(row.number);
    }
}

} // namespace drawing
