#include "host/kernel/drawing/RecordModification.h"

#include "host/commands/Renaming.h"
#include "host/drawing/dimensions/DimensionDrawing.h"
#include "host/drawing/edit/TextPlacing.h"
#include "host/drawing/entities/EntityChange.h"
#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/entities/EntityPlace.h"
#include "host/drawing/entities/EntityValues.h"
#include "host/drawing/entities/ExtendedData.h"
#include "host/kernel/Document.h"

#include <algorithm>

using drawing::Drawing;
using drawing::RecordId;

namespace {

// Another name for a table record or block is followed in everything that calls it. That comes last, when nothing else
// can go wrong; the start of a block has its name twice.
bool changeNamedRecord(Document &document, RecordId record, drawing::GroupList wanted)
{
    namespace groupcode = drawing::groupcode;
    Drawing &drawing = document.drawing();
    const std::u16string old = drawing.database().name(record);
    const auto *given = drawing::findValue<std::u16string>(wanted, groupcode::Name);
    const std::u16string name = given ? *given : old;
    if (name != old && commands::renamingOf(drawing, record, name) != commands::Renaming::Possible)
        return false;
    const bool isBlock = drawing.database().record(record).kind == drawing::RecordKind::BlockStart;
    for (drawing::Group &group : wanted)
        if (group.code == groupcode::Name || (isBlock && group.code == groupcode::EntryName))
            group.value = old;
    if (!drawing::changeRecord(drawing, record, wanted))
        return false;
    if (name != old)
        commands::renameRecord(document.session(), record, name);
    return true;
}

bool isText(const Drawing &drawing, RecordId record)
{
    const drawing::NameId type = drawing.database().record(record).type;
    return type == drawing::known::Text || type == drawing::known::Attribute ||
           type == drawing::known::AttributeDefinition;
}

// What settleText() goes by, and what it gives.
bool isOfPlacing(const drawing::Group &group)
{
    constexpr int codes[] = {1, 2, 7, 10, 11, 40, 41, 50, 51, 71, 72, 73, 74};
    return std::ranges::find(codes, group.code) != std::end(codes);
}

drawing::GroupList placingOf(const drawing::GroupList &groups)
{
    drawing::GroupList placing;
    std::ranges::copy_if(groups, std::back_inserter(placing), isOfPlacing);
    return placing;
}

// Letters stand by where they are aligned. Those that another program has placed are not moved unless they change.
bool changeText(Drawing &drawing, RecordId text, const drawing::GroupList &wanted)
{
    drawing::Database &database = drawing.database();
    const drawing::GroupList before = placingOf(database.groups(text));
    if (!drawing::changeRecord(drawing, text, wanted))
        return false;
    drawing::GroupList groups = database.groups(text);
    if (placingOf(groups) == before)
        return true;
    drawing::settleText(drawing, groups);
    return database.replace(text, groups);
}

bool isDimension(const Drawing &drawing, RecordId record)
{
    return drawing.database().record(record).type == drawing::known::Dimension;
}

// A dimension shows what it measures and says from then on. A block that the list names stays what it is; so does the
// picture of a kind that is not drawn.
bool changeDimension(Drawing &drawing, RecordId dimension, const drawing::GroupList &wanted)
{
    constexpr int TextPlaceCode = 11;
    const drawing::Database &database = drawing.database();
    const drawing::GroupList before = database.groups(dimension);
    if (!drawing::changeRecord(drawing, dimension, wanted))
        return false;
    const drawing::GroupList after = database.groups(dimension);
    const auto hasOther = [&](int code) {
        const drawing::Group *group = drawing::findGroup(after, code), *old = drawing::findGroup(before, code);
        return group && (!old || group->value != old->value);
    };
    if (hasOther(drawing::groupcode::Name) || !drawing::isDrawable(after) || !drawing::showsOther(before, after))
        return true;
    drawing::drawDimension(drawing, dimension,
                           hasOther(TextPlaceCode) ? drawing::TextPlace::AsGiven : drawing::TextPlace::Usual);
    return true;
}

bool change(Document &document, RecordId record, const drawing::GroupList &wanted)
{
    const drawing::RecordKind kind = document.drawing().database().record(record).kind;
    const bool isNamed = kind == drawing::RecordKind::TableRecord || kind == drawing::RecordKind::BlockStart;
    if (isNamed)
        return changeNamedRecord(document, record, wanted);
    if (isText(document.drawing(), record))
        return changeText(document.drawing(), record, wanted);
    return isDimension(document.drawing(), record) ? changeDimension(document.drawing(), record, wanted)
                                                   : drawing::changeRecord(document.drawing(), record, wanted);
}

bool hasType(const Drawing &drawing, RecordId record, const drawing::GroupList &wanted)
{
    const drawing::Database &database = drawing.database();
    const auto *type = drawing::findValue<std::u16string>(wanted, drawing::groupcode::Type);
    return !type || database.codec().decodesTo(database.names().text(database.record(record).type), *type);
}

} // namespace

bool modifyRecord(Document &document, RecordId record, const drawing::GroupList &wanted)
{
    const Drawing &drawing = document.drawing();
    return hasType(drawing, record, wanted) && canTake(drawing, record, wanted) && change(document, record, wanted);
}

bool hasConsequences(const Drawing &drawing, RecordId record, const drawing::GroupList &groups)
{
    return (isText(drawing, record) && std::ranges::any_of(groups, isOfPlacing)) ||
           (isDimension(drawing, record) && drawing::showsOther({}, groups));
}

// Objects hold what they like; an entity or table record keeps what it has, though it could not be made so.
bool canTake(const Drawing &drawing, RecordId record, const drawing::GroupList &wanted)
{
    const drawing::Database &database = drawing.database();
    if (!drawing::usesKnownApplications(drawing, wanted) || !drawing::canShow(drawing, record, wanted))
        return false;
    if (database.record(record).kind == drawing::RecordKind::Object)
        return true;
    if (!drawing::holdsExtendedData(drawing, record, wanted))
        return false;
    if (database.record(record).kind == drawing::RecordKind::Entity && !drawing::leavesInPlace(drawing, record, wanted))
        return false;
    const drawing::NameId type = database.record(record).type;
    return drawing::hasValidValues(drawing, type, wanted) ||
           drawing::hasValidValues(drawing, type, wanted, database.groups(record));
}
