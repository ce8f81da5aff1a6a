#include "host/drawing/entities/EntityListing.h"

#include "host/drawing/entities/ListedCodes.h"

namespace drawing {

EntityListing::EntityListing(const Drawing &drawing, RecordId record) : m_reader(drawing.database().reader(record))
{
    Item item; // one for all: to clear an item takes longer than to copy it
    while (m_reader.next(item) && item.code < groupcode::ExtendedString) {
        if (item.kind == ValueKind::Real && isAngle(item.code))
            item.real = inRadians(item.real);
        m_recorded.push_back(item);
    }
    m_plan = ListingPlan::of(drawing, record, m_recorded);
    if (m_plan->hasSpatialPoints())
        for (Item &each : m_recorded)
            each.point.dimensions = 3;
}

std::vector<ListedGroup> listing(const Drawing &drawing, RecordId record)
{
    return decoded(EntityListing(drawing, record));
}

std::vector<ListedGroup> decoded(const EntityListing &items)
{
    std::vector<ListedGroup> groups;
    groups.reserve(items.size());
    for (const ListedItem listed : items)
        groups.push_back({items.group(listed), listed.origin});
    return groups;
}

} // namespace drawing
