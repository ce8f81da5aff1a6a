#include "host/kernel/drawing/EntityData.h"

#include "host/drawing/entities/EntityListing.h"
#include "host/drawing/entities/ExtendedData.h"
#include "host/interpreter/Builtins.h"
#include "host/interpreter/Printer.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/drawing/EntityName.h"
#include "host/kernel/drawing/TableRecords.h"

#include <QByteArray>

#include <algorithm>
#include <limits>

using drawing::Drawing;
using drawing::EntityListing;
using drawing::Group;
using drawing::GroupList;
using drawing::GroupValue;
using drawing::Handle;
using drawing::ListedItem;
using drawing::Point;
using drawing::RecordId;
using drawing::ValueKind;
using lisp::ListBuilder;
using lisp::Machine;
using lisp::Value;

namespace groupcode = drawing::groupcode;

namespace {

Value pair(Machine &machine, int code, Value value)
{
    return machine.heap().cons(Value::integer(code), value);
}

// The entities of a space have one owner, so that the name that was made last is often the next one, too. It is good
// until a collection, which may have freed it. Names of different drawings differ, and so do those of their machines.
Value latestEntityName(Machine &machine, const LispName &name)
{
    struct Latest
    {
        const lisp::Heap *heap;
        std::size_t collections;
        LispName name;
        Value value;
    };
    thread_local Latest latest{nullptr, 0, {}, {}};
    lisp::Heap &heap = machine.heap();
    if (latest.heap != &heap || latest.collections != heap.collections() ||
        !std::ranges::equal(latest.name.words, name.words))
        latest = {&heap, heap.collections(), name, entityName(machine, name)};
    return latest.value;
}

// Makes the value of a group.
class ValueMaker
{
public:
    ValueMaker(Machine &machine, const Drawing &drawing, int code)
        : m_machine(machine), m_drawing(drawing), m_code(code)
    {
    }

