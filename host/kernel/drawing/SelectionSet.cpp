#include "host/kernel/drawing/SelectionSet.h"

#include "host/interpreter/Machine.h"

#include <QString>

using drawing::RecordId;

SelectionSet *SelectionSets::find(const LispName &name) const
{
    const auto found = m_sets.find(name.words[0]);
    return found != m_sets.end() ? found->second : nullptr;
}

SelectionSet::SelectionSet(SelectionSets &owner) : m_owner(owner), m_number(++owner.m_last)
{
    m_owner.m_sets.emplace(m_number, this);
}

SelectionSet::~SelectionSet()
{
    m_owner.m_sets.erase(m_number);
}

std::u16string SelectionSet::printed() const
{
    return QStringLiteral("<Selection set: %1>").arg(m_number, 0, 16).toStdU16String();
}

bool SelectionSet::add(RecordId entity)
{
    const bool isNew = m_places.emplace(entity, m_entities.size()).second;
    if (isNew)
        m_entities.push_back(entity);
    return isNew;
}

bool SelectionSet::remove(RecordId entity)
{
    const auto found = m_places.find(entity);
    if (found == m_places.end())
        return false;
    m_entities.erase(m_entities.begin() + static_cast<std::ptrdiff_t>(found->second));
    for (std::size_t place = found->second; place < m_entities.size(); ++place)
        m_places[m_entities[place]] = place;
    m_places.erase(entity);
    return true;
}
