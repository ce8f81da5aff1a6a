// Selection sets.

#include "host/commands/Picking.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/CurveWay.h"
#include "host/drawing/selection/Candidates.h"
#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/builtins/PickErrors.h"
#include "host/kernel/drawing/EntityName.h"
#include "host/kernel/selection/SelectionFilter.h"
#include "host/kernel/selection/SelectionMode.h"
#include "lisp/LispStatus.h"

using commands::Point;
using commands::SelectionWay;
using commands::SharedWay;
using drawing::Drawing;
using drawing::NoRecord;
using drawing::RecordId;
using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

// Selection sets belong to the drawing of their document; what was selected before another was opened is passed over.
Value newSet(Document &document, const std::vector<RecordId> &entities)
{
    const Value value = document.machine().heap().newNative<SelectionSet>(document.selectionSets());
    auto *set = static_cast<SelectionSet *>(value.asObject());
    for (const RecordId entity : entities)
        set->add(entity);
    return value;
}

SelectionSet &setArgument(Args arguments, std::uint32_t index)
{
    return *arguments.native<SelectionSet>(index, u"lselsetp");
}

RecordId entityArgument(Document &document, Args arguments, std::uint32_t index)
{
    const RecordId record = recordOf(document.drawing(), arguments.native<EntityName>(index, u"lentityp")->name);
    if (record == NoRecord)
        lisp::badArgument(u"lentityp", arguments[index]);
    return record;
}

Point placeOf(Value value)
{
    const std::optional<PointList> point = pointListOf(value);
    if (!point)
        lisp::fail(u"bad SSGET list");
    return {point->point.x, point->point.y, point->point.z};
}

std::vector<Point> placesOf(Value list)
{
    std::vector<Point> places;
    for (const Value point : lisp::ListItems(list))
        places.push_back(placeOf(point));
    return places;
}

// What ssget was asked, and how it finds it.
class Request
{
public:
    Request(Machine &machine, Args arguments) : m_document(Document::of(machine)), m_arguments(arguments)
    {
        if (m_arguments[0].isString())
            m_mode = SelectionMode(m_arguments.text(m_next++));
    }

    std::vector<RecordId> entities()
    {
        std::vector<RecordId> found = candidates();
        const SelectionFilter filter(next());
        if (m_arguments[m_next].isTrue())
            lisp::fail(u"bad SSGET list");
        const Drawing &drawing = m_document.drawing();
        std::erase_if(found, [&](RecordId entity) {
            return drawing.database().record(entity).isGone() || !filter.accepts(drawing, entity) ||
                   (m_mode.refusesLocked() && selection::isOnLockedLayer(drawing, entity));
        });
        if (m_mode.takesOne() && found.size() > 1)
            found.erase(found.begin() + 1, found.end());
        return found;
    }

    SharedWay wayOf(RecordId entity) const
    {
        const auto found = m_ways.find(entity);
        return found != m_ways.end() ? found->second : m_way;
    }

private:
    Value next() { return m_next < m_arguments.count() ? m_arguments[m_next++] : Value::nil(); }

    std::vector<RecordId> candidates()
    {
        using Kind = SelectionMode::Kind;
        switch (m_mode.kind()) {
        case Kind::Everything:
            return newestFirst(selection::entitiesOfAllLayouts(m_document.drawing()));
        case Kind::AllThawed:
            return newestFirst(commands::thawedEntitiesInSight(m_document.session()));
        case Kind::Last:
            return last();
        case Kind::Previous:
            return m_document.session().previousSelection();
        case Kind::Implied:
            return m_document.session().impliedSelection();
        case Kind::Window:
        case Kind::Crossing: {
            const Point corner = placeOf(next());
            return within(commands::rectangle(corner, placeOf(next())));
        }
        case Kind::WindowPolygon:
        case Kind::CrossingPolygon:
            return within(placesOf(next()));
        case Kind::Fence:
            return along(placesOf(next()));
        case Kind::Interactive:
            break;
        }
        return pointListOf(m_arguments[m_next]) ? under(placeOf(next())) : asked();
    }

    // Programs count on the entity that was made last being the first.
    static std::vector<RecordId> newestFirst(std::vector<RecordId> entities)
    {
        std::reverse(entities.begin(), entities.end());
        return entities;
    }

    std::vector<RecordId> along(const std::vector<Point> &fence)
    {
        m_way = commands::sharedWay(SelectionWay::Kind::Fence, fence);
        return newestFirst(commands::entitiesCrossed(m_document.session(), fence));
    }

    std::vector<RecordId> within(const std::vector<Point> &polygon)
    {
        const auto kind = m_mode.crosses() ? SelectionWay::Kind::Crossing : SelectionWay::Kind::Inside;
        m_way = commands::sharedWay(kind, polygon);
        const auto reach = m_mode.crosses() ? commands::Reach::Crossing : commands::Reach::Inside;
        return newestFirst(commands::entitiesIn(m_document.session(), polygon, reach));
    }

