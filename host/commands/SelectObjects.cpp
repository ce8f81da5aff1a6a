#include "host/commands/SelectObjects.h"

#include "host/commands/Picking.h"
#include "host/drawing/LayerState.h"

#include <QString>

#include <algorithm>
#include <array>
#include <unordered_set>

namespace commands {

namespace {

// The selection as it grows.
class Collected
{
public:
    Collected(Context &context, Purpose purpose) : m_context(context), m_purpose(purpose) {}

    void take(const Selection &more, const SharedWay &way = nullptr)
    {
        std::size_t found = 0, duplicates = 0, locked = 0;
        drawing::LayerStates layers(m_context.drawing());
        for (const RecordId entity : more) {
            m_context.session().pulse();
            if (!isThere(entity))
                continue;
            ++found;
            if (m_purpose == Purpose::Edit && layers.of(entity).isLocked)
                ++locked;
            else if (!change(entity, way))
                ++duplicates;
        }
        if (isRemoving)
            dropRemoved();
        m_context.session().showSelected(entities);
        tell(found, duplicates, locked);
    }
    void takeLastBack()
    {
        if (entities.empty())
            return;
        m_members.erase(entities.back());
        ways.erase(entities.back());
        entities.pop_back();
        m_context.session().showSelected(entities);
    }
    bool isRemoving = false;
    Selection entities;
    SelectionWays ways;

private:
    bool isThere(RecordId entity) const
    {
        const drawing::Record &record = m_context.database().record(entity);
        return record.kind == drawing::RecordKind::Entity && !record.isGone();
    }
    bool change(RecordId entity, const SharedWay &way)
    {
        if (isRemoving) {
            ways.erase(entity);
            return m_members.erase(entity) != 0;
        }
        if (!m_members.insert(entity).second)
            return false;
        entities.push_back(entity);
        if (way)
            ways.emplace(entity, way);
        return true;
    }
    void dropRemoved()
    {
        std::erase_if(entities, [this](RecordId entity) { return m_members.count(entity) == 0; });
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
    std::unordered_set<RecordId> m_members; // those of `entities`
};

Selection lastEntity(Context &context)
{
    const RecordId last = newestEntity(context.session());
    return last != drawing::NoRecord ? Selection{last} : Selection();
}

// What an answer selects, and how.
struct Found
{
    Selection entities;
    SharedWay way;
};

Found withinPolygon(Context &context, const std::vector<Point> &polygon, Reach reach)
{
    const auto kind = reach == Reach::Inside ? SelectionWay::Kind::Inside : SelectionWay::Kind::Crossing;
    return {entitiesIn(context.session(), polygon, reach), sharedWay(kind, polygon)};
}

Found given(const Input &input)
{
    if (const auto *picked = std::get_if<PickedEntity>(&input))
        return {{picked->entity}, picked->at ? sharedWay(SelectionWay::Kind::Pick, {*picked->at}) : nullptr};
    const auto *selection = std::get_if<Selection>(&input);
    return {selection ? *selection : Selection(), nullptr};
}

Task<Point> oppositeCorner(Context &context, const Point first)
{
    const auto corner = co_await context.ask().corner({u"Specify opposite corner: ", {}, Enter::Refused, first});
    co_return corner.value;
}

// A place: what is there, or the first corner of a rectangle. Drawn to the right it takes what lies in it, to the left
// also what it crosses.
Task<Found> picked(Context &context, const Point place)
{
    if (const RecordId entity = entityAt(context.session(), place); entity != drawing::NoRecord)
        co_return Found{{entity}, sharedWay(SelectionWay::Kind::Pick, {place})};
    const Point other = co_await oppositeCorner(context, place);
    co_return withinPolygon(context, rectangle(place, other), other.x < place.x ? Reach::Crossing : Reach::Inside);
}

Task<Found> inRectangle(Context &context, Reach reach)
{
    const auto first = co_await context.ask().point({u"Specify first corner: ", {}, Enter::Refused});
    const Point other = co_await oppositeCorner(context, first.value);
    co_return withinPolygon(context, rectangle(first.value, other), reach);
}

Task<std::vector<Point>> askPlaces(Context &context)
{
    std::vector<Point> places;
    for (;;) {
        const auto place = co_await context.ask().point({u"Specify next point or [Undo]: ", u"Undo"});
        if (place.isNothing())
            co_return places;
        if (place.hasValue())
            places.push_back(place.value);
        else if (!places.empty())
            places.pop_back();
    }
}

Task<Found> inPolygon(Context &context, Reach reach)
{
    const std::vector<Point> places = co_await askPlaces(context);
    co_return places.size() > 2 ? withinPolygon(context, places, reach) : Found();
}

Task<Found> alongFence(Context &context)
{
    const std::vector<Point> places = co_await askPlaces(context);
    co_return places.size() > 1
        ? Found{entitiesCrossed(context.session(), places), sharedWay(SelectionWay::Kind::Fence, places)}
        : Found();
}

bool isRegion(const std::u16string &keyword)
{
    constexpr std::array<std::u16string_view, 5> regions = {u"Window", u"Crossing", u"WPolygon", u"CPolygon", u"Fence"};
    return std::ranges::find(regions, keyword) != regions.end();
}

// What one of the keywords that ask for places takes.
Task<Found> inRegion(Context &context, const std::u16string &keyword)
{
    if (keyword == u"Fence")
        return alongFence(context);
    const bool isCrossing = keyword.starts_with(u'C');
    const Reach reach = isCrossing ? Reach::Crossing : Reach::Inside;
    return keyword.ends_with(u"olygon") ? inPolygon(context, reach) : inRectangle(context, reach);
}

enum class Answers { UntilEnter, One };

Task<Selection> select(Context &context, Purpose purpose, Answers answers)
{
    Collected collected(context, purpose);
    if (context.session().integer(u"PICKFIRST") != 0)
        if (const Selection implied = context.takePreselected(); !implied.empty())
            collected.take(implied);
    bool wantsMore = collected.entities.empty();
    while (wantsMore) {
        const std::u16string_view prompt = collected.isRemoving ? u"Remove objects: " : u"Select objects: ";
        const Reply<Input> reply = co_await context.ask().any(
            InputKind::Objects,
            {prompt,
             u"Window Crossing WPolygon CPolygon Fence Last Previous ALL Add Remove Undo AUto SIngle Multiple Group"});
        if (reply.isNothing())
            wantsMore = false;
        else if (reply.is(u"Add") || reply.is(u"Remove"))
            collected.isRemoving = reply.is(u"Remove");
        else if (reply.is(u"SIngle"))
            answers = Answers::One;
        else if (reply.is(u"Last"))
            collected.take(lastEntity(context));
        else if (reply.is(u"Previous"))
            collected.take(context.session().previousSelection());
        else if (reply.is(u"ALL"))
            collected.take(thawedEntitiesInSight(context.session()));
        else if (reply.is(u"Undo"))
            collected.takeLastBack();
        else if (isRegion(reply.keyword)) {
            const Found found = co_await inRegion(context, reply.keyword);
            collected.take(found.entities, found.way);
        } else if (const std::optional<Point> place = pointOf(reply.value, context.session());
                   reply.hasValue() && place) {
            const Found found = co_await picked(context, *place);
            collected.take(found.entities, found.way);
        } else if (const Found found = given(reply.value); reply.hasValue() && !found.entities.empty())
            collected.take(found.entities, found.way);
        else if (reply.hasValue())
            context.session().print(u"\nInvalid selection\n");
        wantsMore = wantsMore && (answers == Answers::UntilEnter || collected.entities.empty());
    }
    context.session().setPreviousSelection(collected.entities);
    context.memory().ways = std::move(collected.ways);
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
