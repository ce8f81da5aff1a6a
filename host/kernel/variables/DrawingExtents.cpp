#include "host/kernel/variables/DrawingExtents.h"

#include "host/commands/Picking.h"
#include "host/drawing/selection/EntityIndex.h"
#include "host/kernel/Document.h"

#include <memory>

DrawingExtents::State DrawingExtents::currentState() const
{
    const drawing::Drawing &drawing = m_document.drawing();
    return {drawing.number(), drawing.database().journal().changeCount(), m_document.isPaperSpaceCurrent()};
}

const geometry::Box &DrawingExtents::box()
{
    const State now = currentState();
    if (m_state == now)
        return m_box;
    selection::EntityIndex &index = m_document.openDrawing().entityIndex;
    m_box = {};
    for (const drawing::RecordId entity : commands::thawedEntities(m_document.session()))
        m_box.add(index.extentsOf(entity));
    m_state = now;
    return m_box;
}

void computeExtents(SystemVariables &variables, Document &document)
{
    const auto extents = std::make_shared<DrawingExtents>(document);
    const auto corner = [&variables, extents](std::u16string_view name, geometry::Vector geometry::Box::*place) {
        const VariableValue ofNothing = variables.get(*findVariable(name));
        variables.compute(name, [extents, place, ofNothing]() -> VariableValue {
            const geometry::Box &box = extents->box();
            const geometry::Vector &found = box.*place;
            return box.isEmpty() ? ofNothing : LispPoint{found.x, found.y, found.z};
        });
    };
    corner(u"EXTMIN", &geometry::Box::minimum);
    corner(u"EXTMAX", &geometry::Box::maximum);
}