    Value operator()(const std::u16string &text) const { return m_machine.string(text); }
    Value operator()(double number) const { return Value::canonicalReal(number); }
    Value operator()(std::int64_t number) const
    {
        using Limits = std::numeric_limits<std::int32_t>;
        const bool fits = number >= Limits::min() && number <= Limits::max();
        return fits ? Value::integer(static_cast<std::int32_t>(number)) : Value::real(static_cast<double>(number));
    }
    Value operator()(const Point &point) const
    {
        return pointValue(m_machine, {point.x, point.y, point.z}, point.dimensions);
    }
    Value operator()(Handle handle) const
    {
        if (drawing::valueKind(m_code) != ValueKind::Reference)
            return m_machine.string(handleText(handle));
        LispName name = nodeName(m_drawing, m_drawing.database().find(handle));
        name.words[1] = static_cast<std::int64_t>(handle.value);
        return latestEntityName(m_machine, name);
    }
    Value operator()(const drawing::Bytes &bytes) const { return m_machine.string(bytesText(bytes)); }

private:
    Machine &m_machine;
    const Drawing &m_drawing;
    int m_code;
};

// The value of a group that is listed; as ValueMaker makes it, with less effort for what is frequent.
Value itemValue(Machine &machine, const Drawing &drawing, const EntityListing &listing, const ListedItem &listed)
{
    const ValueMaker make(machine, drawing, listed.item.code);
    switch (listed.item.kind) {
    case ValueKind::Text:
        if (const Value shared = machine.heap().findSharedString(listed.item.value); shared.isTrue())
            return shared;
        if (drawing::TextCodec::isPlain(listed.item.value))
            return machine.heap().sharedAsciiString(listed.item.value);
        break;
    case ValueKind::Handle:
        if (drawing::TextCodec::isPlain(listed.item.value))
            return machine.heap().asciiString(listed.item.value);
        break;
    case ValueKind::Real:
        return make(listed.item.real);
    case ValueKind::Point:
        return make(listed.item.point);
    case ValueKind::Reference:
        return make(Handle{listed.item.handle});
    default:
        break;
    }
    return std::visit(make, listing.group(listed).value);
}

void addExtendedData(Machine &machine, const Drawing &drawing, const GroupList &data, ListBuilder &items)
{
    if (data.empty())
        return;
    ListBuilder all(machine.heap());
    all.add(Value::integer(ExtendedDataCode));
    for (std::size_t place = 0; place < data.size();) {
        ListBuilder application(machine.heap());
        application.add(machine.string(std::get<std::u16string>(data[place].value)));
        for (++place; place < data.size() && data[place].code != groupcode::Application; ++place)
            application.add(groupPair(machine, drawing, data[place]));
        all.add(application.list());
    }
    items.add(all.list());
}

[[noreturn]] void badGroup(Value group)
{
    lisp::fail(u"bad DXF group: " + lisp::printed(group));
}

// The readers below write into the group that is to have the value, which spares moving it there from one to the next,
// and give false when the value is not of the group's kind.

bool readPoint(int code, Value value, GroupValue &target)
{
    const std::optional<PointList> list = pointListOf(value);
    if (!list || !drawing::mayBeginPoint(code))
        return false;
    target = Point{list->point.x, list->point.y, list->point.z, list->count};
    return true;
}

bool readInteger(Value value, GroupValue &target)
{
    if (!value.isNumber() ||
        (value.isReal() && value.asReal() != static_cast<double>(static_cast<std::int64_t>(value.asReal()))))
        return false;
    target = value.isInteger() ? std::int64_t{value.asInteger()} : static_cast<std::int64_t>(value.asReal());
    return true;
}

bool readText(Value value, GroupValue &target)
{
    if (value.isString())
        target.emplace<std::u16string>(value.asString()->view());
    return value.isString();
}

bool readReal(Value value, GroupValue &target)
{
    if (value.isNumber())
        target = value.asDouble();
    return value.isNumber();
}

bool readDigits(Value value, std::optional<GroupValue> (*valueOf)(std::u16string_view), GroupValue &target)
{
    std::optional<GroupValue> read = value.isString() ? valueOf(value.asString()->view()) : std::nullopt;
    if (read)
        target = std::move(*read);
    return read.has_value();
}

bool readReference(Value value, GroupValue &target)
{
    const auto *entity = lisp::asNative<EntityName>(value);
    if (!entity)
        return readDigits(value, handleValue, target);
    target = Handle{static_cast<std::uint64_t>(entity->name.words[1])};
    return true;
}

bool readValue(int code, Value value, GroupValue &target)
{
    constexpr int LastPlaceCode = 18, ExtrusionCode = 210;
    const bool isPlace = (code >= groupcode::FirstX && code <= LastPlaceCode) || code == ExtrusionCode;
    if (value.isCons() || isPlace)
        return readPoint(code, value, target);
    switch (drawing::valueKind(code)) {
    case ValueKind::Text:
        return readText(value, target);
    case ValueKind::Real:
        return readReal(value, target);
    case ValueKind::Binary:
        return readDigits(value, bytesValue, target);
    case ValueKind::Handle:
        return readDigits(value, handleValue, target);
    case ValueKind::Reference:
        return readReference(value, target);
    default:
        return readInteger(value, target);
    }
}

// Of a pair, or a list for a point, with a code; false for anything else.
bool readGroup(Value group, Group &target)
{
    if (!group.isCons() || !group.asCons()->car.isInteger())
        return false;
    target.code = group.asCons()->car.asInteger();
    return readValue(target.code, group.asCons()->cdr, target.value);
}

void addGroup(Value group, GroupList &groups)
{
    if (!readGroup(group, groups.emplace_back()))
        badGroup(group);
}

// Another application begins with its name, not with a group.
bool isExtendedCode(int code)
{
    return code >= groupcode::ExtendedString && code < drawing::KnownCodes && code != groupcode::Application;
}

// ("APP" (1000 . "text") …) …
void addApplications(Value list, GroupList &data)
{
    for (const Value application : lisp::ListItems(list)) {
        if (!application.isCons() || !application.asCons()->car.isString())
            badGroup(application);
        data.push_back({groupcode::Application, std::u16string(application.asCons()->car.asString()->view())});
        for (const Value group : lisp::ListItems(application.asCons()->cdr)) {
            addGroup(group, data);
            if (!isExtendedCode(data.back().code))
                badGroup(group);
        }
    }
}

} // namespace

std::optional<Group> groupOf(Value group)
{
    std::optional<Group> read(std::in_place);
    if (!readGroup(group, *read))
        read.reset();
    return read;
}

std::optional<GroupValue> handleValue(std::u16string_view text)
{
    bool isNumber = false;
    const auto number = QStringView(text.data(), static_cast<qsizetype>(text.size())).toULongLong(&isNumber, 16);
    return isNumber ? std::optional<GroupValue>(Handle{number}) : std::nullopt;
}

