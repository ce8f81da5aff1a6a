#include "host/kernel/drawing/TableRecords.h"

#include "host/drawing/TextCodec.h"
#include "host/drawing/entities/Braces.h"
#include "host/drawing/entities/EntityListing.h"
#include "host/drawing/entities/EntityPlace.h"

#include <algorithm>
#include <iterator>

namespace known = drawing::known;

namespace {

struct TableName
{
    std::u16string_view name;
    drawing::NameId table;
};

constexpr TableName names[] = {
    {u"LAYER", known::Layer},
    {u"LTYPE", known::Linetype},
    {u"STYLE", known::Style},
    {u"BLOCK", known::Block},
    {u"DIMSTYLE", known::DimensionStyle},
    {u"VIEW", known::View},
    {u"UCS", known::UserCoordinates},
    {u"VPORT", known::Viewport},
    {u"APPID", known::Application},
    {u"BLOCK_RECORD", known::BlockRecord},
};

// Of a block: its layer and its second name are not, nor is the path that only references to other drawings have.
bool isShownOfBlock(const drawing::Group &group)
{
    using namespace drawing::groupcode;
    return group.code != Layer && group.code != EntryName &&
           (group.code != PrimaryText || group.value != drawing::GroupValue(u""));
}

bool isShown(int code)
{
    using namespace drawing::groupcode;
    constexpr int Plottable = 290, Visual = 347, Material = 348, Lineweight = 370, PlotStyle = 390;
    constexpr int hidden[] = {Handle,    DimStyleHandle, Owner,    Subclass,   Braces,   HardEntry,
                              Plottable, Visual,         Material, Lineweight, PlotStyle};
    return std::ranges::find(hidden, code) == std::end(hidden);
}

} // namespace

std::optional<drawing::NameId> tableNamed(std::u16string_view name)
{
    const std::u16string key = drawing::folded(name);
    const auto found =
        std::ranges::find_if(names, [&key](const TableName &one) { return drawing::folded(one.name) == key; });
    return found != std::end(names) ? std::optional(found->table) : std::nullopt;
}

drawing::RecordId nextTableRecord(const drawing::Drawing &drawing, drawing::NameId table, std::size_t &place)
{
    const std::vector<drawing::RecordId> &named = drawing.database().namedRecords();
    while (place < named.size()) {
        const drawing::RecordId record = named[place++];
        const auto isSpace = [&] {
            return table == known::Block && drawing::isSpaceBlock(drawing.database(), drawing.database().name(record));
        };
        if (drawing.tables().isEntry(record, table) && !isSpace())
            return record;
    }
    return drawing::NoRecord;
}

drawing::GroupList tableRecordGroups(const drawing::Drawing &drawing, drawing::RecordId record)
{
    drawing::GroupList groups;
    const drawing::EntityListing items(drawing, record);
    const bool isBlock = drawing.database().record(record).kind == drawing::RecordKind::BlockStart;
    drawing::Braces braces;
    for (const drawing::ListedItem listed : items) {
        const bool isInBraces = braces.enclose(listed.item);
        if (isInBraces || listed.origin == drawing::ListedItem::Derived || !isShown(listed.item.code))
            continue;
        drawing::Group group = items.group(listed);
        if (!isBlock || isShownOfBlock(group))
            groups.push_back(std::move(group));
    }
    return groups;
}
