#include "host/commands/NameUses.h"

#include "host/drawing/Dictionaries.h"
#include "host/drawing/entities/Braces.h"

#include <algorithm>

namespace commands {

using namespace drawing;

namespace {

constexpr int LinetypeCode = 6, StyleCode = 7, DimensionStyleCode = 3, ExtendedLayerCode = 1003;
constexpr int ViewCode = 6, StateLayerCode = 302; // of a page setup; the layer that is current in a layer state
constexpr int ArrowCode = 5, LastArrowCode = 7;   // of a dimension style before R2000; later ones have handles

constexpr std::u16string_view withDimensionStyle[] = {u"ARC_DIMENSION", u"DIMENSION", u"LARGE_RADIAL_DIMENSION",
                                                      u"LEADER", u"TOLERANCE"};
constexpr std::u16string_view shownByBlock[] = {u"ACAD_TABLE", u"ARC_DIMENSION", u"DIMENSION", u"INSERT",
                                                u"LARGE_RADIAL_DIMENSION"};

template <class Types> bool isOneOf(std::u16string_view type, const Types &types)
{
    return std::ranges::find(types, type) != std::end(types);
}

NameId tableCalledByEntity(int code, std::u16string_view type)
{
    switch (code) {
    case groupcode::Layer:
        return known::Layer;
    case LinetypeCode:
        return known::Linetype;
    case StyleCode:
        return known::Style;
    case DimensionStyleCode:
        return isOneOf(type, withDimensionStyle) ? known::DimensionStyle : known::None;
    case groupcode::Name:
        return isOneOf(type, shownByBlock) ? known::Block : known::None;
    default:
        return known::None;
    }
}

NameId tableCalledByTableRecord(int code, NameId table)
{
    if (table == known::DimensionStyle)
        return code >= ArrowCode && code <= LastArrowCode ? known::Block : known::None;
    return table == known::Layer && code == LinetypeCode ? known::Linetype : known::None;
}

constexpr std::u16string_view pageSetups[] = {u"LAYOUT", u"PLOTSETTINGS"};

NameId tableCalledByObject(int code, std::u16string_view type)
{
    if (type == u"MLINESTYLE" && code == LinetypeCode)
        return known::Linetype;
    if (isOneOf(type, pageSetups) && code == ViewCode)
        return known::View;
    if (type == u"LAYER_FILTER" && code == groupcode::Layer)
        return known::Layer;
    return type == u"TABLESTYLE" && code == StyleCode ? known::Style : known::None;
}

NameId tableCalledByLayerState(int code)
{
    if (code == groupcode::Layer || code == StateLayerCode)
        return known::Layer;
    return code == LinetypeCode ? known::Linetype : known::None;
}

// Of an object; NoRecord when it names none. Does not read what the object holds, which may be much.
RecordId ownerOfObject(const Database &database, RecordId object)
{
    Braces braces;
    GroupReader reader = database.reader(object);
    for (Item item; reader.next(item) && item.code != groupcode::Subclass;)
        if (!braces.enclose(item) && item.code == groupcode::Owner)
            return database.find({item.handle});
    return NoRecord;
}

// Layer states are records of a kind that may hold anything; the dictionary that they stand in tells them.
bool isLayerState(const Database &database, RecordId record, std::u16string_view type)
{
    if (type != u"XRECORD")
        return false;
    const RecordId states = ownerOfObject(database, record);
    const RecordId above = states != NoRecord ? ownerOfObject(database, states) : NoRecord;
    return above != NoRecord && findEntry(database, above, u"ACAD_LAYERSTATES") == states;
}

NameId tableCalledBy(const Record &record, std::u16string_view type, int code)
{
    if (code == groupcode::Application)
        return known::Application;
    if (code == ExtendedLayerCode)
        return known::Layer;
    switch (record.kind) {
    case RecordKind::Entity:
        return tableCalledByEntity(code, type);
    case RecordKind::TableRecord:
        return tableCalledByTableRecord(code, record.type);
    case RecordKind::BlockStart:
    case RecordKind::BlockEnd:
        return code == groupcode::Layer ? known::Layer : known::None;
    case RecordKind::Object:
        return tableCalledByObject(code, type);
    default:
        return known::None;
    }
}

} // namespace

// The first group 2 is the block's; those behind it are texts in the cells of tables.
std::vector<NameUse> nameUses(const Database &database, RecordId record, const GroupList &groups)
{
    std::vector<NameUse> uses;
    const std::u16string type = database.type(record);
    const bool isState = isLayerState(database, record, type);
    const bool onlyTells = isState || type == u"LAYER_FILTER";
    bool hasBlock = false;
    for (std::size_t place = 0; place < groups.size(); ++place) {
        const int code = groups[place].code;
        const bool isExtended = code >= groupcode::ExtendedString;
        const NameId table =
            isState && !isExtended ? tableCalledByLayerState(code) : tableCalledBy(database.record(record), type, code);
        const bool isLaterBlock = table == known::Block && code == groupcode::Name && hasBlock;
        if (table == known::None || isLaterBlock || !std::holds_alternative<std::u16string>(groups[place].value))
            continue;
        uses.push_back({place, table, isExtended || !onlyTells});
        hasBlock = hasBlock || table == known::Block;
    }
    return uses;
}

std::vector<std::u16string_view> variablesWithNameOf(NameId table)
{
    switch (table) {
    case known::Layer:
        return {u"CLAYER"};
    case known::Linetype:
        return {u"CELTYPE", u"DIMLTYPE", u"DIMLTEX1", u"DIMLTEX2"};
    case known::Style:
        return {u"TEXTSTYLE", u"DIMTXSTY"};
    case known::DimensionStyle:
        return {u"DIMSTYLE"};
    case known::Block:
        return {u"DIMBLK", u"DIMBLK1", u"DIMBLK2", u"DIMLDRBLK"};
    case known::UserCoordinates:
        return {u"UCSNAME"};
    default:
        return {};
    }
}

std::string inHeader(std::u16string_view variable)
{
    return "$" + std::string(variable.begin(), variable.end());
}

} // namespace commands
