#include "host/kernel/drawing/EntityMaker.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"
#include "host/drawing/entities/EntityListing.h"
#include "host/drawing/entities/ExtendedData.h"

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

// Dictionaries and other objects, which are no entities: the markers of these begin otherwise.
bool isObject(const GroupList &list)
{
    const std::u16string type = typeOf(list);
    const auto *marker = drawing::findValue<std::u16string>(list, groupcode::Subclass);
    return type == u"DICTIONARY" || type == u"XRECORD" || type == u"LAYOUT" || type == u"GROUP" ||
           (marker && *marker != u"AcDbEntity" && *marker != u"AcDbSymbolTableRecord" &&
            (*marker == u"AcDbDictionary" || *marker == u"AcDbXrecord" || *marker == u"AcDbPlaceHolder"));
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
    if (isObject(list))
        return outcome(addNewObject(m_drawing, list));
    if (const RecordId record = drawing::addTableRecord(m_drawing, list); record != NoRecord)
        return record;
    if (!drawing::isComplete(m_drawing, list) || !usesKnownApplications(list)) {
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
    drawing::Database &database = m_drawing.database();
    RecordId start = m_drawing.tables().find(known::Block, block.name);
    for (RecordId id = start == NoRecord ? NoRecord : database.firstIn(start); id != NoRecord; id = database.nextIn(id))
        database.erase(id);
    if (start == NoRecord)
        start = drawing::addBlock(database, m_drawing.tables(), block);
    for (const Parts &entity : m_blockEntities)
        add(entity, {start});
    cancel();
    return start != NoRecord ? Outcome(BlockMade{block.name}) : Outcome(Failed());
}

EntityMaker::Outcome EntityMaker::takePart(const GroupList &list, const Placement &placement)
{
    const std::u16string type = typeOf(list);
    if (!isPartOf(type, typeOf(m_entity.front())) || !drawing::isComplete(m_drawing, list) ||
        !usesKnownApplications(list)) {
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

// Extended data can only be added for applications that are registered.
bool EntityMaker::usesKnownApplications(const GroupList &list) const
{
    return std::ranges::all_of(list, [this](const Group &group) {
        const auto *name = std::get_if<std::u16string>(&group.value);
        return group.code != groupcode::Application || (name && drawing::isApplication(m_drawing, *name));
    });
}

// "*U" becomes "*U1", "*U2", …: the first that is free.
