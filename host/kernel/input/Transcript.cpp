#include "host/kernel/input/Transcript.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace {

// Qt writes documents only; a value is what stands between the brackets of an array.
QByteArray jsonText(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

} // namespace

TranscriptEvent::TranscriptEvent(QStringView kind) : m_members("{\"event\":" + jsonText(QJsonValue(kind.toString()))) {}

TranscriptEvent &TranscriptEvent::add(QStringView name, const QJsonValue &value)
{
    m_members += ',' + jsonText(QJsonValue(name.toString())) + ':' + jsonText(value);
    return *this;
}

Transcript::Transcript(const QString &path) : m_file(std::make_unique<QFile>(path))
{
    const bool opened = path == u"-" ? m_file->open(stderr, QIODevice::WriteOnly)
                                     : m_file->open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (!opened)
        throw TranscriptError(QStringLiteral("%1: %2").arg(path, m_file->errorString()));
}

void Transcript::write(const TranscriptEvent &event)
{
    if (!m_file)
        return;
    m_file->write(event.line());
    m_file->flush();
}
