#include "host/drawing/entities/ListingPlan.h"

#include "host/drawing/entities/Braces.h"
#include "host/drawing/entities/EntityPlace.h"
#include "host/drawing/entities/EntitySchema.h"
#include "host/drawing/entities/ListedCodes.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace drawing {

namespace {

constexpr int LayoutCode = 410, ConstantWidthCode = 43, StartWidthCode = 40, EndWidthCode = 41, FlagsCode = 70;
constexpr std::string_view EntityMarker = "AcDbEntity";

Item textItem(int code, std::string_view text)
{
    Item item;
    item.code = code;
    item.value = text;
    return item;
}

Item integerItem(int code, std::int64_t value)
{
    Item item;
    item.code = code;
    item.kind = valueKind(code);
    item.integer = value;
    return item;
}

Item realItem(int code, double value)
{
    Item item;
    item.code = code;
    item.kind = ValueKind::Real;
    item.real = value;
    return item;
}

Item pointItem(int code, const Point &point)
{
    Item item;
    item.code = code;
    item.kind = ValueKind::Point;
    item.point = point;
    return item;
}

Item referenceItem(int code, Handle handle)
{
    Item item;
    item.code = code;
    item.kind = ValueKind::Reference;
    item.handle = handle.value;
    return item;
}

Item defaultOf(const SchemaRow &row)
{
    if (mayBeginPoint(row.code))
        return pointItem(row.code, {0, 0, row.number});
    switch (valueKind(row.code)) {
    case ValueKind::Text:
        return textItem(row.code, row.text);
    case ValueKind::Real:
        return realItem(row.code, row.number);
    default:
        return integerItem(row.code, static_cast<std::int64_t>(row.number));
    }
}

bool repeats(const SubclassSchema &subclass, int code)
{
    return std::ranges::any_of(subclass.rows,
                               [code](const SchemaRow &row) { return row.repeatsAfterVertex && row.code == code; });
}

bool tellsWhatFollows(const Item &item)
{
    return (item.code == groupcode::Subclass || item.code == groupcode::Braces) && item.kind == ValueKind::Text;
}

} // namespace

// Brings the items of a record into the order of a listing, subclass after subclass.
class ListingPlanner
{
public:
    ListingPlanner(const Drawing &drawing, RecordId id, const RecordedItems &items, ListingPlan &plan)
        : m_drawing(drawing), m_id(id), m_type(plan.m_subject.type), m_isEntity(isEntity(plan.m_subject.kind)),
          m_items(items), m_plan(plan), m_order(plan.m_order)
    {
        m_order.resize(items.size());
        std::iota(m_order.begin(), m_order.end(), 0);
        m_firstMarker = nextMarker(0);
    }

    void plan()
    {
        if (m_isEntity) {
            m_schema = schemaOf(m_drawing.database().names().text(m_type), m_plan.m_subject.flags);
            if (m_firstMarker == m_order.size())
                divide();
        }
        putOwnerBehindType();
        m_plan.m_headSize = headSize();
        m_plan.m_hasSpatialPoints = m_schema && m_schema->type != "LWPOLYLINE"; // whose points lie in its plane
        for (m_begin = m_firstMarker; m_begin < m_order.size(); m_begin = m_end) {
            m_end = nextMarker(m_begin + 1);
            completeSubclass();
        }
    }

private:
    using Order = ListingPlan::Order;

    static bool isEntity(RecordKind kind)
    {
        return kind == RecordKind::Entity || kind == RecordKind::BlockStart || kind == RecordKind::BlockEnd;
    }
    const Item &item(int number) const { return number >= 0 ? m_items[number] : m_plan.derived(number); }
    int derived(const Item &item)
    {
        m_plan.m_derived.push_back(item);
        return -static_cast<int>(m_plan.m_derived.size());
    }

    // From there on; the end when there is none.
    qsizetype nextMarker(qsizetype place) const
    {
        const auto isMarker = [this](int number) {
            return item(number).code == groupcode::Subclass && item(number).kind == ValueKind::Text;
        };
        return std::find_if(m_order.begin() + place, m_order.end(), isMarker) - m_order.begin();
    }

