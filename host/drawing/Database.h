#pragma once

#include "host/drawing/DictionaryIndex.h"
#include "host/drawing/GroupReader.h"
#include "host/drawing/HandleTable.h"
#include "host/drawing/Index.h"
#include "host/drawing/Journal.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <stdexcept>

namespace drawing {

// A file that cannot be read; what() names it, in UTF-8.
class ReadError : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// A drawing in memory: the bytes of its file, where its records lie in them, and what was changed since. What is not
// changed keeps its bytes; writeDrawing() (DrawingWriter.h) writes them as they were read.
//
// Symbol tables, header variables, dictionaries and layouts have headers of their own, over this one.
// Not safe for several threads.
class Database
{
public:
    static std::unique_ptr<Database> read(const QString &path, const ReadWatch &watch = {}); // throws ReadError
    explicit Database(QByteArray bytes, const ReadWatch &watch = {});                        // takes any bytes
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    // --- reading; an id is one that this drawing gave ---

    const Record &record(RecordId id) const { return m_store.records[id]; }
    std::size_t recordCount() const { return m_store.records.size(); } // ids are below it
    std::size_t fileRecordCount() const { return m_fileRecords; }      // ids below it were in the file
    std::string_view fileBytes() const { return {m_bytes.constData(), static_cast<std::size_t>(m_bytes.size())}; }
    std::string_view bytes(RecordId id) const; // valid until the record is changed
    GroupReader reader(RecordId id) const { return {bytes(id), m_format, m_codec}; }
    GroupList groups(RecordId id) const; // all of them, with type and handle
    std::optional<Group> firstGroup(RecordId id, int code) const;
    std::u16string name(RecordId id) const { return m_codec.decode(m_names.text(record(id).name)); }
    std::u16string type(RecordId id) const { return m_codec.decode(m_names.text(record(id).type)); }

    const FileFormat &format() const { return m_format; }
    const TextCodec &codec() const { return m_codec; }
    const NameTable &names() const { return m_names; }
    const Oddities &oddities() const { return m_oddities; }
    const std::string &version() const { return m_version; }   // as "AC1032"; "AC1009" when the file has none
    bool isBefore2000() const { return m_version < "AC1012"; } // without subclass markers and owners
    bool writesHandles() const { return m_writesHandles; }

    // Every entity, object, table record and block has a handle, also where the file gives none. A handle that stands
    // in several records is the first one's. Finds erased records too.
    RecordId find(Handle handle) const { return m_handles.find(handle.value); }

    // --- the order of the records ---

    RecordId section(NameId name) const; // its start; NoRecord when there is none
    // What a section, table or block holds, in order, with erased records; the first is its start's `next`.
    // NoRecord behind the last.
    RecordId firstIn(RecordId start) const { return within(record(start).next); }
    RecordId nextIn(RecordId id) const { return within(record(id).next); }
    RecordId knownEndOf(RecordId start) const; // its end mark; NoRecord in a file that was cut
    RecordId endOf(RecordId start);            // makes one where there is none
    bool isPart(RecordId id) const;            // a vertex, an attribute, the end of their sequence
    const std::vector<RecordId> &namedRecords() const
    {
        return m_named;
    } // table records and blocks' starts, also gone ones

    // Every name that a table record or a block has had since the drawing was opened, in order: names of the file, of
    // added records, and of renamed ones. Undone ones stay here.
    struct Naming
    {
        RecordId id;
        NameId name;
    };
    const std::vector<Naming> &namings() const { return m_namings; }

    // What stands in its dictionaries (see Dictionaries.h).
    DictionaryIndex &dictionaries() const { return m_dictionaries; }

    // --- changing; every change is remembered by the journal ---

    Journal &journal() { return m_journal; }
    const Journal &journal() const { return m_journal; }

    // The record's new groups. Its type and handle stay, whatever the groups say of them. False when a value cannot be
    // written; then nothing is changed.
    bool replace(RecordId id, const GroupList &groups);
    // The same for an entity that becomes one of another type, which the groups say. Neither type may have parts.
    bool turnInto(RecordId entity, const GroupList &groups);
    // More groups behind everything that an object has, whose last line has its end; takes time for these alone. False
    // when a value cannot be written.
    bool append(RecordId object, const GroupList &groups);
    // The same in two steps.
    std::optional<std::string> bytesWith(RecordId id, const GroupList &groups) const;
    enum class Fields : std::uint8_t { Changed, Kept }; // what a Record says of its bytes
    void replaceBytes(RecordId id, std::string bytes, Fields fields = Fields::Changed); // of the same type and handle

    // A new record before `before`, which is a record of the same container or the end mark. The groups begin with the
    // type (0); a handle is put after it for the kinds that have one. A handle that they bring stays in its place, and
    // is kept when it is free.
    // NoRecord when a value cannot be written.
    RecordId add(RecordKind kind, const GroupList &groups, RecordId before);

    // Puts an entity, with its vertices or attributes, before a record of another block or section, or its end mark.
    void move(RecordId entity, RecordId before);

    void erase(RecordId id); // with its vertices or attributes
    void restore(RecordId id);

    RecordId ensureSection(NameId name);                // makes an empty one in its place among the others
    std::uint64_t handleSeed() const { return m_seed; } // the next handle to be given

private:
    RecordId within(RecordId id) const
    {
        const bool isOutside = record(id).isEnd() || record(id).kind == RecordKind::SectionStart;
        return id != NoRecord && !isOutside ? id : NoRecord;
    }
    std::optional<std::string> bytesWithHandle(RecordId id, GroupList groups) const;
    void readHeader();
    void giveHandles(const ReadWatch &watch);
    void takeFields(RecordId id);
    RecordId insert(Record record, std::string bytes, RecordId before);
    RecordId lastRecord() const;
    void setErased(RecordId id, bool erased);
    void registerMark(RecordId id);
    RecordId containerAt(RecordKind kind, NameId type, RecordId before) const;
    bool isInside(RecordId id, RecordId start) const;

    QByteArray m_bytes;
    FileFormat m_format;
    TextCodec m_codec;
    RecordStore m_store;
    NameTable m_names;
    std::vector<RecordId> m_sections, m_named;
    std::vector<Naming> m_namings;
    std::unordered_map<RecordId, RecordId> m_ends;
    Oddities m_oddities;
    HandleTable m_handles{m_store.records};
    Journal m_journal{m_store};
    mutable DictionaryIndex m_dictionaries{*this};
    std::size_t m_fileRecords = 0;
    std::string m_version = "AC1009";
    bool m_writesHandles = false;
    std::uint64_t m_seed = 1;
};

} // namespace drawing
