#include "host/drawing/entities/RecordTypes.h"

#include <algorithm>

namespace drawing {

namespace {

// The sections ENTITIES and OBJECTS of the reference.
constexpr std::u16string_view entityTypes[] = {
    u"3DFACE",        u"3DSOLID",       u"ACAD_TABLE",   u"ARC",           u"ARCALIGNEDTEXT",
    u"ARC_DIMENSION", u"ATTDEF",        u"ATTRIB",       u"BODY",          u"CIRCLE",
    u"DGNUNDERLAY",   u"DIMENSION",     u"DWFUNDERLAY",  u"ELLIPSE",       u"EXTRUDEDSURFACE",
    u"HATCH",         u"HELIX",         u"IMAGE",        u"INSERT",        u"LARGE_RADIAL_DIMENSION",
    u"LEADER",        u"LIGHT",         u"LINE",         u"LOFTEDSURFACE", u"LWPOLYLINE",
    u"MESH",          u"MLINE",         u"MPOLYGON",     u"MTEXT",         u"MULTILEADER",
    u"NURBSURFACE",   u"OLE2FRAME",     u"OLEFRAME",     u"PDFUNDERLAY",   u"PLANESURFACE",
    u"POINT",         u"POLYLINE",      u"RAY",          u"REGION",        u"REVOLVEDSURFACE",
    u"RTEXT",         u"SECTIONOBJECT", u"SEQEND",       u"SHAPE",         u"SOLID",
    u"SPLINE",        u"SURFACE",       u"SWEPTSURFACE", u"TEXT",          u"TOLERANCE",
    u"TRACE",         u"VERTEX",        u"VIEWPORT",     u"WIPEOUT",       u"XLINE",
};
static_assert(std::ranges::is_sorted(entityTypes));

// What drawings before R13 have of these.
constexpr std::u16string_view oldEntityTypes[] = {u"3DFACE", u"ARC",  u"ATTDEF", u"ATTRIB",   u"CIRCLE",  u"DIMENSION",
                                                  u"INSERT", u"LINE", u"POINT",  u"POLYLINE", u"SEQEND",  u"SHAPE",
                                                  u"SOLID",  u"TEXT", u"TRACE",  u"VERTEX",   u"VIEWPORT"};
static_assert(std::ranges::is_sorted(oldEntityTypes));

constexpr std::u16string_view objectTypes[] = {
    u"ACDBDICTIONARYWDFLT",
    u"ACDBPLACEHOLDER",
    u"DATATABLE",
    u"DGNDEFINITION",
    u"DICTIONARY",
    u"DICTIONARYVAR",
    u"DIMASSOC",
    u"DWFDEFINITION",
    u"FIELD",
    u"FIELDLIST",
    u"GEODATA",
    u"GROUP",
    u"IDBUFFER",
    u"IMAGEDEF",
    u"IMAGEDEF_REACTOR",
    u"LAYER_FILTER",
    u"LAYER_INDEX",
    u"LAYOUT",
    u"LIGHTLIST",
    u"MATERIAL",
    u"MLEADERSTYLE",
    u"MLINESTYLE",
    u"OBJECT_PTR",
    u"PDFDEFINITION",
    u"PLOTSETTINGS",
    u"RASTERVARIABLES",
    u"RENDERENVIRONMENT",
    u"RENDERGLOBAL",
    u"SCALE",
    u"SORTENTSTABLE",
    u"SPATIAL_FILTER",
    u"SPATIAL_INDEX",
    u"SUN",
    u"SUNSTUDY",
    u"TABLESTYLE",
    u"VBA_PROJECT",
    u"VISUALSTYLE",
    u"WIPEOUTVARIABLES",
    u"XRECORD",
};
static_assert(std::ranges::is_sorted(objectTypes));

constexpr NameId tableRecordTypes[] = {known::Application,     known::DimensionStyle, known::Layer,
                                       known::Linetype,        known::Style,          known::View,
                                       known::UserCoordinates, known::Viewport};

bool isDeclared(const Database &database, std::u16string_view type, bool asEntity)
{
    constexpr int IsEntityCode = 281;
    const RecordId section = database.section(known::Classes);
    if (section == NoRecord)
        return false;
    for (RecordId id = database.firstIn(section); id != NoRecord; id = database.nextIn(id)) {
        const GroupList groups = database.groups(id);
        const auto *name = findValue<std::u16string>(groups, groupcode::PrimaryText);
        const auto *isEntity = findValue<std::int64_t>(groups, IsEntityCode);
        if (!database.record(id).isGone() && name && *name == type && isEntity && (*isEntity != 0) == asEntity)
            return true;
    }
    return false;
}

} // namespace

bool isEntityType(const Database &database, std::u16string_view type)
{
    return std::ranges::binary_search(entityTypes, type) || isDeclared(database, type, true);
}

bool canHoldEntities(const Database &database, std::u16string_view type)
{
    return !database.isBefore2000() || std::ranges::binary_search(oldEntityTypes, type);
}

bool canHoldObjects(const Database &database)
{
    return !database.isBefore2000();
}

bool isObjectType(const Database &database, std::u16string_view type)
{
    return std::ranges::binary_search(objectTypes, type) ||
           (!std::ranges::binary_search(entityTypes, type) && isDeclared(database, type, false));
}

bool isTableRecordType(NameId type)
{
    return std::ranges::find(tableRecordTypes, type) != std::end(tableRecordTypes);
}

} // namespace drawing
