#pragma once

#include "host/drawing/Drawing.h"

#include <optional>
#include <string>
#include <vector>

namespace drawing {

// One page of the drawing: the model's or a sheet of paper.
struct Layout
{
    std::u16string name; // as the dictionary of layouts has it
    RecordId object = NoRecord;
    RecordId blockRecord = NoRecord; // of the block that holds its entities; NoRecord when it is not there
    std::int64_t tab = 0;            // its place among the tabs; 0 is the model's
};

// In the order of the dictionary; empty for drawings that have none, as before R2000.
std::vector<Layout> layouts(const Database &database);

bool isModelName(std::u16string_view name);                                           // that of the model's page
std::optional<Layout> findLayout(const Database &database, std::u16string_view name); // the model is none
std::optional<Layout> activeLayout(const Drawing &drawing);                           // whose sheet is current

} // namespace drawing
