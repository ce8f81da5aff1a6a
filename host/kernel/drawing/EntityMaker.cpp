#include "host/kernel/drawing/EntityMaker.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Dictionaries.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/dimensions/DimensionDrawing.h"
#include "host/drawing/edit/DimensionParts.h"
#include "host/drawing/edit/TextPlacing.h"
#include "host/drawing/entities/Attachments.h"
#include "host/drawing/entities/EntityChange.h"
#include "host/drawing/entities/EntityValues.h"
#include "host/drawing/entities/ListedCodes.h"
#include "host/drawing/entities/RecordTypes.h"

#include <algorithm>
#include <set>

using drawing::Group;
using drawing::GroupList;
using drawing::NoRecord;
using drawing::Placement;
using drawing::RecordId;

namespace groupcode = drawing::groupcode;
namespace known = drawing::known;

namespace {

constexpr int PartsFollowCode = 66, TextPlaceCode = 11;

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

bool isText(std::u16string_view type)
{
    return type == u"TEXT" || type == u"ATTRIB" || type == u"ATTDEF";
}

// Dimensions are older than subclass markers. One without a style has the current one.
void settleDimension(const drawing::Drawing &drawing, GroupList &list)
{
    constexpr int StyleCode = 3;
    if (!drawing::hasDimensionParts(list))
        list = drawing::withDimensionParts(list);
    if (drawing::findGroup(list, StyleCode))
        return;
    const std::optional<Group> current = drawing::variable(drawing.database(), "$DIMSTYLE");
    const auto *name = current ? std::get_if<std::u16string>(&current->value) : nullptr;
    drawing::setInDimensionPart(list, {StyleCode, name ? *name : u"Standard"});
}

bool hasPicture(const drawing::Drawing &drawing, const GroupList &dimension)
{
    const auto *block = drawing::findValue<std::u16string>(dimension, groupcode::Name);
    return block && drawing.tables().find(known::Block, *block) != NoRecord;
}

// A dimension that no block shows yet. Of kinds that are not drawn the program gives the block.
bool needsPicture(const drawing::Drawing &drawing, const GroupList &list)
{
    return drawing::isDrawable(list) && !hasPicture(drawing, list);
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
    GroupList groups{{groupcode::Type, typeOf(list)}};
    const GroupList attachments = drawing::attachmentsForNew(drawing, list), own = drawing::withoutAttachments(list);
    groups.insert(groups.end(), attachments.begin(), attachments.end());
    drawing::ensureNamedObjects(drawing.database());
    groups.push_back({groupcode::Owner, drawing::ownerOfUnnamed(drawing.database())});
    std::copy_if(own.begin(), own.end(), std::back_inserter(groups), [](const Group &group) {
        return group.code != groupcode::Type && group.code != groupcode::Handle && group.code != groupcode::Owner;
    });
    const RecordId added = drawing::addObject(drawing.database(), groups);
    if (added != NoRecord)
        drawing::ownExtensionDictionary(drawing.database(), added);
    return added;
}

// The spaces have names of their own; a letter behind the asterisk, alone or with a number, is a block that was made
// without a name.
bool isBlockName(std::u16string_view name)
{
    const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
    const bool isWithoutName = name.size() > 1 && name[0] == u'*' && drawing::isValidName(name.substr(1)) &&
                               !isDigit(name[1]) && std::ranges::all_of(name.substr(2), isDigit);
    return isWithoutName || drawing::isValidName(name);
}

} // namespace

