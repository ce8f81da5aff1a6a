// The symbol tables of the drawing: layers, linetypes, text styles, blocks and so on.

#include "host/interpreter/text/WildcardPattern.h"
#include "host/kernel/Document.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/drawing/EntityData.h"
#include "host/kernel/drawing/EntityName.h"
#include "host/kernel/drawing/TableRecords.h"

#include <algorithm>

using drawing::Drawing;
using drawing::NoRecord;
using drawing::RecordId;
using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

drawing::NameId tableArgument(Args arguments)
{
    const std::optional<drawing::NameId> table = tableNamed(arguments.text(0));
    if (!table)
        lisp::fail(u"bad argument value: table name \"" + std::u16string(arguments.text(0)) + u'"');
    return *table;
}

std::size_t &placeIn(Machine &machine, drawing::NameId table)
{
    return Document::of(machine).openDrawing().tablePlaces[table];
}

// With a third argument that is not nil the next tblnext goes on behind the record.
Value tblsearch(Machine &machine, Args arguments)
{
    const Drawing &drawing = Document::of(machine).drawing();
    const drawing::NameId table = tableArgument(arguments);
    const RecordId record = drawing.tables().find(table, arguments.text(1));
    if (record == NoRecord)
        return Value::nil();
    if (arguments[2].isTrue()) {
        const std::vector<RecordId> &records = drawing.database().namedRecords();
        const auto found = std::ranges::find(records, record);
        placeIn(machine, table) = static_cast<std::size_t>(found - records.begin()) + 1;
    }
    return tableRecordList(machine, drawing, record);
}

Value tblnext(Machine &machine, Args arguments)
{
    const Drawing &drawing = Document::of(machine).drawing();
    const drawing::NameId table = tableArgument(arguments);
    std::size_t &place = placeIn(machine, table);
    if (arguments[1].isTrue())
        place = 0;
    const RecordId record = nextTableRecord(drawing, table, place);
    return record != NoRecord ? tableRecordList(machine, drawing, record) : Value::nil();
}

Value tblobjname(Machine &machine, Args arguments)
{
    const Drawing &drawing = Document::of(machine).drawing();
    const RecordId record = drawing.tables().find(tableArgument(arguments), arguments.text(1));
    return record != NoRecord ? entityName(machine, drawing, record) : Value::nil();
}

constexpr lisp::BuiltinRow rows[] = {
    {"tblsearch", "(tblsearch TABLE NAME [SETNEXT])", "Gives the record with this name of a table, or nil.", tblsearch},
    {"tblnext", "(tblnext TABLE [REWIND])", "Gives the next record of a table, or the first; nil behind the last.",
     tblnext},
    {"tblobjname", "(tblobjname TABLE NAME)", "Gives the entity name of a table's record, or nil.", tblobjname},
};

} // namespace

std::span<const lisp::BuiltinRow> tableBuiltins()
{
    return rows;
}
