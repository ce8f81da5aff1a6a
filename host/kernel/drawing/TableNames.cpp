#include "host/kernel/drawing/TableNames.h"

#include "host/drawing/TextCodec.h"

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

} // namespace

std::optional<drawing::NameId> tableNamed(std::u16string_view name)
{
    const std::u16string key = drawing::folded(name);
    const auto found =
        std::ranges::find_if(names, [&key](const TableName &one) { return drawing::folded(one.name) == key; });
    return found != std::end(names) ? std::optional(found->table) : std::nullopt;
}

std::vector<drawing::RecordId> tableRecords(const drawing::Drawing &drawing, drawing::NameId table)
{
    std::vector<drawing::RecordId> records = drawing.tables().entries(table);
    if (table == known::Block)
        std::erase_if(records, [&drawing](drawing::RecordId id) {
            const std::u16string name = drawing::folded(drawing.database().name(id));
            return name.starts_with(drawing::folded(u"*Model_Space")) ||
                   name.starts_with(drawing::folded(u"*Paper_Space"));
        });
    return records;
}
