// Entities of the drawing: reading, changing, making, and walking over them.

#include "host/drawing/Blocks.h"
#include "host/drawing/entities/EntityChange.h"
#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/entities/EntityValues.h"
#include "host/drawing/entities/ExtendedData.h"
#include "host/interpreter/text/WildcardPattern.h"
#include "host/kernel/Document.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/drawing/EntityData.h"
#include "host/kernel/drawing/EntityName.h"
#include "host/kernel/drawing/ListedChanges.h"
#include "host/kernel/drawing/RecordModification.h"

using drawing::Database;
using drawing::Drawing;
using drawing::NoRecord;
using drawing::RecordId;
using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

Drawing &drawingOf(Machine &machine)
{
    return Document::of(machine).drawing();
}

// The record that an argument names; NoRecord for a name of another drawing.
RecordId recordArgument(const Drawing &drawing, Args arguments, std::uint32_t index)
{
    return recordOf(drawing, arguments.native<EntityName>(index, u"lentityp")->name);
}

Value nameOrNil(Machine &machine, RecordId record)
{
    return record != NoRecord ? entityName(machine, drawingOf(machine), record) : Value::nil();
}

// Yes for the names, or wildcard patterns, of a list like ("APP" "OTHER*").
ApplicationFilter filterOf(Value names)
{
    std::vector<lisp::WildcardPattern> patterns;
    for (const Value name : lisp::ListItems(names)) {
        if (!name.isString())
            lisp::badArgument(u"stringp", name);
        patterns.emplace_back(drawing::folded(name.asString()->view()));
    }
    return [patterns](std::u16string_view application) {
        const std::u16string name = drawing::folded(application);
        return std::any_of(patterns.begin(), patterns.end(),
                           [&](const auto &pattern) { return pattern.matches(name); });
    };
}

Value entget(Machine &machine, Args arguments)
{
    const Drawing &drawing = drawingOf(machine);
    const RecordId record = recordArgument(drawing, arguments, 0);
    if (record == NoRecord || drawing.database().record(record).isGone())
        return Value::nil();
    return entityList(machine, drawing, record, arguments[0],
                      arguments[1].isTrue() ? filterOf(arguments.list(1)) : ApplicationFilter());
}

// The record that a list begins with, if it is one that has neither a name to follow nor rules to look up.
RecordId simpleRecord(const Drawing &drawing, Value list)
{
    const Value first = list.isCons() ? list.asCons()->car : Value::nil();
    if (!first.isCons() || !first.asCons()->car.isInteger() || first.asCons()->car.asInteger() != NameCode)
        return NoRecord;
    const auto *entity = lisp::asNative<EntityName>(first.asCons()->cdr);
    const RecordId record = entity ? recordOf(drawing, entity->name) : NoRecord;
    if (record == NoRecord || drawing.database().record(record).isGone())
        return NoRecord;
    const drawing::RecordKind kind = drawing.database().record(record).kind;
    return kind == drawing::RecordKind::Entity || kind == drawing::RecordKind::Object ? record : NoRecord;
}

// Lists that programs have from entget, with other values here and there, are nearly all there are, and are read much
// faster than others. False for any list that needs a closer look; then nothing is changed.
bool changeFewValues(Drawing &drawing, Value list)
{
    const RecordId record = simpleRecord(drawing, list);
    if (record == NoRecord)
        return false;
    const drawing::EntityListing listing(drawing, record);
    const auto changes = changedValues(drawing, listing, list.asCons()->cdr);
    return changes && !hasConsequences(drawing, record, changes->groups) && canTake(drawing, record, changes->groups) &&
           drawing::changeRecord(drawing, record, *changes);
}

Value entmod(Machine &machine, Args arguments)
{
    Drawing &drawing = drawingOf(machine);
    if (changeFewValues(drawing, arguments.list(0)))
        return arguments[0];
    const EntityRequest request = entityRequest(arguments.list(0));
    const RecordId record = request.name ? recordOf(drawing, *request.name) : NoRecord;
    if (record == NoRecord || drawing.database().record(record).isGone())
        return Value::nil();
    return modifyRecord(Document::of(machine), record, request.groups) ? arguments[0] : Value::nil();
}

drawing::Placement currentPlacement(Document &document)
{
    drawing::Placement placement;
    placement.isPaperSpace = document.isPaperSpaceCurrent();
    placement.layer = document.currentLayer();
    return placement;
}

// `named` is what a record that was made gives.
template <class Named> Value make(Machine &machine, Args arguments, Named named)
{
    Document &document = Document::of(machine);
    EntityMaker &maker = document.openDrawing().entityMaker;
    if (!arguments.has(0)) {
        maker.cancel();
        return Value::nil();
    }
    const EntityRequest request = entityRequest(arguments.list(0));
    const EntityMaker::Outcome outcome = maker.make(request.groups, currentPlacement(document));
    if (const auto *record = std::get_if<RecordId>(&outcome))
        return named(*record);
    if (const auto *block = std::get_if<EntityMaker::BlockMade>(&outcome))
        return machine.string(block->name);
    return std::holds_alternative<EntityMaker::Pending>(outcome) ? arguments[0] : Value::nil();
}

Value entmake(Machine &machine, Args arguments)
{
    return make(machine, arguments, [&](RecordId) { return arguments[0]; });
}

Value entmakex(Machine &machine, Args arguments)
{
    return make(machine, arguments, [&](RecordId record) { return nameOrNil(machine, record); });
}

