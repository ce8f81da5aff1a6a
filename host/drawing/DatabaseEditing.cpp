#include "host/drawing/Database.h"
#include "host/drawing/GroupMerge.h"
#include "host/drawing/GroupWriter.h"
#include "host/drawing/RecordFields.h"

#include <algorithm>
#include <iterator>

namespace drawing {

namespace {

bool hasHandle(RecordKind kind)
{
    return kind == RecordKind::TableStart || kind == RecordKind::TableRecord || kind == RecordKind::BlockStart ||
           kind == RecordKind::BlockEnd || kind == RecordKind::Entity || kind == RecordKind::Object;
}

int handleCodeOf(const Record &record)
{
    return record.kind == RecordKind::TableRecord && record.type == known::DimensionStyle ? groupcode::DimStyleHandle
                                                                                          : groupcode::Handle;
}

Group typeGroup(std::u16string type)
{
    return {groupcode::Type, std::move(type)};
}

// The handle that the groups bring.
std::uint64_t givenHandle(const GroupList &groups, int code)
{
    if (const Handle *handle = findValue<Handle>(groups, code))
        return handle->value;
    const auto *text = findValue<std::u16string>(groups, code);
    return text ? handleOf(std::string(text->begin(), text->end())) : 0;
}

// Gives the first group with the code this value; when there is none, it is put behind the type.
void setFirst(GroupList &groups, int code, GroupValue value)
{
    const auto hasCode = [code](const Group &group) { return group.code == code; };
    if (const auto found = std::find_if(groups.begin(), groups.end(), hasCode); found != groups.end())
        found->value = std::move(value);
    else
        groups.insert(groups.begin() + (code == groupcode::Type ? 0 : 1), Group{code, std::move(value)});
}

} // namespace

std::optional<std::string> Database::bytesWith(RecordId id, const GroupList &groups) const
{
    GroupList changed = groups;
    if (const std::optional<Group> type = firstGroup(id, groupcode::Type))
        setFirst(changed, type->code, type->value);
    return bytesWithHandle(id, std::move(changed));
}

// The text of the handle stays as it is: some programs write leading zeros.
std::optional<std::string> Database::bytesWithHandle(RecordId id, GroupList groups) const
{
    const Record &old = record(id);
    const std::optional<Group> handle = firstGroup(id, handleCodeOf(old));
    if (handle && hasHandle(old.kind))
        setFirst(groups, handle->code, handle->value);
    return merged(bytes(id), groups, m_format, m_codec);
}

bool Database::replace(RecordId id, const GroupList &groups)
{
    std::optional<std::string> bytes = bytesWith(id, groups);
    if (!bytes)
        return false;
    replaceBytes(id, std::move(*bytes));
    return true;
}

bool Database::turnInto(RecordId entity, const GroupList &groups)
{
    const auto *type = findValue<std::u16string>(groups, groupcode::Type);
    std::optional<std::string> bytes = type ? bytesWithHandle(entity, groups) : std::nullopt;
    if (!bytes)
        return false;
    m_journal.remember(entity);
    m_store.records[entity].type = m_names.idOf(m_codec.encode(*type));
    replaceBytes(entity, std::move(*bytes));
    return true;
}

void Database::replaceBytes(RecordId id, std::string bytes, Fields fields)
{
    if (bytes == this->bytes(id))
        return;
    m_journal.remember(id);
    Record &record = m_store.records[id];
    m_store.texts.release(record.text);
    record.text = m_store.texts.add(std::move(bytes));
    if (fields == Fields::Changed)
        takeFields(id);
}

// Nothing that a Record says of an object's bytes can come behind their end.
bool Database::append(RecordId object, const GroupList &groups)
{
    const std::optional<std::string> more = GroupWriter(m_format, m_codec).bytesOf(groups);
    if (!more)
        return false;
    m_journal.remember(object);
    Record &record = m_store.records[object];
    const std::uint32_t old = record.text != 0 ? record.text : m_store.texts.add(std::string(bytes(object)));
    record.text = m_store.texts.addGrown(old, *more);
    m_store.texts.release(old);
    return true;
}

// What the record says of its bytes, read anew.
void Database::takeFields(RecordId id)
{
    Record &record = m_store.records[id];
    record.name = known::None;
    record.flags &= static_cast<std::uint8_t>(~Record::PaperSpace);
    RecordFields fields(m_names, m_format);
    fields.begin(record);
    GroupCursor cursor(bytes(id), m_format);
    for (RawGroup group; cursor.next(group);)
        fields.take(group, record);
    if (record.kind == RecordKind::TableRecord || record.kind == RecordKind::BlockStart)
        m_namings.push_back({id, record.name});
}

RecordId Database::add(RecordKind kind, const GroupList &groups, RecordId before)
{
    const auto *type = findValue<std::u16string>(groups, groupcode::Type);
    Record record;
    record.kind = kind;
    record.type = type ? m_names.idOf(m_codec.encode(*type)) : NameId{known::None};
    record.flags = Record::Added;
    record.container = containerAt(kind, record.type, before);
    GroupList complete = groups;
    if (hasHandle(kind)) {
        const int code = handleCodeOf(record);
        const std::uint64_t given = givenHandle(groups, code);
        record.handle = given != 0 && find({given}) == NoRecord ? given : m_seed;
        if (m_writesHandles)
            setFirst(complete, code, Handle{record.handle});
        else
            std::erase_if(complete, [code](const Group &group) { return group.code == code; });
    }
    std::optional<std::string> bytes = GroupWriter(m_format, m_codec).bytesOf(complete);
    if (!bytes)
        return NoRecord;
    m_seed = std::max(m_seed, record.handle + 1);
    return insert(record, std::move(*bytes), before);
}

RecordId Database::insert(Record record, std::string bytes, RecordId before)
{
    const RecordId id = static_cast<RecordId>(m_store.records.size());
    const RecordId previous = before != NoRecord ? this->record(before).previous : lastRecord();
    m_store.records.push_back(record);
    m_store.records[id].flags |= Record::Absent; // as the journal shall remember it
    m_journal.remember(id);
    m_journal.remember(previous);
    Record &added = m_store.records[id];
    added.flags = record.flags;
    added.previous = previous;
    added.next = before;
    added.text = m_store.texts.add(std::move(bytes));
    m_store.records[previous].next = id;
    if (before != NoRecord) {
        m_journal.remember(before);
        m_store.records[before].previous = id;
    }
    takeFields(id);
    if (added.handle != 0)
        m_handles.insert(id);
    registerMark(id);
    return id;
}

void Database::registerMark(RecordId id)
{
    const Record &added = record(id);
    if (added.kind == RecordKind::SectionStart)
        m_sections.push_back(id);
    else if (added.kind == RecordKind::TableRecord || added.kind == RecordKind::BlockStart)
        m_named.push_back(id);
    else if (added.isEnd())
        m_ends[added.container] = id;
}

// Where a record belongs that comes to stand before another.
RecordId Database::containerAt(RecordKind kind, NameId type, RecordId before) const
{
    const RecordId previous = before != NoRecord ? record(before).previous : lastRecord();
    const Record &last = record(previous);
    if (kind == RecordKind::Entity && isPartType(type)) {
        if (last.type == known::Polyline || last.type == known::Insert)
            return previous;
        if (isPart(previous) && last.type != known::SequenceEnd)
            return last.container;
    }
    switch (last.kind) {
    case RecordKind::SectionStart:
    case RecordKind::TableStart:
    case RecordKind::BlockStart:
        return previous;
    case RecordKind::TableEnd:
    case RecordKind::BlockEnd:
        return record(last.container).container;
    case RecordKind::SectionEnd:
        return NoRecord;
    default:
        return isPart(previous) ? record(last.container).container : last.container;
    }
}

RecordId Database::lastRecord() const
{
    RecordId id = static_cast<RecordId>(m_fileRecords - 1);
    while (record(id).next != NoRecord)
        id = record(id).next;
    return id;
}

bool Database::isInside(RecordId id, RecordId start) const
{
    while (id != NoRecord && id != start)
        id = record(id).container; // always an earlier one
    return id == start;
}

RecordId Database::endOf(RecordId start)
{
    if (const RecordId end = knownEndOf(start); end != NoRecord)
        return end;
    // A file that was cut, or where the next section begins without an end.
    RecordId before = record(start).next;
    while (before != NoRecord && isInside(before, start))
        before = record(before).next;
    switch (record(start).kind) {
    case RecordKind::TableStart:
        return add(RecordKind::TableEnd, {typeGroup(u"ENDTAB")}, before);
    case RecordKind::BlockStart:
        return add(RecordKind::BlockEnd, {typeGroup(u"ENDBLK")}, before);
    default:
        return add(RecordKind::SectionEnd, {typeGroup(u"ENDSEC")}, before);
    }
}

void Database::move(RecordId entity, RecordId before)
{
    RecordId last = entity;
    while (record(record(last).next).container == entity)
        last = record(last).next;
    const RecordId previous = record(entity).previous, next = record(last).next;
    if (before == next)
        return;
    const RecordId ahead = record(before).previous;
    for (const RecordId id : {previous, entity, last, next, ahead, before})
        m_journal.remember(id);
    std::vector<Record> &records = m_store.records;
    records[entity].container = containerAt(RecordKind::Entity, known::None, before);
    records[previous].next = next;
    records[next].previous = previous;
    records[ahead].next = entity;
    records[entity].previous = ahead;
    records[last].next = before;
    records[before].previous = last;
}

void Database::erase(RecordId id)
{
    setErased(id, true);
}

void Database::restore(RecordId id)
{
    setErased(id, false);
}

void Database::setErased(RecordId id, bool erased)
{
    const auto set = [this, erased](RecordId one) {
        if (record(one).has(Record::Erased) == erased)
            return;
        m_journal.remember(one);
        m_store.records[one].flags ^= Record::Erased;
    };
    set(id);
    for (RecordId part = record(id).next; part != NoRecord && record(part).container == id; part = record(part).next)
        set(part);
}

RecordId Database::ensureSection(NameId name)
{
    if (const RecordId start = section(name); start != NoRecord)
        return start;
    constexpr NameId order[] = {known::Header, known::Classes,  known::Tables,
                                known::Blocks, known::Entities, known::Objects};
    RecordId before = NoRecord;
    const auto end = std::end(order);
    for (auto later = std::find(std::begin(order), end, name); before == NoRecord && later != end; ++later)
        before = section(*later);
    if (before == NoRecord && record(lastRecord()).kind == RecordKind::FileEnd)
        before = lastRecord();
    const GroupList start = {typeGroup(u"SECTION"), {groupcode::Name, widened(m_names.text(name))}};
    const RecordId added = add(RecordKind::SectionStart, start, before);
    endOf(added);
    return added;
}

} // namespace drawing
