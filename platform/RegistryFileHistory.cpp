#include "platform/RegistryFileHistory.h"

#include <QFile>

#include <utility>

namespace {

constexpr auto ForReading = QIODevice::ReadOnly | QIODevice::Unbuffered;
constexpr auto ForWriting = QIODevice::ReadWrite | QIODevice::Unbuffered;

// A process that is killed has written all of a record or none of it.
template <class Record> bool readRecord(QFile &file, Record &record)
{
    return file.read(reinterpret_cast<char *>(&record), sizeof record) == sizeof record;
}

template <class Record> bool writeRecord(QFile &file, qint64 place, const Record &record)
{
    return file.seek(place) && file.write(reinterpret_cast<const char *>(&record), sizeof record) == sizeof record;
}

} // namespace

// FNV-1a, which can be continued.
void RegistryFileHistory::State::extendTo(const QByteArray &content, qsizetype end)
{
    for (auto place = static_cast<qsizetype>(length); place < end; ++place)
        sum = (sum ^ static_cast<unsigned char>(content[place])) * 0x100000001b3;
    length = static_cast<std::uint64_t>(end);
}

RegistryFileHistory::State RegistryFileHistory::stateOf(const QByteArray &content)
{
    State state;
    state.extendTo(content, content.size());
    return state;
}

bool RegistryFileHistory::read(QFile &file, Header &header)
{
    return file.seek(0) && readRecord(file, header);
}

std::uint64_t RegistryFileHistory::changesSince(const QByteArray &content) const
{
    QFile file(m_path);
    Header header;
    if (!file.open(ForReading) || !read(file, header) || std::cmp_greater_equal(content.size(), header.whole.length))
        return 0;
    const State state = stateOf(content.endsWith('\n') ? content : content + '\n');
    if (state == header.whole || state == header.next)
        return 0;
    State earlier;
    for (std::uint64_t index = 0; index < header.earlierStates && readRecord(file, earlier); ++index)
        if (earlier == state)
            return header.earlierStates - index;
    return 0;
}

bool RegistryFileHistory::addEarlier(QFile &file, Header &header, const State &state)
{
    const auto place = sizeof header + header.earlierStates * sizeof state;
    ++header.earlierStates;
    return writeRecord(file, static_cast<qint64>(place), state);
}

void RegistryFileHistory::goOn(const QByteArray &content, qsizetype before)
{
    QFile file(m_path);
    if (!file.open(ForWriting))
        return;
    Header header;
    read(file, header);
    m_known.extendTo(content, before);
    bool isWritten = true;
    if (header.whole != m_known) { // by an editor, or a process that was killed before it could tell
        State present;
        if (std::cmp_less(header.whole.length, before))
            present.extendTo(content, static_cast<qsizetype>(header.whole.length));
        if (present == header.whole)
            isWritten = addEarlier(file, header, present);
        else
            header.earlierStates = 0;
    }
    isWritten = isWritten && addEarlier(file, header, m_known);
    m_known.extendTo(content, content.size());
    header.whole = m_known;
    header.next = {};
    if (isWritten)
        writeRecord(file, 0, header);
}

void RegistryFileHistory::write(const Header &header) const
{
    QFile file(m_path);
    if (file.open(ForWriting))
        writeRecord(file, 0, header);
}

void RegistryFileHistory::announce(const QByteArray &content)
{
    QFile file(m_path);
    Header header;
    if (file.open(ForReading))
        read(file, header);
    header.next = stateOf(content);
    write(header);
}

void RegistryFileHistory::begin(const QByteArray &content)
{
    m_known = stateOf(content);
    Header header;
    header.whole = m_known;
    write(header);
}
