#pragma once

#include <QByteArray>
#include <QFile>
#include <QJsonValue>

#include <memory>
#include <stdexcept>

// A transcript that cannot be opened; the text names the file.
class TranscriptError : public std::runtime_error
{
public:
    explicit TranscriptError(const QString &message) : std::runtime_error(message.toStdString()) {}
};

// One event of a run, as a JSON object whose members keep the order in which they are added.
class TranscriptEvent
{
public:
    // The kind of event: request, dialog, window, progress, shell, beep, help.
    explicit TranscriptEvent(QStringView kind);

    TranscriptEvent &add(QStringView name, const QJsonValue &value);
    QByteArray line() const { return m_members + "}\n"; }

private:
    QByteArray m_members;
};

// Writes down what a run asked, showed and launched, as JSON Lines. Without a file it writes nothing. Every event is on
// disk when write() comes back, so that a run that ends badly leaves all that happened before.
class Transcript
{
public:
    Transcript() = default;
    // "-" is standard error. Raises TranscriptError.
    explicit Transcript(const QString &path);

    bool isOpen() const { return m_file != nullptr; }
    void write(const TranscriptEvent &event);

private:
    std::unique_ptr<QFile> m_file;
};
