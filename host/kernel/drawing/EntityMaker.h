#pragma once

#include "host/drawing/entities/EntityMaking.h"

#include <variant>

// What entmake does: adds entities, table records and objects from programs' lists. Polylines and inserts with parts
// come in several lists up to a SEQEND, block definitions up to an ENDBLK; they are added when these come.
class EntityMaker
{
public:
    explicit EntityMaker(drawing::Drawing &drawing) : m_drawing(drawing) {}

    struct Failed
    {
    };
    struct Pending // goes on with the next list
    {
    };
    struct BlockMade
    {
        std::u16string name;
    };
    using Outcome = std::variant<Failed, Pending, BlockMade, drawing::RecordId>;

    // The list's angles are radians. `placement` is where an entity goes that is not in a block. After a failure
    // nothing is pending.
    Outcome make(const drawing::GroupList &given, const drawing::Placement &placement);
    void cancel();

private:
    using Parts = std::vector<drawing::GroupList>; // of one entity: itself first

    Outcome fail(); // nothing is pending then
    Outcome added(drawing::RecordId record);
    Outcome beginBlock(const drawing::GroupList &list);
    Outcome endBlock();
    bool wouldShowItself(const std::u16string &block) const;
    Outcome takePart(const drawing::GroupList &list, const drawing::Placement &placement);
    Outcome finish(Parts &&entity, const drawing::Placement &placement);
    drawing::RecordId add(const Parts &entity, const drawing::Placement &placement);
    void drawDimension(drawing::RecordId dimension);
    drawing::NameId typeNumber(const drawing::GroupList &list) const; // none where the drawing has no such record
    bool hasUsableValues(const drawing::GroupList &list) const;

    drawing::Drawing &m_drawing;
    Parts m_entity; // that a SEQEND ends; empty: none
    bool m_isInBlock = false;
    drawing::GroupList m_block;
    std::vector<Parts> m_blockEntities;
};
