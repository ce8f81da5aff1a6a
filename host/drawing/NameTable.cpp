#include "host/drawing/NameTable.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace drawing {

namespace {

constexpr std::string_view knownNames[] = {
    "",           "SECTION",  "ENDSEC",   "EOF",          "HEADER",        "CLASSES",
    "TABLES",     "BLOCKS",   "ENTITIES", "OBJECTS",      "TABLE",         "ENDTAB",
    "BLOCK",      "ENDBLK",   "POLYLINE", "INSERT",       "VERTEX",        "ATTRIB",
    "SEQEND",     "DIMSTYLE", "LAYER",    "LTYPE",        "STYLE",         "VIEW",
    "UCS",        "VPORT",    "APPID",    "BLOCK_RECORD", "DICTIONARY",    "LINE",
    "3DLINE",     "RAY",      "XLINE",    "POINT",        "CIRCLE",        "ARC",
    "ELLIPSE",    "SPLINE",   "HELIX",    "LWPOLYLINE",   "SOLID",         "TRACE",
    "3DFACE",     "HATCH",    "MPOLYGON", "DIMENSION",    "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION",
    "ACAD_TABLE", "LEADER",   "MLINE",    "TEXT",         "ATTDEF",        "MTEXT",
    "IMAGE",      "WIPEOUT",  "VIEWPORT",
};
static_assert(std::size(knownNames) == known::Count);

constexpr std::size_t FirstSlots = 256;

} // namespace

NameTable::NameTable() : m_slots(FirstSlots)
{
    m_names.emplace_back();
    std::for_each(std::begin(knownNames) + 1, std::end(knownNames), [this](std::string_view name) { idOf(name); });
}

std::size_t NameTable::slotOf(std::string_view name) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = std::hash<std::string_view>()(name) & mask;
    while (m_slots[slot] != known::None && m_names[m_slots[slot]] != name)
        slot = (slot + 1) & mask;
    return slot;
}

NameId NameTable::find(std::string_view name) const
{
    return name.empty() ? NameId{known::None} : m_slots[slotOf(name)];
}

NameId NameTable::idOf(std::string_view name)
{
    if (m_names[m_latest] == name) // neighbours in a file are often of one type and on one layer
        return m_latest;
    if (name.empty())
        return known::None;
    const std::size_t slot = slotOf(name);
    NameId &id = m_slots[slot];
    if (id == known::None) {
        id = static_cast<NameId>(m_names.size());
        m_names.emplace_back(name);
        m_latest = id;
        if (m_names.size() * 2 > m_slots.size())
            grow();
        return m_latest;
    }
    m_latest = id;
    return id;
}

void NameTable::grow()
{
    m_slots.assign(m_slots.size() * 2, known::None);
    for (NameId id = 1; id < m_names.size(); ++id)
        m_slots[slotOf(m_names[id])] = id;
}

} // namespace drawing
