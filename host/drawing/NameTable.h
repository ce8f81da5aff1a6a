#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

// A number for each different name: types, layers, table records, as their bytes stand in the file. Names that differ
// in case have different numbers.
using NameId = std::uint32_t;

// Names that the database itself knows; every NameTable has them under these numbers.
namespace known {
enum : NameId {
    None,
    Section,
    EndSection,
    EndOfFile,
    Header,
    Classes,
    Tables,
    Blocks,
    Entities,
    Objects,
    Table,
    EndTable,
    Block,
    EndBlock,
    Polyline,
    Insert,
    Vertex,
    Attribute,
    SequenceEnd,
    DimensionStyle,
    Layer,
    Linetype,
    Style,
    View,
    UserCoordinates,
    Viewport,
    Application,
    BlockRecord,
    Dictionary,
    Line,
    SpatialLine,
    Ray,
    EndlessLine,
    Point,
    Circle,
    Arc,
    Ellipse,
    Spline,
    Helix,
    LightPolyline,
    Solid,
    Trace,
    Face,
    Hatch,
    HatchPolygon,
    Dimension,
    ArcDimension,
    JoggedDimension,
    TableGrid,
    Leader,
    Multiline,
    Text,
    AttributeDefinition,
    Paragraphs,
    Image,
    Wipeout,
    ViewportEntity,
    Count
};
} // namespace known

class NameTable
{
public:
    NameTable();

    NameId idOf(std::string_view name);       // adds it when it is new
    NameId find(std::string_view name) const; // known::None when it is not there, and for the empty name
    std::string_view text(NameId id) const { return m_names[id]; }
    std::size_t count() const { return m_names.size(); }

private:
    std::size_t slotOf(std::string_view name) const;
    void grow();

    std::deque<std::string> m_names;
    std::vector<NameId> m_slots; // a power of two; 0: free
    NameId m_latest = known::None;
};

} // namespace drawing
