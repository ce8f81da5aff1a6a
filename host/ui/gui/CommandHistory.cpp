#include "host/ui/gui/CommandHistory.h"

void CommandHistory::add(const QString &entry)
{
    if (!entry.isEmpty() && (m_entries.isEmpty() || m_entries.last() != entry))
        m_entries.append(entry);
    m_at = m_entries.size();
    m_typed.clear();
}

QString CommandHistory::older(const QString &typed)
{
    if (m_at == m_entries.size())
        m_typed = typed;
    if (m_at == 0)
        return typed;
    return m_entries[--m_at];
}

QString CommandHistory::newer(const QString &typed)
{
    if (m_at == m_entries.size())
        return typed;
    return ++m_at == m_entries.size() ? m_typed : m_entries[m_at];
}