std::optional<GroupValue> bytesValue(std::u16string_view text)
{
    const QByteArray hex = QStringView(text).toString().toLatin1();
    const QByteArray bytes = QByteArray::fromHex(hex);
    if (bytes.size() * 2 != hex.size())
        return std::nullopt;
    return drawing::Bytes{bytes.toStdString()};
}

std::u16string handleText(Handle handle)
{
    return QString::number(handle.value, 16).toUpper().toStdU16String();
}

std::u16string bytesText(const drawing::Bytes &bytes)
{
    return QString::fromLatin1(QByteArray::fromStdString(bytes.bytes).toHex().toUpper()).toStdU16String();
}

Value groupPair(Machine &machine, const Drawing &drawing, const Group &group)
{
    return pair(machine, group.code, std::visit(ValueMaker(machine, drawing, group.code), group.value));
}

std::optional<RecordId> secondName(const Drawing &drawing, RecordId id)
{
    const drawing::Database &database = drawing.database();
    const drawing::Record &record = database.record(id);
    if (record.type == drawing::known::SequenceEnd && record.container != drawing::NoRecord)
        return record.container;
    if (record.kind != drawing::RecordKind::BlockStart)
        return std::nullopt;
    RecordId first = database.firstIn(id);
    while (first != drawing::NoRecord && database.record(first).isGone())
        first = database.nextIn(first);
    return first != drawing::NoRecord ? std::optional(first) : std::nullopt;
}

namespace {

Value newEntityList(Machine &machine, const Drawing &drawing, RecordId record, Value name,
                    const ApplicationFilter &filter)
{
    const EntityListing listing(drawing, record);
    ListBuilder items(machine.heap());
    items.add(pair(machine, NameCode, name));
    for (const ListedItem listed : listing)
        items.add(pair(machine, listed.item.code, itemValue(machine, drawing, listing, listed)));
    if (const std::optional<RecordId> second = secondName(drawing, record))
        items.add(pair(machine, SecondNameCode, entityName(machine, drawing, *second)));
    if (filter)
        addExtendedData(machine, drawing, extendedData(drawing, record, filter), items);
    return items.list();
}

} // namespace

Value entityList(Machine &machine, const Drawing &drawing, RecordId record, Value name, const ApplicationFilter &filter)
{
    if (filter)
        return newEntityList(machine, drawing, record, name, filter);
    // Programs ask for the same entity's data for each value that they want of it.
    struct Key
    {
        const lisp::Heap *heap;
        std::size_t collections; // one of them may free the list
        std::uint32_t drawing;
        RecordId record;
        std::uint64_t changeCount;
        bool operator==(const Key &) const = default;
    };
    thread_local Key latest{};
    thread_local Value list;
    const lisp::Heap &heap = machine.heap();
    const Key wanted{&heap, heap.collections(), drawing.number(), record, drawing.database().journal().changeCount()};
    if (wanted != latest) {
        list = newEntityList(machine, drawing, record, name, filter);
        latest = wanted;
    }
    return list;
}

Value tableRecordList(Machine &machine, const Drawing &drawing, RecordId record)
{
    ListBuilder items(machine.heap());
    for (const Group &group : tableRecordGroups(drawing, record))
        items.add(groupPair(machine, drawing, group));
    if (const std::optional<RecordId> second = secondName(drawing, record))
        items.add(pair(machine, SecondNameCode, entityName(machine, drawing, *second)));
    return items.list();
}

EntityRequest entityRequest(Value list)
{
    constexpr std::size_t UsualGroups = 20; // whose memory is quickly had
    EntityRequest request;
    request.groups.reserve(UsualGroups);
    GroupList data;
    for (const Value group : lisp::ListItems(list)) {
        const bool hasCode = group.isCons() && group.asCons()->car.isInteger();
        const int code = hasCode ? group.asCons()->car.asInteger() : 0;
        if (code == ExtendedDataCode) {
            addApplications(group.asCons()->cdr, data);
        } else if (code == NameCode) {
            const auto *entity = lisp::asNative<EntityName>(group.asCons()->cdr);
            if (!entity)
                badGroup(group);
            request.name = entity->name;
        } else if (code != SecondNameCode) {
            addGroup(group, request.groups);
        }
    }
    request.groups.insert(request.groups.end(), data.begin(), data.end());
    return request;
}
