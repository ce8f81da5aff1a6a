#pragma once

#include "host/drawing/Drawing.h"

#include <cstddef>
#include <optional>

// The table of a name that programs use, in any case: "LAYER", "BLOCK", …
std::optional<drawing::NameId> tableNamed(std::u16string_view name);

// Its next record at a place among the drawing's named records, or behind it; NoRecord when there is none. The place
// moves behind the record. The blocks of model and paper space, which every drawing has, are none of the blocks here.
drawing::RecordId nextTableRecord(const drawing::Drawing &drawing, drawing::NameId table, std::size_t &place);

// What tblsearch and tblnext show of a record: no handle, no owner, no markers, nothing that the file leaves out.
drawing::GroupList tableRecordGroups(const drawing::Drawing &drawing, drawing::RecordId record);