// Erased entities come back. Vertices and attributes come and go with the whole alone.
Value entdel(Machine &machine, Args arguments)
{
    Database &database = drawingOf(machine).database();
    const RecordId record = recordArgument(drawingOf(machine), arguments, 0);
    if (record == NoRecord || database.isPart(record))
        return Value::nil();
    const drawing::Record &entity = database.record(record);
    if (entity.kind != drawing::RecordKind::Entity && entity.kind != drawing::RecordKind::Object)
        return Value::nil();
    if (entity.isGone())
        database.restore(record);
    else
        database.erase(record);
    return arguments[0];
}

RecordId nextPresent(const Database &database, RecordId id)
{
    while (id != NoRecord && database.record(id).isGone())
        id = database.nextIn(id);
    return id;
}

// In a block's definition from its start to its end, in the drawing over model and paper space.
Value entnext(Machine &machine, Args arguments)
{
    const Drawing &drawing = drawingOf(machine);
    const Database &database = drawing.database();
    if (arguments.has(0)) {
        const RecordId record = recordArgument(drawing, arguments, 0);
        return record != NoRecord ? nameOrNil(machine, nextPresent(database, database.nextIn(record))) : Value::nil();
    }
    const RecordId section = database.section(drawing::known::Entities);
    return section != NoRecord ? nameOrNil(machine, nextPresent(database, database.firstIn(section))) : Value::nil();
}

Value entlast(Machine &machine, Args)
{
    return nameOrNil(machine, drawing::lastEntity(drawingOf(machine).database()));
}

// Pictures are drawn anew by themselves.
Value entupd(Machine &machine, Args arguments)
{
    const RecordId record = recordArgument(drawingOf(machine), arguments, 0);
    const bool isThere = record != NoRecord && !drawingOf(machine).database().record(record).isGone();
    return isThere ? arguments[0] : Value::nil();
}

// Finds erased entities, too: entdel brings them back.
Value handent(Machine &machine, Args arguments)
{
    const std::u16string_view text = arguments.text(0);
    bool isNumber = false;
    const auto handle = QStringView(text.data(), static_cast<qsizetype>(text.size())).toULongLong(&isNumber, 16);
    return isNumber && handle != 0 ? nameOrNil(machine, drawingOf(machine).database().find({handle})) : Value::nil();
}

Value regapp(Machine &machine, Args arguments)
{
    Drawing &drawing = drawingOf(machine);
    const bool isNew = drawing::registerApplication(drawing, arguments.text(0));
    return isNew ? machine.string(arguments.text(0)) : Value::nil();
}

// The data of one application, ("APP" (1000 . "text") …), or of several, with their code or without, (-3 ("APP" …) …).
Value xdsize(Machine &machine, Args arguments)
{
    constexpr int ExtendedDataCode = -3;
    lisp::Heap &heap = machine.heap();
    Value data = arguments.list(0);
    if (data.isCons() && data.asCons()->car.isString())
        data = heap.cons(data, Value::nil());
    if (data.isCons() && data.asCons()->car.isCons())
        data = heap.cons(Value::integer(ExtendedDataCode), data);
    std::int32_t size = 0;
    for (const drawing::Group &group : entityRequest(heap.cons(data, Value::nil())).groups)
        size += drawing::extendedSize(group);
    return Value::integer(size);
}

Value xdroom(Machine &machine, Args arguments)
{
    const Drawing &drawing = drawingOf(machine);
    const RecordId record = recordArgument(drawing, arguments, 0);
    if (record == NoRecord || drawing.database().record(record).isGone())
        return Value::nil();
    std::int32_t size = 0;
    for (const drawing::Group &group : extendedData(drawing, record, [](std::u16string_view) { return true; }))
        size += drawing::extendedSize(group);
    return Value::integer(drawing::ExtendedSizeLimit - size);
}

constexpr lisp::BuiltinRow rows[] = {
    {"entget", "(entget ENAME [APPLICATIONS])",
     "Gives an entity's data, with the extended data of these applications; nil when it is erased.", entget},
    {"entmod", "(entmod DATA)", "Changes the entity that the data names; gives the data, or nil.", entmod},
    {"entmake", "(entmake [DATA])", "Makes an entity; gives the data, or nil. Without data gives up a part-made one.",
     entmake},
    {"entmakex", "(entmakex [DATA])", "Makes an entity or object; gives its name, or nil.", entmakex},
    {"entdel", "(entdel ENAME)", "Erases an entity, or brings an erased one back.", entdel},
    {"entnext", "(entnext [ENAME])", "Gives the entity behind this one, or the first; nil behind the last.", entnext},
    {"entlast", "(entlast)", "Gives the last entity of the drawing, or nil.", entlast},
    {"entupd", "(entupd ENAME)", "Updates an entity on the screen.", entupd},
    {"handent", "(handent HANDLE)", "Gives the entity with this handle, also an erased one, or nil.", handent},
    {"regapp", "(regapp NAME)", "Registers an application for extended data; nil when it is already.", regapp},
    {"xdsize", "(xdsize DATA)", "Gives the bytes that a list of extended data takes.", xdsize},
    {"xdroom", "(xdroom ENAME)", "Gives the bytes that are left for an entity's extended data.", xdroom},
};

} // namespace

std::span<const lisp::BuiltinRow> entityBuiltins()
{
    return rows;
}
