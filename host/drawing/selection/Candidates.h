#pragma once

#include "host/drawing/Blocks.h"
#include "host/drawing/Drawing.h"
#include "host/drawing/Layouts.h"

#include <functional>
#include <vector>

// What can be selected at all.
namespace selection {

// Entities of model and paper space, in the drawing's order, without vertices, attributes and erased ones.
std::vector<drawing::RecordId> allEntities(const drawing::Drawing &drawing);

// Those of one sheet.
std::vector<drawing::RecordId> entitiesOn(const drawing::Drawing &drawing, const drawing::Layout &layout);
// With those of the layouts that are not current, which stand in blocks of their own.
std::vector<drawing::RecordId> entitiesOfAllLayouts(const drawing::Drawing &drawing);

using drawing::Space;
std::vector<drawing::RecordId> entitiesOf(const drawing::Drawing &drawing, Space space);

// What is looked at: a space, or the model through a viewport.
struct Sight
{
    Space space = Space::Model;
    drawing::RecordId viewport = drawing::NoRecord;
};

// Those there that are not on frozen layers.
std::vector<drawing::RecordId> thawedEntities(const drawing::Drawing &drawing, const Sight &sight);
// What can be seen there: not on layers that are off or frozen, and not invisible itself.
std::vector<drawing::RecordId> visibleEntities(const drawing::Drawing &drawing, const Sight &sight);
// The watch is called at each entity.
void keepVisible(std::vector<drawing::RecordId> &entities, const drawing::Drawing &drawing, const Sight &sight,
                 const std::function<void()> &watch = {});

// What was made last there, also on a layer that is off. NoRecord when that is frozen, or invisible itself: who has
// just made something and means it by this must never get an older one instead.
drawing::RecordId newestEntity(const drawing::Drawing &drawing, const Sight &sight);

bool isOnLockedLayer(const drawing::Drawing &drawing, drawing::RecordId entity);

} // namespace selection
