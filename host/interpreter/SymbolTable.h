#pragma once

#include "host/interpreter/Objects.h"

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace lisp {

// All symbols of one machine, by upper-case name. Symbols stay at their address for the life of the table.
class SymbolTable
{
public:
    Symbol *intern(std::u16string_view name);
    // Null when no such symbol has been seen.
    Symbol *find(std::u16string_view name);
    const std::deque<Symbol> &all() const { return m_symbols; }
    std::deque<Symbol> &all() { return m_symbols; }

    static std::u16string folded(std::u16string_view name);

private:
    std::deque<Symbol> m_symbols;
    std::unordered_map<std::u16string_view, Symbol *> m_byName; // keys are the symbols' own names
};

} // namespace lisp
