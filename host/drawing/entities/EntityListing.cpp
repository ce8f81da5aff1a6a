#include "host/drawing/entities/EntityListing.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/Layouts.h"
#include "host/drawing/entities/Braces.h"
#include "host/drawing/entities/EntitySchema.h"

#include <algorithm>
#include <numbers>
#include <numeric>

namespace drawing {

namespace {

constexpr int LayoutCode = 410, ConstantWidthCode = 43, StartWidthCode = 40, EndWidthCode = 41, FlagsCode = 70;
constexpr std::string_view EntityMarker = "AcDbEntity";
constexpr double HalfTurn = 180;

bool isAngle(int code)
{
    constexpr int FirstAngle = 50, LastAngle = 58;
    return code >= FirstAngle && code <= LastAngle;
}

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

} // namespace

// Reads the record's items, and brings them into the order of a listing subclass after subclass.
class Lister
{
public:
    Lister(const Drawing &drawing, RecordId id, EntityListing &listing)
        : m_drawing(drawing), m_id(id), m_record(drawing.database().record(id)),
          m_isEntity(m_record.kind == RecordKind::Entity || m_record.kind == RecordKind::BlockStart ||
                     m_record.kind == RecordKind::BlockEnd),
          m_listing(listing), m_order(listing.m_order)
    {
    }

    void list()
    {
        read();
        if (m_isEntity) {
            m_schema = schemaOf(m_drawing.database().names().text(m_record.type), flags());
            if (m_firstMarker == m_order.size())
                divide();
        }
        putOwnerBehindType();
        m_listing.m_headSize = headSize();
        for (m_begin = m_firstMarker; m_begin < m_order.size(); m_begin = m_end) {
            m_end = nextMarker(m_begin + 1);
            completeSubclass();
        }
    }

private:
    using Order = decltype(EntityListing::m_order);

    const Item &item(int number) const { return m_listing.item(number); }
    int derived(const Item &item)
    {
        m_listing.m_derived.push_back(item);
        return -static_cast<int>(m_listing.m_derived.size());
    }

    void read()
    {
        auto &items = m_listing.m_recorded;
        Item item; // one for all: to clear an item takes longer than to copy it
        while (m_listing.m_reader.next(item) && item.code < groupcode::ExtendedString) {
            if (item.kind == ValueKind::Real && isAngle(item.code))
                item.real *= std::numbers::pi / HalfTurn;
            items.push_back(item);
        }
        m_order.resize(items.size());
        std::iota(m_order.begin(), m_order.end(), 0);
        m_firstMarker = nextMarker(0);
    }

    // From there on; the end when there is none.
    qsizetype nextMarker(qsizetype place) const
    {
        const auto isMarker = [this](int number) {
            return item(number).code == groupcode::Subclass && item(number).kind == ValueKind::Text;
        };
        return std::find_if(m_order.begin() + place, m_order.end(), isMarker) - m_order.begin();
    }

    // Only types that come in several kinds are told apart by them.
    std::int64_t flags() const
    {
        if (m_record.type != known::Polyline && m_record.type != known::Vertex)
            return 0;
        const auto found = std::ranges::find(m_listing.m_recorded, FlagsCode, &Item::code);
        return found != m_listing.m_recorded.end() ? found->integer : 0;
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
        for (int number = 0; number < static_cast<int>(m_listing.m_recorded.size()); ++number)
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
        } else if (const Handle handle = ownerOf(m_drawing, m_id); handle.value != 0) {
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
        completePoints();
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
        if (isInModelSpace(m_drawing.database(), m_id))
            return "Model";
        m_listing.m_layout = m_drawing.database().codec().encode(layoutOf(m_drawing, m_id));
        return m_listing.m_layout;
    }

    // Puts each default that is missing behind the groups that come before it in the schema.
    void complete(const SubclassSchema &subclass)
    {
        qsizetype place = m_begin + 1;
        for (const SchemaRow &row : subclass.rows) {
            if (row.repeatsAfterVertex)
                continue;
            const qsizetype last = lastOf(row.code);
            if (last != NotThere)
                place = last + 1;
            else if (row.presence == SchemaRow::Presence::Default)
                insert(place++, defaultOf(row));
        }
        if (std::ranges::any_of(subclass.rows, &SchemaRow::repeatsAfterVertex))
            completeVertices(subclass);
    }

