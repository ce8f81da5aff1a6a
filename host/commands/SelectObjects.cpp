#include "host/commands/SelectObjects.h"

#include "host/drawing/Blocks.h"

#include <QString>

#include <algorithm>

namespace commands {

namespace {

constexpr int LayerFlagsCode = 70;
constexpr std::int64_t FrozenLayer = 1, LockedLayer = 4;

std::int64_t layerFlags(const drawing::Drawing &drawing, RecordId entity)
{
    const RecordId layer = drawing.tables().find(drawing::known::Layer, drawing.database().name(entity));
    if (layer == drawing::NoRecord)
        return 0;
    const std::optional<drawing::Group> flags = drawing.database().firstGroup(layer, LayerFlagsCode);
    const auto *value = flags ? std::get_if<std::int64_t>(&flags->value) : nullptr;
    return value ? *value : 0;
}

// The selection as it grows.
class Collected
{
public:
    Collected(Context &context, Purpose purpose) : m_context(context), m_purpose(purpose) {}

    void take(const Selection &more)
    {
        std::size_t found = 0, duplicates = 0, locked = 0;
        for (const RecordId entity : more) {
            if (!isThere(entity))
                continue;
            ++found;
            if (m_purpose == Purpose::Edit && (layerFlags(m_context.drawing(), entity) & LockedLayer) != 0)
                ++locked;
            else if (!change(entity))
                ++duplicates;
        }
        tell(found, duplicates, locked);
    }
    bool isRemoving = false;
    Selection entities;

private:
    bool isThere(RecordId entity) const
    {
        const drawing::Record &record = m_context.database().record(entity);
        return record.kind == drawing::RecordKind::Entity && !record.isGone();
    }
    bool change(RecordId entity)
    {
        const auto place = std::find(entities.begin(), entities.end(), entity);
        if (isRemoving == (place == entities.end()))
            return false;
        if (isRemoving)
            entities.erase(place);
        else
            entities.push_back(entity);
        return true;
    }
    void tell(std::size_t found, std::size_t duplicates, std::size_t locked)
    {
        QString text = QStringLiteral("%1 found").arg(found);
        if (duplicates > 0 && !isRemoving)
            text += QStringLiteral(" (%1 duplicate)").arg(duplicates);
        if (isRemoving)
            text += QStringLiteral(", %1 removed").arg(found - duplicates - locked);
        m_context.say(text.toStdU16String());
        if (locked > 0)
            m_context.say(QStringLiteral("%1 was on a locked layer.").arg(locked).toStdU16String());
    }

    Context &m_context;
    Purpose m_purpose;
};

// All of the current space that is not on frozen layers.
Selection allEntities(Context &context)
{
    Selection entities;
    const drawing::Database &database = context.database();
    const RecordId section = database.section(drawing::known::Entities);
    if (section == drawing::NoRecord)
        return entities;
    const bool onPaper = context.session().isPaperSpaceCurrent();
    for (RecordId id = database.firstIn(section); id != drawing::NoRecord; id = database.nextIn(id)) {
        const drawing::Record &record = database.record(id);
        if (!record.isGone() && !database.isPart(id) && record.has(drawing::Record::PaperSpace) == onPaper &&
            (layerFlags(context.drawing(), id) & FrozenLayer) == 0)
            entities.push_back(id);
    }
    return entities;
}

Selection lastEntity(Context &context)
{
    const RecordId last = drawing::lastEntity(context.database());
    return last != drawing::NoRecord ? Selection{last} : Selection();
}

Selection entitiesOf(const Input &input)
{
    if (const auto *picked = std::get_if<PickedEntity>(&input))
        return {picked->entity};
    const auto *selection = std::get_if<Selection>(&input);
    return selection ? *selection : Selection();
}

enum class Answers { UntilEnter, One };

Task<Selection> select(Context &context, Purpose purpose, Answers answers)
{
    Collected collected(context, purpose);
    if (context.session().integer(u"PICKFIRST") != 0)
        if (const Selection implied = context.session().takeImpliedSelection(); !implied.empty())
            collected.take(implied);
    bool wantsMore = collected.entities.empty();
    while (wantsMore) {
        const std::u16string_view prompt = collected.isRemoving ? u"Remove objects: " : u"Select objects: ";
        const Reply<Input> reply = co_await context.ask().any(
            InputKind::Objects, {prompt, u"Last Previous ALL Add Remove Undo AUto SIngle Multiple Group"});
        if (reply.isNothing())
            wantsMore = false;
        else if (reply.is(u"Add") || reply.is(u"Remove"))
            collected.isRemoving = reply.is(u"Remove");
        else if (reply.is(u"Last"))
            collected.take(lastEntity(context));
        else if (reply.is(u"Previous"))
            collected.take(context.session().previousSelection());
        else if (reply.is(u"ALL"))
            collected.take(allEntities(context));
        else if (reply.is(u"Undo") && !collected.entities.empty())
            collected.entities.pop_back();
        else if (const Selection entities = entitiesOf(reply.value); reply.hasValue() && !entities.empty())
            collected.take(entities);
        else if (reply.hasValue())
            context.session().print(u"\nInvalid selection\n");
        wantsMore = wantsMore && (answers == Answers::UntilEnter || collected.entities.empty());
    }
    context.session().setPreviousSelection(collected.entities);
    co_return collected.entities;
}

} // namespace

Task<Selection> selectObjects(Context &context, Purpose purpose)
{
    return select(context, purpose, Answers::UntilEnter);
}

Task<Selection> selectOnce(Context &context, Purpose purpose)
{
    return select(context, purpose, Answers::One);
}

} // namespace commands