    std::vector<RecordId> last() const
    {
        const RecordId entity = commands::newestEntity(m_document.session());
        return entity != NoRecord ? std::vector<RecordId>{entity} : std::vector<RecordId>();
    }

    std::vector<RecordId> under(const Point &place)
    {
        m_way = commands::sharedWay(SelectionWay::Kind::Pick, {place});
        const RecordId found = commands::entityAt(m_document.session(), place);
        return found != NoRecord ? std::vector<RecordId>{found} : std::vector<RecordId>();
    }

    // The person selects, as at the prompt of a command. One that waits meanwhile is none of its business.
    std::vector<RecordId> asked()
    {
        const commands::CommandRow &question =
            m_mode.takesOne() ? commands::objectQuestion() : commands::objectsQuestion();
        if (m_document.commandLine().askInside(question) != commands::CommandLine::Result::Taken)
            lisp::fail(u"Function cancelled");
        m_ways = m_document.commandLine().selectionWays();
        return m_document.session().previousSelection();
    }

    Document &m_document;
    Args m_arguments;
    std::uint32_t m_next = 0;
    SelectionMode m_mode;
    SharedWay m_way; // of all, or
    commands::SelectionWays m_ways;
};

Value ssget(Machine &machine, Args arguments)
{
    Document &document = Document::of(machine);
    Request request(machine, arguments);
    const std::vector<RecordId> entities = request.entities();
    if (entities.empty())
        return Value::nil();
    document.session().setPreviousSelection(entities);
    const Value set = newSet(document, {});
    for (const RecordId entity : entities)
        static_cast<SelectionSet *>(set.asObject())->add(entity, request.wayOf(entity));
    return set;
}

// (ssadd), (ssadd ENAME) make a set; (ssadd ENAME SET) adds to one.
Value ssadd(Machine &machine, Args arguments)
{
    Document &document = Document::of(machine);
    if (!arguments.has(0))
        return newSet(document, {});
    const RecordId entity = entityArgument(document, arguments, 0);
    if (!arguments.has(1))
        return newSet(document, {entity});
    setArgument(arguments, 1).add(entity);
    return arguments[1];
}

Value ssdel(Machine &machine, Args arguments)
{
    const RecordId entity = entityArgument(Document::of(machine), arguments, 0);
    return setArgument(arguments, 1).remove(entity) ? arguments[1] : Value::nil();
}

Value ssmemb(Machine &machine, Args arguments)
{
    const RecordId entity = entityArgument(Document::of(machine), arguments, 0);
    return setArgument(arguments, 1).contains(entity) ? arguments[0] : Value::nil();
}

Value sslength(Machine &, Args arguments)
{
    return Value::integer(static_cast<std::int32_t>(setArgument(arguments, 0).size()));
}

Value ssname(Machine &machine, Args arguments)
{
    const SelectionSet &set = setArgument(arguments, 0);
    const double index = arguments.number(1);
    if (index < 0 || index >= static_cast<double>(set.size()))
        return Value::nil();
    return entityName(machine, Document::of(machine).drawing(), set.at(static_cast<std::size_t>(index)));
}

// Selects on the screen: what a command takes without asking when PICKFIRST is 1.
Value sssetfirst(Machine &machine, Args arguments)
{
    Document &document = Document::of(machine);
    const bool hasSet = arguments[1].isTrue();
    document.session().setImpliedSelection(hasSet ? setArgument(arguments, 1).entities() : std::vector<RecordId>());
    lisp::ListBuilder both(machine.heap());
    both.add(arguments[0]);
    both.add(arguments[1]);
    return both.list();
}

Value ssgetfirst(Machine &machine, Args)
{
    Document &document = Document::of(machine);
    const std::vector<RecordId> &implied = document.session().impliedSelection();
    lisp::ListBuilder both(machine.heap());
    both.add(Value::nil());
    both.add(implied.empty() ? Value::nil() : newSet(document, implied));
    return both.list();
}

// Where a fence meets a curve.
std::vector<Point> placesOnFence(Document &document, RecordId entity, const std::vector<Point> &fence)
{
    const std::optional<drawing::CurveWay> curve = drawing::CurveWay::of(document.drawing(), entity);
    const commands::WorkPlane plane(document.session());
    std::vector<Point> places;
    for (std::size_t i = 0; curve && i + 1 < fence.size(); ++i) {
        const geometry::Course side(geometry::Line{plane.world(fence[i]), plane.world(fence[i + 1])});
        for (const double place : curve->crossings(side, geometry::Span::Bounded))
            places.push_back(plane.user(curve->at(place)));
    }
    return places;
}

// What ssnamex tells: (METHOD ENAME 0 ...) of each entity, behind them the corners of the windows and polygons that
// these name by their numbers.
class WaysTold
{
public:
    explicit WaysTold(Document &document) : m_document(document), m_list(document.machine().heap()) {}

