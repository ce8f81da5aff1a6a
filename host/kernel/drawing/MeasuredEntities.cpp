#include "host/kernel/drawing/MeasuredEntities.h"

#include <utility>

using drawing::NoRecord;
using drawing::RecordId;

std::optional<geometry::Box> MeasuredEntities::extentsOf(RecordId entity)
{
    const std::uint64_t changeCount = m_drawing.database().journal().changeCount();
    Measured *place = &placeOf(entity);
    const bool isOfNow = place->entity != NoRecord && place->changeCount == changeCount;
    if (isOfNow && place->entity == entity)
        return place->box;
    if (isOfNow && m_places.size() < MostPlaces) {
        grow();
        place = &placeOf(entity);
    }
    place->box = geometry::extentsOf(m_drawing, entity);
    place->entity = entity;
    place->changeCount = changeCount;
    return place->box;
}

// Two in one place have one each in a table of twice as many, unless they are very far apart.
void MeasuredEntities::grow()
{
    std::vector<Measured> places(m_places.size() * 2);
    std::swap(places, m_places);
    for (const Measured &measured : places)
        if (measured.entity != NoRecord)
            placeOf(measured.entity) = measured;
}
