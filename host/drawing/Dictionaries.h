#pragma once

#include "host/drawing/Database.h"

#include <string>
#include <vector>

namespace drawing {

// Dictionaries: objects that give names to other objects, in the OBJECTS section. Names differ in more than case.

// The dictionary that everything is reached from, the first object; NoRecord when there is none.
RecordId namedObjects(const Database &database);
RecordId ensureNamedObjects(Database &database);
// The owner of an object that no dictionary has a name for: the first one. Without an owner it would be a fault. A null
// handle when there is none.
Handle ownerOfUnnamed(const Database &database);

// In its order; of a drawing that is not changed meanwhile, DictionaryIndex gives them without a copy.
std::vector<DictionaryEntry> dictionaryEntries(const Database &database, RecordId dictionary);
// The object with the name, NoRecord when there is none or it is erased.
RecordId findEntry(const Database &database, RecordId dictionary, std::u16string_view name);
// Another object for a name that is there; a new name stands last, which takes time for it alone.
bool putEntry(Database &database, RecordId dictionary, std::u16string_view name, Handle object);
bool removeEntry(Database &database, RecordId dictionary, std::u16string_view name); // the object stays

// Adds an object at the end; its groups begin with its type. Putting it into its owner is the caller's.
RecordId addObject(Database &database, const GroupList &groups);

// The dictionary that belongs to an entity or object (group 360 in its {ACAD_XDICTIONARY), NoRecord when it has none.
RecordId extensionDictionary(const Database &database, RecordId id);
// Makes one where there is none; NoRecord when it cannot be written.
RecordId ensureExtensionDictionary(Database &database, RecordId id);
// With what stands in it; for who erases the record that it belongs to for good.
void eraseExtensionDictionary(Database &database, RecordId id);

// The declaration in the CLASSES section that a type of objects needs from R2000 on; nothing when it is there.
struct ClassDeclaration
{
    std::u16string type, className, application;
};
void ensureClass(Database &database, const ClassDeclaration &declaration);

} // namespace drawing
