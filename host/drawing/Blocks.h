#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/SymbolTables.h"

#include <optional>
#include <vector>

namespace drawing {

// Model space, paper space and blocks, which hold entities.

inline constexpr std::u16string_view ModelSpace = u"*Model_Space", PaperSpace = u"*Paper_Space";

// The table record that owns the entities of a container, which is the ENTITIES section or a block's start. Null handle
// when there is none, as in drawings before R2000.
Handle ownerOf(const Database &database, const SymbolTables &tables, RecordId container, bool isPaperSpace);

inline constexpr std::int64_t AnonymousBlock = 1; // among the flags of one that was made without a name

// Adds a block definition without entities, with its table record from R2000 on. Entities are then added before
// endOf() of what this gives. NoRecord when the name is taken or a value cannot be written.
struct BlockDefinition
{
    std::u16string name;
    Point basePoint = {};
    std::int64_t flags = 0;
    std::u16string layer = u"0";
};
RecordId addBlock(Database &database, SymbolTables &tables, const BlockDefinition &block);

// The same where the name may be taken: the block of that name is emptied and gets the new base point and flags.
// NoRecord when a value cannot be written; then it stays as it is.
RecordId defineBlock(Database &database, SymbolTables &tables, const BlockDefinition &block);

// Whether an INSERT of the block shows the container with this name: the block is it, or inserts show it in turn.
bool showsBlock(const Database &database, const SymbolTables &tables, std::u16string_view block,
                std::u16string_view name);

// Erases a block for good, given its start: with what it holds, and from R2000 on with its table record.
void eraseBlock(Database &database, const SymbolTables &tables, RecordId block);

// A name that no block has: the prefix and a number, "*D7".
std::u16string freeBlockName(const SymbolTables &tables, std::u16string_view prefix);

// The ENTITIES section, which is made when it is missing.
RecordId ensureEntities(Database &database);

enum class Space { Model, Paper };

// The entities of a container in its order, without erased ones and without the parts of polylines and inserts; of the
// ENTITIES section, where both spaces stand, those of one space if that is wanted. None when there is no container.
std::vector<RecordId> entitiesIn(const Database &database, RecordId container, std::optional<Space> space = {});
bool isInSpace(const Record &entity, Space space); // of the ENTITIES section

// The vertices or attributes of an entity and the end of their sequence, without erased ones.
std::vector<RecordId> partsOf(const Database &database, RecordId entity);

// The last entity of model and paper space that is not erased; of a polyline or insert with parts the entity itself.
RecordId lastEntity(const Database &database);
RecordId entityBefore(const Database &database, RecordId id); // the same of those before a record of that section

} // namespace drawing
