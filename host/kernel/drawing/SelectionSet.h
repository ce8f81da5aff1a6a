#pragma once

#include "host/commands/SelectionWay.h"
#include "host/drawing/Record.h"
#include "host/interpreter/Objects.h"
#include "lisp/resbuf.h"

#include <map>
#include <unordered_map>
#include <vector>

namespace lisp {
class Machine;
class Value;
} // namespace lisp

struct SelectionSet;

// The selection sets of one document that programs still hold, by their numbers.
class SelectionSets
{
public:
    SelectionSet *find(const LispName &name) const; // null when there is none
    void forgetDrawing();                           // all of them are empty then

private:
    friend struct SelectionSet;
    std::map<std::int64_t, SelectionSet *> m_sets;
    std::int64_t m_last = 0;
};

// Entities in the order in which they were added, each once. They belong to the drawing that is open in the document;
// some may be erased.
struct SelectionSet final : lisp::Native
{
    explicit SelectionSet(SelectionSets &owner);
    ~SelectionSet() override;

    std::u16string_view typeName() const override { return u"PICKSET"; }
    std::u16string printed() const override;

    bool add(drawing::RecordId entity, const commands::SharedWay &way = nullptr); // false: it is in there already
    bool remove(drawing::RecordId entity);
    bool contains(drawing::RecordId entity) const { return m_places.count(entity) != 0; }
    std::size_t size() const { return m_entities.size() - m_first; }
    drawing::RecordId at(std::size_t index) const { return m_entities[m_first + index]; }
    std::vector<drawing::RecordId> entities() const { return {m_entities.begin() + m_first, m_entities.end()}; }
    const commands::SelectionWay *wayOf(drawing::RecordId entity) const; // null: none that is kept

    LispName nodeName() const { return {{m_number, 0}}; }

private:
    friend class SelectionSets;
    void clear();

    SelectionSets &m_owner;
    std::int64_t m_number;
    std::vector<drawing::RecordId> m_entities;
    std::ptrdiff_t m_first = 0; // before it stand those that were taken out at the beginning
    std::unordered_map<drawing::RecordId, std::size_t> m_places;
    commands::SelectionWays m_ways;
};
