// Blocks: INSERT, BLOCK, EXPLODE.

#include "host/commands/Colors.h"
#include "host/commands/Commands.h"
#include "host/commands/DimensionText.h"
#include "host/commands/InsertedDrawing.h"
#include "host/commands/NewEntity.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/Blocks.h"
#include "host/drawing/edit/CopyLinks.h"
#include "host/drawing/edit/Explode.h"
#include "host/drawing/edit/Stretch.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::integerGroup;
using drawing::integerOf;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::realOf;
using drawing::textGroup;
using drawing::textOf;
using drawing::groupcode::FirstX;
using drawing::known::Block;

namespace {

enum Code : int {
    ValueCode = 1,
    TagCode = 2,
    PromptCode = 3,
    AlignmentCode = 11,
    HeightCode = 40,
    WidthCode = 41,
    FollowCode = 66,
    RotationCode = 50,
    FlagsCode = 70,
};

enum AttributeFlag : std::int64_t { ConstantAttribute = 2, VerifiedAttribute = 4, PresetAttribute = 8 };
constexpr std::int64_t HasAttributes = 2; // of a block's flags

// How a block is put into the drawing.
struct Insertion
{
    std::u16string name;
    bool explodes = false;  // its name was given with an asterisk
    bool isForThis = false; // the block was made of a file
    Point place;
    double x = 1, y = 1, z = 1;
    double rotation = 0; // radians
    bool asksScale = true, asksRotation = true;
};

Command listBlocks(Context &context)
{
    const auto names = co_await context.ask().string({u"Enter block(s) to list <*>: "});
    context.session().print(u"\nDefined blocks:");
    for (const RecordId block : recordsLike(context, Block, names.hasValue() ? names.value : u"*"))
        if (const std::u16string name = context.database().name(block); !name.starts_with(u'*'))
            context.session().print(u'\n' + name);
    context.session().print(u"\n");
}

// Empty when Enter was pressed; "?" lists the blocks that have names.
Task<std::u16string> askBlockName(Context &context, const std::u16string prompt, Enter enter)
{
    for (;;) {
        const auto name = co_await context.ask().string({prompt, {}, enter});
        if (name.value != u"?")
            co_return name.value;
        co_await listBlocks(context);
    }
}

Task<Insertion> askName(Context &context)
{
    const std::u16string last = context.session().text(u"INSNAME");
    const std::u16string prompt = u"Enter block name or [?]" + (last.empty() ? last : u" <" + last + u">") + u": ";
    const std::u16string typed = co_await askBlockName(context, prompt, Enter::Allowed);
    Insertion insertion;
    insertion.name = typed.empty() ? last : typed;
    if (insertion.name.starts_with(u'*')) {
        insertion.explodes = true;
        insertion.name.erase(0, 1);
    }
    const InsertedBlock block = co_await insertedBlock(context, insertion.name);
    insertion.name = block.name;
    insertion.isForThis = block.isNew;
    context.session().assign(u"INSNAME", insertion.name);
    co_return insertion;
}

// What is settled before the point is not asked for behind it.
Command askPlace(Context &context, Insertion &insertion)
{
    for (;;) {
        const auto place = co_await context.ask().point(
            {u"Specify insertion point or [Scale/X/Y/Z/Rotate]: ", u"Scale X Y Z Rotate", Enter::Refused});
        if (place.hasValue()) {
            insertion.place = place.value;
            co_return;
        }
        if (place.is(u"Rotate")) {
            const auto angle = co_await context.ask().direction({u"Specify rotation angle <0>: "});
            insertion.rotation = angle.value;
            insertion.asksRotation = false;
            continue;
        }
        const auto factor = co_await context.ask().distance({u"Specify scale factor <1>: "}, Nonzero);
        const double value = factor.hasValue() ? factor.value : 1;
        insertion.asksScale = false;
        if (place.is(u"X") || place.is(u"Scale"))
            insertion.x = value;
        if (place.is(u"Y") || place.is(u"Scale"))
            insertion.y = value;
        if (place.is(u"Z") || place.is(u"Scale"))
            insertion.z = value;
    }
}

Command askScales(Context &context, Insertion &insertion)
{
    if (insertion.explodes) {
        const auto factor =
            co_await context.ask().distance({u"Scale factor <1>: ", {}, Enter::Allowed, insertion.place}, Nonzero);
        insertion.x = insertion.y = insertion.z = factor.hasValue() ? factor.value : 1;
        co_return;
    }
    auto x = co_await context.ask().distance(
        {u"Enter X scale factor or [XYZ] <1>: ", u"XYZ", Enter::Allowed, insertion.place}, Nonzero);
    const bool isInSpace = x.is(u"XYZ");
    if (isInSpace)
        x = co_await context.ask().distance({u"Specify X scale factor <1>: ", {}, Enter::Allowed, insertion.place},
                                            Nonzero);
    insertion.x = x.hasValue() ? x.value : 1;
    const auto y = co_await context.ask().distance(
        {u"Enter Y scale factor <use X scale factor>: ", {}, Enter::Allowed, insertion.place}, Nonzero);
    insertion.y = y.hasValue() ? y.value : insertion.x;
    insertion.z = insertion.x;
    if (isInSpace) {
        const auto z = co_await context.ask().distance(
            {u"Specify Z scale factor <use X scale factor>: ", {}, Enter::Allowed, insertion.place}, Nonzero);
        insertion.z = z.hasValue() ? z.value : insertion.x;
    }
}

GroupList insertGroups(Context &context, const Insertion &insertion, const WorkPlane &plane)
{
    GroupList groups = newEntity(context, u"INSERT");
    groups.push_back(
        textGroup(drawing::groupcode::Name, context.database().name(findRecord(context, Block, insertion.name))));
    groups.push_back(pointGroup(FirstX, plane.object(insertion.place)));
    groups.push_back(realGroup(WidthCode, insertion.x));
    groups.push_back(realGroup(WidthCode + 1, insertion.y));
    groups.push_back(realGroup(WidthCode + 2, insertion.z));
    groups.push_back(realGroup(RotationCode, degrees(plane.objectAngle(insertion.rotation))));
    if (plane.normal() != Vector{0, 0, 1})
        groups.push_back(pointGroup(210, plane.normal()));
    return groups;
}

std::vector<RecordId> attributeDefinitions(Context &context, const std::u16string &block)
{
    std::vector<RecordId> definitions;
    const drawing::Database &database = context.database();
    for (RecordId id = database.firstIn(findRecord(context, Block, block)); id != drawing::NoRecord;
         id = database.nextIn(id))
        if (!database.record(id).isGone() && database.type(id) == u"ATTDEF" &&
            (integerOf(database.groups(id), FlagsCode) & ConstantAttribute) == 0)
            definitions.push_back(id);
    return definitions;
}

// The attribute that a definition gives in an insert: where the definition's text comes to stand, with its own value.
GroupList attribute(Context &context, const GroupList &definition, const GroupList &insert, const std::u16string &value)
{
    const geometry::Matrix toObject = geometry::inverse(geometry::Matrix::ofExtrusion(drawing::extrusionOf(insert))) *
                                      drawing::insertMatrix(context.drawing(), insert);
    const double x = realOf(insert, WidthCode, 1), y = realOf(insert, WidthCode + 1, 1);
    GroupList groups = newEntity(context, u"ATTRIB");
    drawing::setGroup(groups, textGroup(drawing::groupcode::Layer, textOf(definition, drawing::groupcode::Layer)));
    groups.push_back(pointGroup(FirstX, toObject.place(drawing::placeOf(definition, FirstX))));
    groups.push_back(realGroup(HeightCode, realOf(definition, HeightCode) * std::abs(y)));
    groups.push_back(textGroup(ValueCode, value));
    groups.push_back(
        realGroup(RotationCode, std::fmod(realOf(definition, RotationCode) + realOf(insert, RotationCode), 360)));
    groups.push_back(realGroup(WidthCode, realOf(definition, WidthCode, 1) * std::abs(x / y)));
    for (const int code : {51, 7, 71, 72})
        if (const drawing::Group *group = drawing::findGroup(definition, code))
            groups.push_back(*group);
    if (drawing::hasGroup(definition, AlignmentCode))
        groups.push_back(pointGroup(AlignmentCode, toObject.place(drawing::placeOf(definition, AlignmentCode))));
    groups.push_back(textGroup(TagCode, textOf(definition, TagCode)));
    for (const int code : {70, 74, 210})
        if (const drawing::Group *group = drawing::findGroup(definition, code))
            groups.push_back(*group);
    return groups;
}

// With the definition's prompt. Enter takes what stands there.
Task<std::u16string> askValue(Context &context, const RecordId definition, const std::u16string standard)
{
    const GroupList groups = context.database().groups(definition);
    const std::u16string words = textOf(groups, PromptCode), text = words.empty() ? textOf(groups, TagCode) : words;
    const std::u16string prompt = text + (standard.empty() ? u"" : u" <" + standard + u">") + u": ";
    const auto value = co_await context.ask().string({prompt});
    co_return value.hasValue() ? value.value : standard;
}

// Those that are not preset are asked for, and then those to be verified once more; with ATTREQ 0 the defaults are
// taken.
Task<std::vector<std::u16string>> askValues(Context &context, const std::vector<RecordId> &definitions)
{
    std::vector<std::u16string> values;
    std::vector<std::size_t> asked, verified;
    for (std::size_t index = 0; index < definitions.size(); ++index) {
        const GroupList groups = context.database().groups(definitions[index]);
        values.push_back(textOf(groups, ValueCode));
        const std::int64_t flags = integerOf(groups, FlagsCode);
        if (context.session().integer(u"ATTREQ") == 0 || (flags & PresetAttribute) != 0)
            continue;
        asked.push_back(index);
        if ((flags & VerifiedAttribute) != 0)
            verified.push_back(index);
    }
    for (const std::size_t index : asked)
        values[index] = co_await askValue(context, definitions[index], values[index]);
    if (!verified.empty())
        context.say(u"Verify attribute values");
    for (const std::size_t index : verified)
        values[index] = co_await askValue(context, definitions[index], values[index]);
    co_return values;
}

// The parts of an object; those of an insert may have another size, which their dimensions show when it is the same in
// all directions.
std::vector<RecordId> exploded(Context &context, RecordId entity)
{
    const GroupList groups = context.database().groups(entity);
    const bool isInsert = context.database().record(entity).type == drawing::known::Insert;
    const geometry::Matrix matrix = isInsert ? drawing::insertMatrix(context.drawing(), groups) : geometry::Matrix();
    const double scale = drawing::isSimilarity(matrix) ? drawing::Similarity{matrix}.scale() : 1;
    const std::vector<RecordId> parts = drawing::explodeEntity(context.drawing(), entity);
    for (const RecordId part : parts)
        showNewMeasurement(context, part, scale);
    return parts;
}

// The objects of a block, put into the space that holds the insert; the insert itself where that cannot be. A block
// that was made for them is not kept.
void addExploded(Context &context, const GroupList &insert, bool isForThis)
{
    const RecordId block = findRecord(context, Block, textOf(insert, drawing::groupcode::Name));
    const bool isEmpty = drawing::entitiesIn(context.database(), block).empty();
    if (!isEmpty && exploded(context, addEntity(context, insert)).empty())
        throw CommandError{u"The block could not be exploded."};
    if (isForThis)
        drawing::eraseBlock(context.database(), context.tables(), block);
}

bool containsBlock(Context &context, const Selection &entities, const std::u16string &block)
{
    return std::ranges::any_of(entities, [&](RecordId entity) {
        return context.database().record(entity).type == drawing::known::Insert &&
               drawing::showsBlock(context.database(), context.tables(),
                                   textOf(context.database().groups(entity), drawing::groupcode::Name), block);
    });
}

bool containsAttributes(Context &context, const Selection &entities)
{
    return std::ranges::any_of(entities, [&](RecordId entity) { return context.database().type(entity) == u"ATTDEF"; });
}

} // namespace