    void add(RecordId entity, const SelectionWay *way)
    {
        using Kind = SelectionWay::Kind;
        const Kind kind = way ? way->kind : Kind::Other;
        lisp::ListBuilder one(m_document.machine().heap());
        one.add(Value::integer(static_cast<std::int32_t>(kind)));
        one.add(entityName(m_document.machine(), m_document.drawing(), entity));
        one.add(Value::integer(0));
        if (kind == Kind::Pick)
            addPlaces(one, way->places);
        else if (kind == Kind::Fence)
            addPlaces(one, placesOnFence(m_document, entity, way->places));
        else if (kind != Kind::Other)
            one.add(Value::integer(numberOf(way)));
        m_list.add(one.list());
    }
    Value list()
    {
        for (const SelectionWay *polygon : m_polygons) {
            lisp::ListBuilder one(m_document.machine().heap());
            one.add(Value::integer(numberOf(polygon)));
            addPlaces(one, polygon->places);
            m_list.add(one.list());
        }
        return m_list.list();
    }

private:
    // Each as a line through the place that goes the way the person looks.
    void addPlaces(lisp::ListBuilder &list, const std::vector<Point> &places)
    {
        for (const Point &place : places) {
            lisp::ListBuilder both(m_document.machine().heap());
            both.add(Value::integer(0));
            both.add(pointValue(m_document.machine(), {place.x, place.y, place.z}, 3));
            list.add(both.list());
        }
    }
    std::int32_t numberOf(const SelectionWay *polygon) // -1, -2, ...
    {
        const auto found = std::ranges::find(m_polygons, polygon);
        const auto index = found - m_polygons.begin();
        if (found == m_polygons.end())
            m_polygons.push_back(polygon);
        return -1 - static_cast<std::int32_t>(index);
    }

    Document &m_document;
    lisp::ListBuilder m_list;
    std::vector<const SelectionWay *> m_polygons;
};

Value ssnamex(Machine &machine, Args arguments)
{
    const SelectionSet &set = setArgument(arguments, 0);
    const std::size_t first = arguments.has(1) ? static_cast<std::size_t>(std::max(arguments.integer(1), 0)) : 0;
    const std::size_t end = arguments.has(1) ? std::min(first + 1, set.size()) : set.size();
    WaysTold told(Document::of(machine));
    for (std::size_t index = first; index < end; ++index)
        told.add(set.at(index), set.wayOf(set.at(index)));
    return told.list();
}

// An entity and where it was picked; a keyword of initget; nil for nothing there.
Value entsel(Machine &machine, Args arguments)
{
    Document &document = Document::of(machine);
    LispPoint point{};
    const std::u16string_view prompt = arguments.has(0) ? arguments.text(0) : u"\nSelect object: ";
    switch (document.prompter().entity(prompt, point)) {
    case StatusNormal:
        break;
    case StatusKeyword:
        return machine.string(document.prompter().lastInput());
    case StatusNoInput:
        notePickError(document, PickError::NoAnswer);
        return Value::nil();
    default:
        lisp::fail(u"Function cancelled");
    }
    const RecordId found = commands::entityAt(document.session(), {point.x, point.y, point.z});
    if (found == NoRecord) {
        notePickError(document, PickError::NothingThere);
        return Value::nil();
    }
    lisp::ListBuilder both(machine.heap());
    both.add(entityName(machine, document.drawing(), found));
    both.add(pointValue(machine, point, 3));
    return both.list();
}

constexpr lisp::BuiltinRow rows[] = {
    {"ssget", "(ssget [MODE] [POINT] [POINT] [FILTER])",
     "Selects entities: X all, A all of the current space that are not frozen, W C WP CP F by windows, polygons and "
     "fences, L P I; nil if none.",
     ssget},
    {"ssadd", "(ssadd [ENAME] [SET])", "Adds an entity to a set, or makes a set.", ssadd},
    {"ssdel", "(ssdel ENAME SET)", "Removes an entity from a set; nil when it is not in there.", ssdel},
    {"ssmemb", "(ssmemb ENAME SET)", "Gives the entity when it is in the set, else nil.", ssmemb},
    {"sslength", "(sslength SET)", "Gives the number of entities in a set.", sslength},
    {"ssname", "(ssname SET INDEX)", "Gives an entity of a set; the first has the index 0.", ssname},
    {"sssetfirst", "(sssetfirst GRIPSET [SET])", "Selects entities for the next command.", sssetfirst},
    {"ssgetfirst", "(ssgetfirst)", "Gives nil and what is selected for the next command.", ssgetfirst},
    {"ssnamex", "(ssnamex SET [INDEX])",
     "Gives a list of how each entity was selected: 1 picked, 2 inside, 3 crossing, 4 by a fence, 0 otherwise.",
     ssnamex},
    {"entsel", "(entsel [PROMPT])", "Asks for an entity; gives it and the point where it was picked.", entsel},
};

} // namespace

std::span<const lisp::BuiltinRow> selectionBuiltins()
{
    return rows;
}
