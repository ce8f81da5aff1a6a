#pragma once

#include "host/drawing/Drawing.h"

#include <optional>

// The table of a name that programs use, in any case: "LAYER", "BLOCK", …
std::optional<drawing::NameId> tableNamed(std::u16string_view name);

// Its records in order. The blocks of model and paper space, which every drawing has, are none of the blocks here.
std::vector<drawing::RecordId> tableRecords(const drawing::Drawing &drawing, drawing::NameId table);

// What tblsearch and tblnext show of a record: no handle, no owner, no markers, nothing that the file leaves out.
drawing::GroupList tableRecordGroups(const drawing::Drawing &drawing, drawing::RecordId record);