Command insert(Context &context)
{
    Insertion insertion = co_await askName(context);
    co_await askPlace(context, insertion);
    if (insertion.asksScale)
        co_await askScales(context, insertion);
    if (insertion.asksRotation) {
        const auto rotation =
            co_await context.ask().direction({u"Specify rotation angle <0>: ", {}, Enter::Allowed, insertion.place});
        insertion.rotation = rotation.value;
    }
    const WorkPlane plane(context.session());
    GroupList groups = insertGroups(context, insertion, plane);
    if (insertion.explodes)
        co_return addExploded(context, groups, insertion.isForThis);
    const std::vector<RecordId> definitions = attributeDefinitions(context, insertion.name);
    const std::vector<std::u16string> values = co_await askValues(context, definitions);
    if (!definitions.empty())
        groups.push_back(integerGroup(FollowCode, 1));
    const RecordId added = addEntity(context, groups);
    for (std::size_t index = 0; index < definitions.size(); ++index)
        addPart(context, added,
                attribute(context, context.database().groups(definitions[index]), groups, values[index]));
    if (!definitions.empty())
        addPart(context, added, newEntity(context, u"SEQEND"));
}

// The objects go into the block and out of the drawing.
Command block(Context &context)
{
    const std::u16string name = co_await askBlockName(context, u"Enter block name or [?]: ", Enter::Refused);
    if (!isValidName(name))
        throw CommandError{u"Invalid block name."};
    if (findRecord(context, Block, name) != drawing::NoRecord) {
        const bool redefines = co_await mayRedefine(context, name);
        if (!redefines)
            co_return;
    }
    const WorkPlane plane(context.session());
    const auto base = co_await context.ask().point({u"Specify insertion base point: ", {}, Enter::Refused});
    const Selection entities = co_await selectObjects(context);
    if (containsBlock(context, entities, name))
        throw CommandError{u"Block " + name + u" references itself"};
    drawing::Database &database = context.database();
    const std::int64_t flags = containsAttributes(context, entities) ? HasAttributes : 0;
    const RecordId there = drawing::defineBlock(database, context.tables(), {name, {}, flags});
    if (there == drawing::NoRecord)
        throw CommandError{u"The block cannot be made."};
    const drawing::Similarity toBlock{geometry::inverse(geometry::Matrix::translation(plane.world(base.value))), false};
    std::vector<drawing::EntityCopy> copies;
    for (const RecordId entity : entities)
        if (const RecordId copy = drawing::copyTransformed(context.drawing(), entity, {there, false}, toBlock);
            copy != drawing::NoRecord)
            copies.push_back({entity, copy});
    linkCopies(context.drawing(), copies);
    for (const drawing::EntityCopy &one : copies)
        database.erase(one.original);
    if (const std::size_t left = entities.size() - copies.size(); left > 0)
        context.say(shown(std::int64_t(left)) + u" could not be put into the block.");
}

// Takes one selection and does not wait for Enter: programs do not send one. "Previous" is what it gives.
Command explode(Context &context)
{
    const Selection entities = co_await selectOnce(context);
    Selection parts;
    std::size_t left = 0;
    for (const RecordId entity : entities) {
        const std::vector<RecordId> ofThis = exploded(context, entity);
        parts.insert(parts.end(), ofThis.begin(), ofThis.end());
        left += ofThis.empty() ? 1 : 0;
    }
    if (!parts.empty())
        context.session().setPreviousSelection(parts);
    if (left > 0)
        context.say(shown(std::int64_t(left)) + u" could not be exploded.");
}

} // namespace commands
