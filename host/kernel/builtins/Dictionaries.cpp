// Dictionaries: objects of the drawing by name.

#include "host/drawing/Dictionaries.h"

#include "host/kernel/Document.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/drawing/EntityData.h"
#include "host/kernel/drawing/EntityName.h"

#include <algorithm>

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

// NoRecord when the argument names no dictionary.
RecordId dictionaryArgument(const Drawing &drawing, Args arguments)
{
    const RecordId record = recordOf(drawing, arguments.native<EntityName>(0, u"lentityp")->name);
    if (record == NoRecord)
        return NoRecord;
    const drawing::Record &found = drawing.database().record(record);
    const bool isDictionary =
        drawing.database().type(record) == u"DICTIONARY" || drawing.database().type(record) == u"ACDBDICTIONARYWDFLT";
    return isDictionary && !found.isGone() ? record : NoRecord;
}

Value namedobjdict(Machine &machine, Args)
{
    Drawing &drawing = drawingOf(machine);
    return entityName(machine, drawing, drawing::ensureNamedObjects(drawing.database()));
}

std::size_t &placeIn(Machine &machine, RecordId dictionary)
{
    return Document::of(machine).openDrawing().dictionaryPlaces[dictionary];
}

Value dictsearch(Machine &machine, Args arguments)
{
    const Drawing &drawing = drawingOf(machine);
    const Database &database = drawing.database();
    const RecordId dictionary = dictionaryArgument(drawing, arguments);
    const RecordId found =
        dictionary != NoRecord ? drawing::findEntry(database, dictionary, arguments.text(1)) : NoRecord;
    if (found == NoRecord)
        return Value::nil();
    if (arguments[2].isTrue())
        placeIn(machine, dictionary) = *database.dictionaries().placeOf(dictionary, arguments.text(1)) + 1;
    return entityList(machine, drawing, found, entityName(machine, drawing, found));
}

Value dictnext(Machine &machine, Args arguments)
{
    const Drawing &drawing = drawingOf(machine);
    const RecordId dictionary = dictionaryArgument(drawing, arguments);
    if (dictionary == NoRecord)
        return Value::nil();
    std::size_t &place = placeIn(machine, dictionary);
    if (arguments[1].isTrue())
        place = 0;
    const auto &entries = drawing.database().dictionaries().entries(dictionary);
    while (place < entries.size()) {
        const RecordId object = drawing.database().find(entries[place++].object);
        if (object != NoRecord && !drawing.database().record(object).isGone())
            return entityList(machine, drawing, object, entityName(machine, drawing, object));
    }
    return Value::nil();
}

void setOwner(Database &database, RecordId object, drawing::Handle owner)
{
    drawing::GroupList groups = database.groups(object);
    const auto found = std::ranges::find(groups, drawing::groupcode::Owner, &drawing::Group::code);
    if (found == groups.end())
        return;
    found->value = owner;
    database.replace(object, groups);
}

// Groups and multiline styles are nothing without their names; every other object can be added to a dictionary again.
bool goesWithItsEntry(const Database &database, RecordId object)
{
    const std::u16string type = database.type(object);
    return type == u"GROUP" || type == u"MLINESTYLE";
}

// The object becomes the dictionary's.
Value dictadd(Machine &machine, Args arguments)
{
    Drawing &drawing = drawingOf(machine);
    Database &database = drawing.database();
    const RecordId dictionary = dictionaryArgument(drawing, arguments);
    const RecordId object = recordOf(drawing, arguments.native<EntityName>(2, u"lentityp")->name);
    const bool isFree = dictionary != NoRecord && object != NoRecord && !arguments.text(1).empty() &&
                        drawing::findEntry(database, dictionary, arguments.text(1)) == NoRecord;
    if (!isFree || database.record(object).kind != drawing::RecordKind::Object || database.record(object).isGone())
        return Value::nil();
    setOwner(database, object, {database.record(dictionary).handle});
    drawing::putEntry(database, dictionary, arguments.text(1), {database.record(object).handle});
    return arguments[2];
}

// The object stays, and names the dictionary as its owner until it is added again: without one it would be a fault.
Value dictremove(Machine &machine, Args arguments)
{
    Drawing &drawing = drawingOf(machine);
    Database &database = drawing.database();
    const RecordId dictionary = dictionaryArgument(drawing, arguments);
    const RecordId object =
        dictionary != NoRecord ? drawing::findEntry(database, dictionary, arguments.text(1)) : NoRecord;
    if (object == NoRecord)
        return Value::nil();
    drawing::removeEntry(database, dictionary, arguments.text(1));
    if (goesWithItsEntry(database, object))
        database.erase(object);
    return entityName(machine, drawing, object);
}

Value dictrename(Machine &machine, Args arguments)
{
    Drawing &drawing = drawingOf(machine);
    Database &database = drawing.database();
    const RecordId dictionary = dictionaryArgument(drawing, arguments);
    const RecordId object =
        dictionary != NoRecord ? drawing::findEntry(database, dictionary, arguments.text(1)) : NoRecord;
    if (object == NoRecord || arguments.text(2).empty() ||
        drawing::findEntry(database, dictionary, arguments.text(2)) != NoRecord)
        return Value::nil();
    drawing::removeEntry(database, dictionary, arguments.text(1));
    drawing::putEntry(database, dictionary, arguments.text(2), {database.record(object).handle});
    return arguments[2];
}

constexpr lisp::BuiltinRow rows[] = {
    {"namedobjdict", "(namedobjdict)", "Gives the drawing's dictionary that all others are reached from.",
     namedobjdict},
    {"dictsearch", "(dictsearch DICTIONARY NAME [SETNEXT])", "Gives the data of the object with this name, or nil.",
     dictsearch},
    {"dictnext", "(dictnext DICTIONARY [REWIND])", "Gives the data of the next object, or the first; nil at the end.",
     dictnext},
    {"dictadd", "(dictadd DICTIONARY NAME OBJECT)", "Gives an object a name that is free; gives the object, or nil.",
     dictadd},
    {"dictremove", "(dictremove DICTIONARY NAME)", "Removes an entry; gives its object, which stays, or nil.",
     dictremove},
    {"dictrename", "(dictrename DICTIONARY OLD NEW)", "Renames an object; gives the new name, or nil.", dictrename},
};

} // namespace

std::span<const lisp::BuiltinRow> dictionaryBuiltins()
{
    return rows;
}