    // The groups from one point to the next get what is missing there.
    void completeVertices(const SubclassSchema &subclass)
    {
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

    // Points have three coordinates; those of polylines of light weight lie in their plane.
    void completePoints()
    {
        if (m_schema->type == "LWPOLYLINE")
            return;
        for (qsizetype place = m_begin; place < m_end; ++place)
            if (const int number = m_order[place]; number >= 0)
                m_listing.m_recorded[number].point.dimensions = 3;
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
    const Record &m_record;
    bool m_isEntity;
    const EntitySchema *m_schema = nullptr;
    EntityListing &m_listing;
    Order &m_order;
    qsizetype m_firstMarker = 0;
    qsizetype m_begin = 0, m_end = 0; // of the subclass that is being completed
    std::size_t m_nextSubclass = 0;
};

EntityListing::EntityListing(const Drawing &drawing, RecordId record) : m_reader(drawing.database().reader(record))
{
    Lister(drawing, record, *this).list();
}

bool isFixed(int code)
{
    return code == groupcode::Type || code == groupcode::Handle || code == groupcode::DimStyleHandle;
}

std::vector<ListedGroup> listing(const Drawing &drawing, RecordId record)
{
    return decoded(EntityListing(drawing, record));
}

std::vector<ListedGroup> decoded(const EntityListing &items)
{
    std::vector<ListedGroup> groups;
    groups.reserve(items.size());
    for (const ListedItem listed : items)
        groups.push_back({items.group(listed), listed.origin});
    return groups;
}

namespace {

Group withAngle(Group group, double factor)
{
    if (double *angle = isAngle(group.code) ? std::get_if<double>(&group.value) : nullptr)
        *angle *= factor;
    return group;
}

} // namespace

Group inRadians(Group group)
{
    return withAngle(std::move(group), std::numbers::pi / HalfTurn);
}

Group inDegrees(Group group)
{
    return withAngle(std::move(group), HalfTurn / std::numbers::pi);
}

namespace {

// The block, entities section or other place that an entity stands in, with the polylines and inserts that have parts.
RecordId outermostContainer(const Database &database, RecordId entity)
{
    RecordId container = database.record(entity).container;
    while (container != NoRecord && database.record(container).kind == RecordKind::Entity)
        container = database.record(container).container;
    return container;
}

bool isInBlock(const Database &database, RecordId container)
{
    return database.record(container).kind == RecordKind::BlockStart;
}

} // namespace

bool isInModelSpace(const Database &database, RecordId entity)
{
    const RecordId container = outermostContainer(database, entity);
    return container != NoRecord && !isInBlock(database, container) && !database.record(entity).has(Record::PaperSpace);
}

std::u16string layoutOf(const Drawing &drawing, RecordId entity)
{
    const Database &database = drawing.database();
    if (isInModelSpace(database, entity))
        return u"Model";
    const RecordId container = outermostContainer(database, entity);
    if (container == NoRecord)
        return {};
    const std::u16string block = isInBlock(database, container) ? database.name(container) : std::u16string(PaperSpace);
    const RecordId blockRecord = drawing.tables().find(known::BlockRecord, block);
    if (blockRecord != NoRecord)
        for (const Layout &layout : layouts(database))
            if (layout.blockRecord == blockRecord)
                return layout.name;
    return {};
}

Handle ownerOf(const Drawing &drawing, RecordId id)
{
    const Database &database = drawing.database();
    const Record &record = database.record(id);
    if (record.container == NoRecord)
        return {};
    if (record.kind == RecordKind::TableRecord)
        return {database.record(record.container).handle};
    if (database.record(record.container).kind == RecordKind::Entity) // a vertex or an attribute
        return {database.record(record.container).handle};
    if (record.kind == RecordKind::Entity)
        return ownerOf(database, drawing.tables(), record.container, record.has(Record::PaperSpace));
    return {};
}

} // namespace drawing