    // Drawings before R2000 have no markers: each group goes where the type's schema has it.
    void divide()
    {
        const auto subclasses = m_schema ? m_schema->subclasses : std::span<const SubclassSchema>();
        m_order.clear();
        takePart(Head);
        m_firstMarker = m_order.size();
        m_order.push_back(derived(textItem(groupcode::Subclass, EntityMarker)));
        takePart(Common);
        for (int part = 0; part < static_cast<int>(subclasses.size()); ++part) {
            const std::string_view marker = subclasses[static_cast<std::size_t>(part)].marker;
            m_order.push_back(derived(textItem(groupcode::Subclass, marker)));
            takePart(part);
        }
    }

    void takePart(int part)
    {
        for (int number = 0; number < static_cast<int>(m_items.size()); ++number)
            if (partOf(item(number).code) == part)
                m_order.push_back(number);
    }

    // The number of the subclass; the last one for a code that none has.
    int partOf(int code) const
    {
        if (code == groupcode::Type || code == groupcode::Handle)
            return Head;
        if (isCommonCode(code) || !m_schema)
            return Common;
        const auto subclasses = m_schema->subclasses;
        const auto found =
            std::ranges::find_if(subclasses, [code](const SubclassSchema &subclass) { return subclass.has(code); });
        return static_cast<int>((found != subclasses.end() ? found : subclasses.end() - 1) - subclasses.begin());
    }

    // Files have it after the handle.
    void putOwnerBehindType()
    {
        const auto begin = m_order.begin(), end = begin + m_firstMarker;
        const auto owner = std::find_if(begin, end, [this, braces = Braces()](int number) mutable {
            return !braces.enclose(item(number)) && item(number).code == groupcode::Owner;
        });
        const qsizetype place = begin != end && item(*begin).code == groupcode::Type ? 1 : 0;
        if (owner != end) {
            std::rotate(begin + place, owner, owner + 1);
        } else {
            m_plan.m_isForOthers = false; // elsewhere there may be another, or one where this has none
            const Handle handle = ownerOf(m_drawing, m_id);
            if (handle.value == 0)
                return;
            m_order.insert(place, derived(referenceItem(groupcode::Owner, handle)));
            ++m_firstMarker;
        }
    }

    std::size_t headSize() const
    {
        if (m_firstMarker < m_order.size())
            return static_cast<std::size_t>(m_firstMarker);
        const auto isOfHead = [this](int number) {
            return isFixed(item(number).code) || item(number).code == groupcode::Owner;
        };
        return static_cast<std::size_t>(std::ranges::find_if_not(m_order, isOfHead) - m_order.begin());
    }

    void completeSubclass()
    {
        const std::string_view marker = item(m_order[m_begin]).value;
        if (m_isEntity && m_begin == m_firstMarker && marker == EntityMarker)
            completeCommonPart();
        if (!m_schema)
            return;
        const auto subclasses = m_schema->subclasses;
        if (m_nextSubclass < subclasses.size() && marker == subclasses[m_nextSubclass].marker)
            complete(subclasses[m_nextSubclass++]);
    }

    void completeCommonPart()
    {
        qsizetype place = m_begin + 1;
        if (lastOf(groupcode::Space) == NotThere)
            insert(place++, integerItem(groupcode::Space, 0));
        else if (place != m_end && item(m_order[place]).code == groupcode::Space)
            ++place;
        if (lastOf(LayoutCode) != NotThere)
            return;
        const std::string_view layout = layoutName();
        if (!layout.empty())
            insert(place, textItem(LayoutCode, layout));
    }

    std::string_view layoutName()
    {
        if (m_plan.m_subject.isInModelSpace)
            return "Model";
        m_plan.m_isForOthers = false;
        m_plan.m_layout = m_drawing.database().codec().encode(layoutOf(m_drawing, m_id));
        return m_plan.m_layout;
    }

    // Puts each default that is missing behind the groups that come before it in the schema; behind the last vertex
    // with all that is its own.
    void complete(const SubclassSchema &subclass)
    {
        qsizetype place = m_begin + 1;
        for (const SchemaRow &row : subclass.rows) {
            if (row.repeatsAfterVertex)
                continue;
            const qsizetype last = lastOf(row.code);
            if (last != NotThere)
                place = behindRepeated(subclass, last + 1);
            else if (row.presence == SchemaRow::Presence::Default)
                insert(place++, defaultOf(row));
        }
        if (std::ranges::any_of(subclass.rows, &SchemaRow::repeatsAfterVertex))
            completeVertices(subclass);
    }

    qsizetype behindRepeated(const SubclassSchema &subclass, qsizetype place) const
    {
        while (place < m_end && repeats(subclass, item(m_order[place]).code))
            ++place;
        return place;
    }