EntityMaker::Outcome EntityMaker::make(const GroupList &given, const Placement &placement)
{
    GroupList list;
    std::ranges::transform(given, std::back_inserter(list), drawing::inDegrees);
    const std::u16string type = typeOf(list);
    if (isText(type) && drawing::findGroup(list, groupcode::FirstX))
        drawing::settleText(m_drawing, list);
    if (type == u"DIMENSION")
        settleDimension(m_drawing, list);
    if (type == u"BLOCK")
        return beginBlock(list);
    if (type == u"ENDBLK")
        return endBlock();
    if (!m_entity.empty())
        return takePart(list, placement);
    if (isPart(type))
        return fail();
    if (drawing::isObjectType(m_drawing.database(), type))
        return drawing::canHoldObjects(m_drawing.database()) ? added(addNewObject(m_drawing, list)) : fail();
    const bool isTableRecord = drawing::isTableRecordType(typeNumber(list));
    const bool isFine = hasUsableValues(list);
    const bool isKeptForLater = m_isInBlock || hasParts(list);
    const RecordId record = isTableRecord && isFine ? drawing::addTableRecord(m_drawing, list) : NoRecord;
    if (record != NoRecord)
        return record;
    if (isTableRecord || !isFine || !drawing::isComplete(m_drawing, list)) // a table's record is never an entity
        return fail();
    if (isKeptForLater && !drawing::isWritable(m_drawing, list))
        return fail();
    if (!m_isInBlock && !drawing::placementOf(m_drawing, list, placement))
        return fail();
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

EntityMaker::Outcome EntityMaker::fail()
{
    cancel();
    return Failed();
}

EntityMaker::Outcome EntityMaker::added(RecordId record)
{
    return record != NoRecord ? Outcome(record) : fail();
}

EntityMaker::Outcome EntityMaker::beginBlock(const GroupList &list)
{
    cancel();
    const auto *name = drawing::findValue<std::u16string>(list, groupcode::Name);
    if (!name || !isBlockName(*name) || !drawing::hasValidValues(m_drawing, drawing::known::Block, list))
        return Failed();
    m_block = list;
    m_isInBlock = true;
    return Pending();
}

// A definition takes the place of one with the same name.
EntityMaker::Outcome EntityMaker::endBlock()
{
    if (!m_isInBlock || !m_entity.empty())
        return fail();
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
    // A block that an insert shows may have been erased since.
    const auto isStillComplete = [this](const Parts &entity) { return drawing::isComplete(m_drawing, entity.front()); };
    if (!std::ranges::all_of(m_blockEntities, isStillComplete) || wouldShowItself(block.name))
        return fail();
    const RecordId start = drawing::defineBlock(m_drawing.database(), m_drawing.tables(), block);
    if (start == NoRecord)
        return fail();
    drawing::ensureLayer(m_drawing, block.layer);
    for (const Parts &entity : m_blockEntities)
        add(entity, {start});
    cancel();
    return BlockMade{block.name};
}

bool EntityMaker::wouldShowItself(const std::u16string &block) const
{
    std::set<std::u16string> shown; // each once: a block may have thousands of inserts of one other
    for (const Parts &entity : m_blockEntities)
        if (const auto *name = drawing::findValue<std::u16string>(entity.front(), groupcode::Name);
            name && typeOf(entity.front()) == u"INSERT")
            shown.insert(drawing::folded(*name));
    return std::ranges::any_of(shown, [&](const std::u16string &name) {
        return drawing::showsBlock(m_drawing.database(), m_drawing.tables(), name, block);
    });
}

EntityMaker::Outcome EntityMaker::takePart(const GroupList &list, const Placement &placement)
{
    const std::u16string type = typeOf(list);
    if (!isPartOf(type, typeOf(m_entity.front())) || !drawing::isComplete(m_drawing, list) || !hasUsableValues(list) ||
        !drawing::isWritable(m_drawing, list))
        return fail();
    m_entity.push_back(list);
    if (type != u"SEQEND")
        return Pending();
    return finish(std::move(m_entity), placement);
}

EntityMaker::Outcome EntityMaker::finish(Parts &&entity, const Placement &placement)
{
    const Parts complete = std::move(entity);
    m_entity.clear();
    if (m_isInBlock) {
        m_blockEntities.push_back(complete);
        return Pending();
    }
    const std::optional<Placement> place = drawing::placementOf(m_drawing, complete.front(), placement);
    return place ? added(add(complete, *place)) : fail(); // its layout may have been deleted since
}

RecordId EntityMaker::add(const Parts &entity, const Placement &placement)
{
    const RecordId whole = drawing::addEntity(m_drawing, entity.front(), placement);
    if (whole != NoRecord && needsPicture(m_drawing, entity.front()))
        drawDimension(whole);
    RecordId last = whole;
    for (auto part = entity.begin() + 1; last != NoRecord && part != entity.end(); ++part)
        last = drawing::addPartBehind(m_drawing, last, whole, *part);
    return whole;
}

// The text stands where the program says so.
void EntityMaker::drawDimension(RecordId dimension)
{
    const bool hasPlace = m_drawing.database().firstGroup(dimension, TextPlaceCode).has_value();
    drawing::drawDimension(m_drawing, dimension, hasPlace ? drawing::TextPlace::AsGiven : drawing::TextPlace::Usual);
}

drawing::NameId EntityMaker::typeNumber(const GroupList &list) const
{
    const drawing::Database &database = m_drawing.database();
    return database.names().find(database.codec().encode(typeOf(list)));
}

bool EntityMaker::hasUsableValues(const GroupList &list) const
{
    return drawing::hasValidValues(m_drawing, typeNumber(list), list) &&
           drawing::usesKnownApplications(m_drawing, list);
}
