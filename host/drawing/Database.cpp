#include "host/drawing/Database.h"

#include "host/drawing/HeaderVariables.h"
#include "host/drawing/RawValues.h"

#include <QFile>

#include <algorithm>

namespace drawing {

namespace {

[[noreturn]] void fail(const QFile &file, const QString &reason)
{
    throw ReadError(QStringLiteral("%1: %2").arg(file.fileName(), reason).toStdString());
}

// Into memory of its own: a file that is replaced or shortened while the drawing is open does no harm.
QByteArray contentOf(const QString &path, const ReadWatch &watch)
{
    constexpr qint64 MostBytes = qint64{8} << 30; // record numbers have 32 bits, the shortest record some bytes
    constexpr qint64 WatchedBytes = 8 << 20;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        fail(file, file.errorString());
    if (file.size() > MostBytes)
        fail(file, QStringLiteral("the file is too large"));
    QByteArray bytes(file.size(), Qt::Uninitialized);
    qint64 length = 0;
    for (qint64 more = 1; more > 0; length += more) {
        if (length == bytes.size()) {
            // It may have grown, and some files (of /proc) say that they are empty.
            const QByteArray rest = file.readAll();
            bytes.append(rest);
            length += rest.size();
            break;
        }
        if (watch)
            watch(0);
        more = file.read(bytes.data() + length, std::min(bytes.size() - length, WatchedBytes));
        if (more < 0)
            fail(file, file.errorString());
    }
    bytes.truncate(length);
    return bytes;
}

} // namespace

std::unique_ptr<Database> Database::read(const QString &path, const ReadWatch &watch)
{
    return std::make_unique<Database>(contentOf(path, watch), watch);
}

Database::Database(QByteArray bytes, const ReadWatch &watch)
    : m_bytes(std::move(bytes)), m_format(detectFormat(fileBytes()))
{
    Index index = indexOf(fileBytes(), m_format, watch);
    m_store.records = std::move(index.records);
    m_names = std::move(index.names);
    m_sections = std::move(index.sections);
    m_named = std::move(index.named);
    m_ends = std::move(index.ends);
    m_oddities = std::move(index.oddities);
    m_fileRecords = m_store.records.size();
    for (const RecordId id : m_named)
        m_namings.push_back({id, record(id).name});
    readHeader();
    giveHandles(watch);
}

void Database::readHeader()
{
    constexpr std::string_view FirstWithUtf8 = "AC1021"; // R2007
    const auto textOf = [this](std::string_view name) {
        const std::optional<Group> value = variable(*this, name);
        const auto *text = value ? std::get_if<std::u16string>(&value->value) : nullptr;
        return text ? std::string(text->begin(), text->end()) : std::string();
    };
    if (const std::string version = textOf("$ACADVER"); !version.empty())
        m_version = version;
    if (m_version < FirstWithUtf8)
        m_codec = TextCodec(CodePage::named(textOf("$DWGCODEPAGE")));
    m_seed = std::max<std::uint64_t>(handleOf(textOf("$HANDSEED")), 1);
}

// Handles of records that have none follow those of the file, so that these stay what they are.
void Database::giveHandles(const ReadWatch &watch)
{
    const auto isHandled = [](const Record &record) {
        return record.kind == RecordKind::Entity || record.kind == RecordKind::TableRecord ||
               record.kind == RecordKind::Object || record.kind == RecordKind::BlockStart;
    };
    m_handles.reserve(m_fileRecords);
    std::uint64_t last = 0;
    std::vector<RecordId> without;
    for (RecordId id = 1; id < m_fileRecords; ++id) {
        if (watch && id % WatchedRecords == 0)
            watch(1);
        Record &record = m_store.records[id];
        if (record.handle == 0 && isHandled(record))
            without.push_back(id);
        if (record.handle == 0)
            continue;
        last = std::max(last, record.handle);
        if (m_handles.insert(id) != NoRecord) {
            record.flags |= Record::SameHandle;
            m_oddities.note("handle " + std::string(QByteArray::number(qulonglong{record.handle}, 16).toUpper()) +
                            " stands in several records");
        }
    }
    m_writesHandles = last != 0 || !isBefore2000();
    m_seed = std::max(m_seed, last + 1);
    for (const RecordId id : without) {
        if (watch && id % WatchedRecords == 0)
            watch(1);
        m_store.records[id].handle = m_seed++;
        m_store.records[id].flags |= Record::AssignedHandle;
        m_handles.insert(id);
    }
}

std::string_view Database::bytes(RecordId id) const
{
    const Record &record = m_store.records[id];
    if (record.text != 0 || id >= m_fileRecords)
        return m_store.texts.bytes(record.text);
    const std::uint64_t end = id + 1 < m_fileRecords ? m_store.records[id + 1].begin : fileBytes().size();
    return fileBytes().substr(record.begin, end - record.begin);
}

GroupList Database::groups(RecordId id) const
{
    constexpr std::size_t usualCount = 16;
    GroupList groups;
    groups.reserve(usualCount);
    GroupReader groupReader = reader(id);
    for (Item item; groupReader.next(item);)
        groups.push_back(groupReader.group(item));
    return groups;
}

std::optional<Group> Database::firstGroup(RecordId id, int code) const
{
    GroupReader groupReader = reader(id);
    for (Item item; groupReader.next(item);)
        if (item.code == code)
            return groupReader.group(item);
    return std::nullopt;
}

RecordId Database::section(NameId name) const
{
    const auto found = std::find_if(m_sections.begin(), m_sections.end(), [this, name](RecordId id) {
        return record(id).name == name && !record(id).has(Record::Absent);
    });
    return found == m_sections.end() ? NoRecord : *found;
}

RecordId Database::knownEndOf(RecordId start) const
{
    const auto found = m_ends.find(start);
    return found != m_ends.end() && !record(found->second).has(Record::Absent) ? found->second : NoRecord;
}

bool Database::isPart(RecordId id) const
{
    return record(record(id).container).kind == RecordKind::Entity;
}

} // namespace drawing
