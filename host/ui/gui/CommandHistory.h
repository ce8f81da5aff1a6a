#pragma once

#include <QStringList>

// What was typed before, to go through with the arrow keys. An entry that repeats the last one is kept once.
class CommandHistory
{
public:
    void add(const QString &entry);                          // and starts over behind the newest
    const QStringList &entries() const { return m_entries; } // the oldest first
    // The entry before or after the one that was shown last; the text that was being typed when there is none.
    QString older(const QString &typed);
    QString newer(const QString &typed);

private:
    QStringList m_entries;
    qsizetype m_at = 0; // the size: what is being typed
    QString m_typed;
};
