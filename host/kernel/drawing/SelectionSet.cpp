#include "host/kernel/drawing/SelectionSet.h"

#include "host/interpreter/Machine.h"

#include <QString>

#include <algorithm>
#include <utility>

using drawing::RecordId;

SelectionSet *SelectionSets::find(const LispName &name) const
{
    const auto found = m_sets.find(name.words[0]);
    return found != m_sets.end() ? found->second : nullptr;
}

void SelectionSets::forgetDrawing()
{
    for (const auto &[number, set] : m_sets)
        set->clear();
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

bool SelectionSet::add(RecordId entity, const commands::SharedWay &way)
{
    const bool isNew = m_places.emplace(entity, m_entities.size()).second;
    if (isNew)
        m_entities.push_back(entity);
    if (isNew && way)
        m_ways.emplace(entity, way);
    return isNew;
}

const commands::SelectionWay *SelectionSet::wayOf(RecordId entity) const
{
    const auto found = m_ways.find(entity);
    return found != m_ways.end() ? found->second.get() : nullptr;
}

void SelectionSet::clear()
{
    m_entities.clear();
    m_first = 0;
    m_places.clear();
    m_ways.clear();
}

// Programs take the first out until none is left. Else what stands behind moves up and its places are not told, which
// would take long for each of many that go; so the entity stands at its known place or before it.
bool SelectionSet::remove(RecordId entity)
{
    const auto found = m_places.find(entity);
    if (found == m_places.end())
        return false;
    std::size_t place = std::min(found->second, m_entities.size() - 1);
    while (m_entities[place] != entity)
        --place;
    if (std::cmp_equal(place, m_first))
        ++m_first;
    else
        m_entities.erase(m_entities.begin() + static_cast<std::ptrdiff_t>(place));
    m_places.erase(found);
    m_ways.erase(entity);
    return true;
}