    // The groups from one point to the next get what is missing there.
    void completeVertices(const SubclassSchema &subclass)
    {
        m_plan.m_isForOthers = false;
        const qsizetype constant = lastOf(ConstantWidthCode);
        const double width = constant != NotThere ? item(m_order[constant]).real : 0;
        const Order groups(m_order.begin() + m_begin, m_order.begin() + m_end);
        const Order rest(m_order.begin() + m_end, m_order.end());
        m_order.resize(m_begin);
        for (auto next = groups.begin(); next != groups.end();) {
            const bool isVertex = item(*next).code == groupcode::FirstX;
            m_order.push_back(*next++);
            if (!isVertex)
                continue;
            const auto end =
                std::find_if(next, groups.end(), [&](int number) { return !repeats(subclass, item(number).code); });
            completeVertex(subclass, next, end, width);
            next = end;
        }
        m_end = m_order.size();
        m_order.append(rest.data(), rest.size());
    }

    void completeVertex(const SubclassSchema &subclass, Order::const_iterator begin, Order::const_iterator end,
                        double width)
    {
        for (const SchemaRow &row : subclass.rows) {
            if (!row.repeatsAfterVertex)
                continue;
            const auto found = std::find_if(begin, end, [&](int number) { return item(number).code == row.code; });
            const bool isWidth = row.code == StartWidthCode || row.code == EndWidthCode;
            if (found != end)
                m_order.push_back(*found);
            else
                m_order.push_back(derived(isWidth ? realItem(row.code, width) : defaultOf(row)));
        }
    }

    // In the subclass.
    qsizetype lastOf(int code) const
    {
        qsizetype place = m_end;
        while (place-- > m_begin)
            if (item(m_order[place]).code == code)
                return place;
        return NotThere;
    }

    void insert(qsizetype place, const Item &item)
    {
        m_order.insert(place, derived(item));
        ++m_end;
    }

    static constexpr int Head = -2, Common = -1; // parts of a record besides its subclasses
    static constexpr qsizetype NotThere = -1;

    const Drawing &m_drawing;
    RecordId m_id;
    NameId m_type;
    bool m_isEntity;
    const EntitySchema *m_schema = nullptr;
    const RecordedItems &m_items;
    ListingPlan &m_plan;
    Order &m_order;
    qsizetype m_firstMarker = 0;
    qsizetype m_begin = 0, m_end = 0; // of the subclass that is being completed
    std::size_t m_nextSubclass = 0;
};

std::shared_ptr<const ListingPlan> ListingPlan::of(const Drawing &drawing, RecordId id, const RecordedItems &items)
{
    constexpr std::size_t Kept = 16; // types whose numbers differ by this take turns
    thread_local std::array<std::shared_ptr<const ListingPlan>, Kept> latest;
    const Subject wanted = subject(drawing, id, items);
    std::shared_ptr<const ListingPlan> &kept = latest[static_cast<std::size_t>(wanted.type) % Kept];
    if (kept && kept->fits(wanted, items))
        return kept;
    const std::shared_ptr<ListingPlan> plan(new ListingPlan(wanted));
    ListingPlanner(drawing, id, items, *plan).plan();
    if (plan->m_isForOthers && items.size() <= UsualItems) {
        plan->noteShapes(items);
        kept = plan;
    }
    return plan;
}

void ListingPlan::noteShapes(const RecordedItems &items)
{
    m_shapes.reserve(static_cast<std::size_t>(items.size()));
    for (const Item &item : items)
        m_shapes.push_back({item.code, item.kind, std::string(tellsWhatFollows(item) ? item.value : "")});
}

ListingPlan::Subject ListingPlan::subject(const Drawing &drawing, RecordId id, const RecordedItems &items)
{
    const Record &record = drawing.database().record(id);
    Subject subject{drawing.number(), record.type, record.kind, 0, isInModelSpace(drawing.database(), id)};
    if (record.type == known::Polyline || record.type == known::Vertex) {
        const auto flags = std::ranges::find(items, FlagsCode, &Item::code);
        subject.flags = flags != items.end() ? flags->integer : 0;
    }
    return subject;
}

bool ListingPlan::fits(const Subject &subject, const RecordedItems &items) const
{
    const auto hasShape = [](const Item &item, const Shape &shape) {
        return item.code == shape.code && item.kind == shape.kind &&
               (!tellsWhatFollows(item) || item.value == shape.text);
    };
    return subject == m_subject && std::ranges::equal(items, m_shapes, hasShape);
}

} // namespace drawing
