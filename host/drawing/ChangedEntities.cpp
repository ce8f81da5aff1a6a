#include "host/drawing/ChangedEntities.h"

#include "host/drawing/Blocks.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace drawing {

namespace {

constexpr std::string_view SheetPrefix = "*PAPER_SPACE";
constexpr std::array<std::string_view, 3> SeenVariables = {"$LTSCALE", "$PDMODE", "$PDSIZE"};

// Types of table records and objects that nothing is seen of, and those that move nothing.
constexpr std::array<std::string_view, 9> UnseenTypes = {"APPID", "DICTIONARYVAR", "GROUP", "LAYOUT", "PLOTSETTINGS",
                                                         "UCS",   "VIEW",          "VPORT", "XRECORD"};
constexpr std::array<std::string_view, 5> ShapelessTypes = {"ACDBDICTIONARYWDFLT", "DICTIONARY", "LAYER", "LTYPE",
                                                            "SORTENTSTABLE"};

template <std::size_t Count> bool isAmong(const std::array<std::string_view, Count> &names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The sheets of layouts, which nothing refers to as a block.
bool isOfSheet(const Database &database, const Record &record)
{
    const bool isHolder = record.kind == RecordKind::BlockStart || record.kind == RecordKind::TableRecord;
    const std::string_view name = isHolder ? database.names().text(record.name) : std::string_view();
    return name.size() >= SheetPrefix.size() &&
           std::equal(SheetPrefix.begin(), SheetPrefix.end(), name.begin(), [](char expected, char letter) {
               return expected == static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
           });
}

bool isOnOtherSheet(const Database &database, const Record &record)
{
    return record.container != NoRecord && isOfSheet(database, database.record(record.container));
}

// Variables that are not seen, and marks, which change when their neighbours do.
bool isUnseen(const Database &database, const Record &record, Aspect aspect)
{
    if (record.kind == RecordKind::HeaderVariable)
        return !isAmong(SeenVariables, database.names().text(record.name));
    if (record.isEnd() || record.kind == RecordKind::SectionStart || isOfSheet(database, record))
        return true;
    if (record.kind != RecordKind::TableRecord && record.kind != RecordKind::Object)
        return false;
    const std::string_view type = database.names().text(record.type);
    return isAmong(UnseenTypes, type) || (aspect == Aspect::Shape && isAmong(ShapelessTypes, type));
}

} // namespace

std::optional<std::vector<RecordId>> changedEntities(const Drawing &drawing, std::span<const RecordId> records,
                                                     Aspect aspect)
{
    const Database &database = drawing.database();
    const RecordId model = drawing.tables().find(known::Block, ModelSpace);
    const RecordId section = database.section(known::Entities);
    std::vector<RecordId> entities;
    for (const RecordId changed : records) {
        const RecordId id = database.isPart(changed) ? database.record(changed).container : changed;
        const Record &record = database.record(id);
        const bool isPlaced = record.container == section || record.container == model;
        if (record.kind == RecordKind::Entity && (isPlaced || isOnOtherSheet(database, record)))
            entities.push_back(id);
        else if (!isUnseen(database, record, aspect))
            return std::nullopt;
    }
    std::sort(entities.begin(), entities.end());
    entities.erase(std::unique(entities.begin(), entities.end()), entities.end());
    return entities;
}

} // namespace drawing
