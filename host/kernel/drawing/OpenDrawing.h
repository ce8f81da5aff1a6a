#pragma once

#include "host/drawing/selection/EntityIndex.h"
#include "host/kernel/drawing/DrawingDatabase.h"
#include "host/kernel/drawing/EntityMaker.h"
#include "host/kernel/drawing/MeasuredEntities.h"

#include <map>

// What comes and goes with a document's drawing.
struct OpenDrawing
{
    OpenDrawing() = default;
    // Throws drawing::ReadError.
    explicit OpenDrawing(const QString &path, const drawing::ReadWatch &watch = {}) : drawing(path, watch) {}

    drawing::Drawing drawing;
    DrawingDatabase database{drawing};
    EntityMaker entityMaker{drawing};
    selection::EntityIndex entityIndex{drawing};
    MeasuredEntities measuredEntities{drawing};
    std::map<drawing::NameId, std::size_t> tablePlaces;        // among the named records, where tblnext goes on
    std::map<drawing::RecordId, std::size_t> dictionaryPlaces; // how many dictnext has given of each dictionary
};
