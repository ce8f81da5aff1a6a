#pragma once

#include "host/commands/Context.h"

namespace commands {

// What INSERT was told to insert.
struct InsertedBlock
{
    std::u16string name;
    bool isNew = false; // it was made for this
};

// "NAME" is a block, or else a drawing's file, which becomes one; "NAME=FILE" gives the block another name than the
// file's, "NAME=" makes it anew. Asks before a block is redefined. Throws CommandError when there is neither.
Task<InsertedBlock> insertedBlock(Context &context, const std::u16string typed);

// Whether a block, which is there already, shall get another definition; not asked for with EXPERT 2 and above.
Task<bool> mayRedefine(Context &context, const std::u16string block);

} // namespace commands
