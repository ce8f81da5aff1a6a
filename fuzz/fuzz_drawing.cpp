// Drawings of any content: unchanged they are written byte for byte; edited, they are written and read again; undone,
// they are as before.

#include "host/drawing/DrawingWriter.h"

#include <cstdint>
#include <cstdlib>

namespace {

using drawing::Database;
using drawing::RecordId;
using drawing::RecordKind;

constexpr RecordId MostEdits = 500; // the rest of a large file is no different

void expect(bool holds)
{
    if (!holds)
        std::abort();
}

// One edit of each record: every kind of it by turns.
void edit(Database &database, RecordId id)
{
    const drawing::Record &record = database.record(id);
    const bool isEntity = record.kind == RecordKind::Entity && !record.isGone();
    drawing::GroupList groups = database.groups(id);
    switch (id % 4) {
    case 0:
        groups.push_back({1000, std::u16string(u"\u0416^\u00E4")});
        database.replace(id, groups);
        break;
    case 1:
        if (isEntity)
            database.erase(id);
        break;
    case 2:
        if (isEntity)
            database.add(RecordKind::Entity, {{0, u"POINT"}, {8, u"0"}, {10, drawing::Point{1, 2, 3}}}, id);
        break;
    default:
        if (!groups.empty())
            groups.pop_back();
        database.replace(id, groups);
    }
}

void editAll(Database &database)
{
    for (RecordId id = 1; id < database.fileRecordCount() && id < MostEdits; ++id)
        edit(database, id);
    const RecordId entities = database.ensureSection(drawing::known::Entities);
    database.add(RecordKind::Entity, {{0, u"POINT"}, {8, u"0"}}, database.endOf(entities));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const std::string original = bytes.toStdString();
    Database database(bytes);
    expect(drawing::writtenDrawing(database) == original);
    editAll(database);
    const Database again(QByteArray::fromStdString(drawing::writtenDrawing(database)));
    expect(again.recordCount() > 1);
    database.journal().undoToMark();
    expect(drawing::writtenDrawing(database) == original);
    return 0;
}
