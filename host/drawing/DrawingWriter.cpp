#include "host/drawing/DrawingWriter.h"

#include "host/drawing/GroupCursor.h"
#include "host/drawing/GroupMerge.h"
#include "host/drawing/HeaderVariables.h"
#include "storage/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace drawing {

namespace {

class Writer
{
public:
    Writer(const Database &database, const std::function<bool(std::string_view)> &write)
        : m_database(database), m_write(write)
    {
    }
    bool run();

private:
    bool put(std::string_view bytes);
    bool flush();
    bool putComments(RecordId id);
    void makeSeed(RecordId variable, std::uint64_t lastHandle);
    std::uint64_t lastAddedHandle() const;

    const Database &m_database;
    const std::function<bool(std::string_view)> &m_write;
    std::string_view m_pending; // neighbours in memory are written together
    std::string m_seed;         // the changed variable of the next handle; empty when it stays
};

std::uint64_t Writer::lastAddedHandle() const
{
    std::uint64_t last = 0;
    for (std::size_t i = m_database.fileRecordCount(); i < m_database.recordCount(); ++i) {
        const Record &record = m_database.record(static_cast<RecordId>(i));
        if (!record.isGone())
            last = std::max(last, record.handle);
    }
    return last;
}

bool Writer::run()
{
    const RecordId seed = findVariable(m_database, "$HANDSEED");
    const std::uint64_t lastHandle = m_database.writesHandles() ? lastAddedHandle() : 0;
    if (seed != NoRecord && lastHandle != 0)
        makeSeed(seed, lastHandle);
    for (RecordId id = 0;;) {
        const Record &record = m_database.record(id);
        const bool written = id == seed && !m_seed.empty() ? put(m_seed)
                             : record.isGone()             ? putComments(id)
                                                           : put(m_database.bytes(id));
        if (!written)
            return false;
        id = record.next;
        if (id == NoRecord)
            return flush();
    }
}

// Sets the seed behind the handles that were added, where it is not.
void Writer::makeSeed(RecordId variable, std::uint64_t lastHandle)
{
    GroupList groups;
    bool isTooLow = false;
    GroupReader reader = m_database.reader(variable);
    for (Item item; reader.next(item);) {
        const bool isSeed = item.kind == ValueKind::Handle;
        isTooLow = isTooLow || (isSeed && item.handle <= lastHandle);
        groups.push_back(isSeed ? Group{item.code, Handle{lastHandle + 1}} : reader.group(item));
    }
    if (isTooLow)
        m_seed = merged(m_database.bytes(variable), groups, m_database.format(), m_database.codec()).value_or("");
}

// The comments of a record that is gone stay: most tell of what follows it.
bool Writer::putComments(RecordId id)
{
    if (m_database.record(id).has(Record::Added))
        return true;
    GroupCursor cursor(m_database.bytes(id), m_database.format());
    for (RawGroup group; cursor.next(group);)
        if (group.code == groupcode::Comment && !put(group.bytes))
            return false;
    return true;
}

bool Writer::put(std::string_view bytes)
{
    if (bytes.empty())
        return true;
    if (m_pending.data() + m_pending.size() == bytes.data()) {
        m_pending = {m_pending.data(), m_pending.size() + bytes.size()};
        return true;
    }
    // The last line of a file may lack its end; what is put behind it must not continue it.
    const FileFormat &format = m_database.format();
    const std::string_view file = m_database.fileBytes();
    const bool isPreamble = m_pending.data() == file.data() && m_pending.size() <= groupsBegin(file);
    const bool isOpen = format.kind == FileFormat::Kind::Text && !m_pending.empty() && !isPreamble &&
                        m_pending.back() != format.lineEndMark();
    if (!flush() || (isOpen && !m_write(format.lineEnd)))
        return false;
    m_pending = bytes;
    return true;
}

bool Writer::flush()
{
    return m_pending.empty() || m_write(m_pending);
}

QString backupPath(const QString &path)
{
    const QFileInfo info(path);
    return info.dir().filePath(info.completeBaseName() + QStringLiteral(".bak"));
}

bool copyFile(const QString &from, const QString &to, QString &failure)
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        failure = QStringLiteral("%1: %2").arg(from, source.errorString());
        return false;
    }
    const auto copy = [&source](QIODevice &file) {
        constexpr qint64 PieceSize = qint64{1} << 20;
        QByteArray piece(PieceSize, Qt::Uninitialized);
        qint64 length = 0;
        while ((length = source.read(piece.data(), PieceSize)) > 0)
            if (!writeAll(file, QByteArrayView(piece).first(length)))
                return false;
        return length == 0;
    };
    return replaceFile(to, copy, failure, Writers::Free);
}

} // namespace

bool writeDrawing(const Database &database, const std::function<bool(std::string_view)> &write)
{
    return Writer(database, write).run();
}

std::string writtenDrawing(const Database &database)
{
    std::string bytes;
    writeDrawing(database, [&bytes](std::string_view piece) {
        bytes.append(piece);
        return true;
    });
    return bytes;
}

bool saveDrawing(const Database &database, const QString &path, Backup backup, QString &failure)
{
    if (backup == Backup::Keep && QFileInfo(path).isFile() && !copyFile(path, backupPath(path), failure))
        return false;
    const auto write = [&database](QIODevice &file) {
        return writeDrawing(database, [&file](std::string_view piece) { return writeAll(file, piece); });
    };
    return replaceFile(path, write, failure, Writers::Free);
}

} // namespace drawing
