#include "host/drawing/Index.h"

#include "host/drawing/RawValues.h"
#include "host/drawing/RecordFields.h"

#include <algorithm>

namespace drawing {

namespace {

// Goes through the groups once and cuts them into records.
class Indexer
{
public:
    Indexer(std::string_view bytes, const FileFormat &format, const ReadWatch &watch)
        : m_bytes(bytes), m_format(format), m_watch(watch), m_fields(m_index.names, format)
    {
    }

    template <class Groups> Index run();

private:
    bool take(const RawGroup &group); // false after the end of the file was read
    bool beginRecord(const RawGroup &group);
    void begin(RecordKind kind, NameId type, const RawGroup &group);
    void placeMark(RecordKind kind, RecordId id);
    void end();
    RecordKind kindOf(NameId type);
    RecordKind kindInTables(NameId type);
    RecordKind kindInBlocks(NameId type);
    void placeEntity(NameId type);
    void note(const char *place, std::string_view what);

    std::string_view m_bytes;
    FileFormat m_format;
    const ReadWatch &m_watch;
    Index m_index;
    Record m_record;
    RecordFields m_fields;
    NameId m_section = known::None;
    RecordId m_sectionStart = NoRecord;
    RecordId m_container = NoRecord; // the open table or block, else the section
    RecordId m_main = NoRecord;      // the polyline or insert whose parts follow
};

template <class Groups> Index Indexer::run()
{
    // Records of common files have more bytes than this. Memory that is not used is not taken from the system.
    constexpr std::size_t BytesPerRecord = 100;
    const std::size_t start = groupsBegin(m_bytes);
    m_index.records.reserve(m_bytes.size() / BytesPerRecord + 64);
    m_record.kind = RecordKind::Preamble;
    Groups groups(m_bytes.substr(start), m_format);
    RawGroup group;
    while (groups.next(group) && take(group)) {
    }
    end();
    m_index.records.back().next = NoRecord;
    if (groups.badLines() > 0) {
        note(groups.firstBadPlace(), "a group code was expected");
        m_index.oddities.count += groups.badLines() - 1;
    }
    if (m_index.records.back().kind != RecordKind::FileEnd)
        note(m_bytes.data() + m_bytes.size(), "the file ends without EOF");
    return std::move(m_index);
}

bool Indexer::take(const RawGroup &group)
{
    if (group.code == groupcode::Type)
        return beginRecord(group);
    if (group.code == groupcode::VariableName && m_section == known::Header)
        begin(RecordKind::HeaderVariable, known::None, group);
    if (m_record.kind != RecordKind::Other && !isReadable(group, m_format.kind)) // else nobody knows its codes
        note(group.value.data(), "a number was expected");
    m_fields.take(group, m_record);
    if (m_record.kind == RecordKind::SectionStart)
        m_section = m_record.name;
    return true;
}

bool Indexer::beginRecord(const RawGroup &group)
{
    const NameId type = m_index.names.idOf(group.value);
    const RecordKind kind = kindOf(type);
    begin(kind, type, group);
    if (kind == RecordKind::Entity)
        placeEntity(type);
    return kind != RecordKind::FileEnd;
}

// Ends the record before, and sets what is the same for every record of a kind.
void Indexer::begin(RecordKind kind, NameId type, const RawGroup &group)
{
    end();
    const RecordId id = static_cast<RecordId>(m_index.records.size());
    m_record = Record();
    if (m_watch && id % WatchedRecords == 0)
        m_watch(static_cast<double>(group.bytes.data() - m_bytes.data()) / static_cast<double>(m_bytes.size()));
    m_record.begin = static_cast<std::uint64_t>(group.bytes.data() - m_bytes.data());
    m_record.kind = kind;
    m_record.type = type;
    const bool isOutside = kind == RecordKind::SectionStart || kind == RecordKind::FileEnd;
    m_record.container = isOutside ? NoRecord : m_container; // also where the section before lacks its end
    m_fields.begin(m_record);
    if (kind != RecordKind::Entity) {
        m_main = NoRecord;
        placeMark(kind, id);
    }
}

// Opens and closes sections, tables and blocks.
void Indexer::placeMark(RecordKind kind, RecordId id)
{
    switch (kind) {
    case RecordKind::SectionStart:
        m_sectionStart = m_container = id;
        m_index.sections.push_back(id);
        break;
    case RecordKind::BlockStart:
        m_index.named.push_back(id);
        [[fallthrough]];
    case RecordKind::TableStart:
        m_container = id;
        break;
    case RecordKind::TableRecord:
        m_index.named.push_back(id);
        break;
    case RecordKind::TableEnd:
    case RecordKind::BlockEnd:
        m_index.ends[m_container] = id;
        m_container = m_sectionStart;
        break;
    case RecordKind::SectionEnd:
        m_index.ends[m_sectionStart] = id;
        m_container = m_sectionStart = NoRecord;
        break;
    default:
        break;
    }
}

void Indexer::end()
{
    const RecordId id = static_cast<RecordId>(m_index.records.size());
    m_record.previous = id == 0 ? NoRecord : id - 1;
    m_record.next = id + 1;
    m_index.records.push_back(m_record);
}

RecordKind Indexer::kindOf(NameId type)
{
    switch (type) {
    case known::Section:
        m_section = known::None; // until its name is read
        return RecordKind::SectionStart;
    case known::EndSection:
        m_section = known::None;
        return RecordKind::SectionEnd;
    case known::EndOfFile:
        return RecordKind::FileEnd;
    default:
        break;
    }
    switch (m_section) {
    case known::Tables:
        return kindInTables(type);
    case known::Blocks:
        return kindInBlocks(type);
    case known::Entities:
        return RecordKind::Entity;
    case known::Objects:
        return RecordKind::Object;
    case known::Classes:
        return RecordKind::Class;
    default:
        return RecordKind::Other;
    }
}

RecordKind Indexer::kindInTables(NameId type)
{
    if (type == known::Table)
        return RecordKind::TableStart;
    if (m_container == m_sectionStart)
        return RecordKind::Other;
    return type == known::EndTable ? RecordKind::TableEnd : RecordKind::TableRecord;
}

RecordKind Indexer::kindInBlocks(NameId type)
{
    if (type == known::Block)
        return RecordKind::BlockStart;
    if (m_container == m_sectionStart)
        return RecordKind::Other;
    return type == known::EndBlock ? RecordKind::BlockEnd : RecordKind::Entity;
}

// A polyline's vertices and an insert's attributes follow it, up to a SEQEND.
void Indexer::placeEntity(NameId type)
{
    const RecordId id = static_cast<RecordId>(m_index.records.size());
    const bool isPart = isPartType(type);
    if (isPart && m_main != NoRecord)
        m_record.container = m_main;
    else if (isPart)
        note(m_bytes.data() + m_record.begin, "a part of an entity stands alone");
    if (type == known::Polyline || type == known::Insert)
        m_main = id;
    else if (!isPart || type == known::SequenceEnd)
        m_main = NoRecord;
}

void Indexer::note(const char *place, std::string_view what)
{
    if (m_index.oddities.count > 0) {
        m_index.oddities.note(what);
        return;
    }
    const std::string_view before = m_bytes.substr(0, static_cast<std::size_t>(place - m_bytes.data()));
    std::string where = "byte " + std::to_string(before.size());
    if (m_format.kind == FileFormat::Kind::Text)
        where = "line " + std::to_string(1 + std::count(before.begin(), before.end(), m_format.lineEndMark()));
    m_index.oddities.note(where + ": " + std::string(what));
}

} // namespace

Index indexOf(std::string_view bytes, const FileFormat &format, const ReadWatch &watch)
{
    Indexer indexer(bytes, format, watch);
    return format.kind == FileFormat::Kind::Text ? indexer.run<TextGroups>() : indexer.run<BinaryGroups>();
}

} // namespace drawing
