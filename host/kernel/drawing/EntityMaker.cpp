#include "host/kernel/drawing/EntityMaker.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"
#include "host/drawing/entities/EntityListing.h"
#include "host/drawing/entities/EntityValues.h"
#include "host/drawing/entities/RecordTypes.h"

#include <algorithm>

using drawing::Group;
using drawing::GroupList;
using drawing::NoRecord;
using drawing::Placement;
using drawing::RecordId;

namespace groupcode = drawing::groupcode;
namespace known = drawing::known;

namespace {

constexpr int PartsFollowCode = 66;

std::u16string typeOf(const GroupList &list)
{
    const auto *type = drawing::findValue<std::u16string>(list, groupcode::Type);
    return type ? *type : std::u16string();
}

bool hasParts(const GroupList &list)
{
    const std::u16string type = typeOf(list);
    const auto *follow = drawing::findValue<std::int64_t>(list, PartsFollowCode);
    return type == u"POLYLINE" || (type == u"INSERT" && follow && *follow != 0);
}

bool isPart(std::u16string_view type)
{
    return type == u"VERTEX" || type == u"ATTRIB" || type == u"SEQEND";
}

bool isPartOf(std::u16string_view type, std::u16string_view whole)
{
    return type == u"SEQEND" || type == (whole == u"POLYLINE" ? u"VERTEX" : u"ATTRIB");
}

RecordId addNewObject(drawing::Drawing &drawing, const GroupList &list)
{
    GroupList groups{{groupcode::Type, typeOf(list)}, {groupcode::Owner, drawing::Handle{0}}};
    std::copy_if(list.begin(), list.end(), std::back_inserter(groups), [](const Group &group) {
        return group.code != groupcode::Type && group.code != groupcode::Handle && group.code != groupcode::Owner;
    });
    return drawing::addObject(drawing.database(), groups);
}

EntityMaker::Outcome outcome(RecordId added)
{
    return added != NoRecord ? EntityMaker::Outcome(added) : EntityMaker::Outcome(EntityMaker::Failed());
}

bool shows(const drawing::Drawing &drawing, const GroupList &entity, const std::u16string &block)
{
    const auto *name = drawing::findValue<std::u16string>(entity, groupcode::Name);
    return typeOf(entity) == u"INSERT" && name &&
           drawing::showsBlock(drawing.database(), drawing.tables(), *name, block);
}

} // namespace

EntityMaker::Outcome EntityMaker::make(const GroupList &given, const Placement &placement)
{
    GroupList list;
    std::ranges::transform(given, std::back_inserter(list), drawing::inDegrees);
    const std::u16string type = typeOf(list);
    if (type == u"BLOCK")
        return beginBlock(list);
    if (type == u"ENDBLK")
        return endBlock();
    if (!m_entity.empty())
        return takePart(list, placement);
    if (isPart(type))
        return Failed();
    if (drawing::isObjectType(m_drawing.database(), type))
        return outcome(addNewObject(m_drawing, list));
    const bool isTableRecord = drawing::isTableRecordType(type);
    const bool isFine = drawing::hasValidValues(m_drawing, type, list) && usesKnownApplications(list);
    const RecordId record = isTableRecord && isFine ? drawing::addTableRecord(m_drawing, list) : NoRecord;
    if (record != NoRecord)
        return record;
    if (isTableRecord || !isFine || !drawing::isComplete(m_drawing, list)) { // a table's record is never an entity
        cancel();
        return Failed();
    }
    if (!hasParts(list))
        return finish({list}, placement);
    m_entity = {list};
    return Pending();
}

void EntityMaker::cancel()
{
    m_entity.clear();
    m_blockEntities.clear();
    m_isInBlock = false;
}

EntityMaker::Outcome EntityMaker::beginBlock(const GroupList &list)
{
    cancel();
    if (!drawing::findValue<std::u16string>(list, groupcode::Name))
        return Failed();
    m_block = list;
    m_isInBlock = true;
    return Pending();
}

// A definition takes the place of one with the same name.
EntityMaker::Outcome EntityMaker::endBlock()
{
    if (!m_isInBlock || !m_entity.empty()) {
        cancel();
        return Failed();
    }
    drawing::BlockDefinition block;
    block.name = *drawing::findValue<std::u16string>(m_block, groupcode::Name);
    if (block.name.size() == 2 && block.name.front() == u'*')
        block.name = drawing::freeBlockName(m_drawing.tables(), block.name);
    if (const auto *point = drawing::findValue<drawing::Point>(m_block, groupcode::FirstX))
        block.basePoint = {point->x, point->y, point->z};
    if (const auto *flags = drawing::findValue<std::int64_t>(m_block, groupcode::Count))
        block.flags = *flags;
    if (const auto *layer = drawing::findValue<std::u16string>(m_block, groupcode::Layer))
        block.layer = *layer;
    const auto showsIt = [&](const Parts &entity) { return shows(m_drawing, entity.front(), block.name); };
    if (std::ranges::any_of(m_blockEntities, showsIt)) { // it would contain itself
        cancel();
        return Failed();
    }
    const RecordId start = drawing::defineBlock(m_drawing.database(), m_drawing.tables(), block);
    for (const Parts &entity : m_blockEntities)
        add(entity, {start});
    cancel();
    return start != NoRecord ? Outcome(BlockMade{block.name}) : Outcome(Failed());
}

EntityMaker::Outcome EntityMaker::takePart(const GroupList &list, const Placement &placement)
{
    const std::u16string type = typeOf(list);
    if (!isPartOf(type, typeOf(m_entity.front())) || !drawing::isComplete(m_drawing, list) ||
        !drawing::hasValidValues(m_drawing, type, list) || !usesKnownApplications(list)) {
        cancel();
        return Failed();
    }
    m_entity.push_back(list);
    if (type != u"SEQEND")
        return Pending();
    return finish(std::move(m_entity), placement);
}

EntityMaker::Outcome EntityMaker::finish(Parts &&entity, const Placement &placement)
{
    const Parts complete = std::move(entity);
    m_entity.clear();
    if (!m_isInBlock)
        return outcome(add(complete, placement));
    m_blockEntities.push_back(complete);
    return Pending();
}

RecordId EntityMaker::add(const Parts &entity, const Placement &placement)
{
    const RecordId whole = drawing::addEntity(m_drawing, entity.front(), placement);
    for (auto part = entity.begin() + 1; whole != NoRecord && part != entity.end(); ++part)
        drawing::addPart(m_drawing, whole, *part);
    return whole;
}

bool EntityMaker::usesKnownApplications(const GroupList &list) const
{
    return drawing::usesKnownApplications(m_drawing, list);
}
