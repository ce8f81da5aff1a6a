#include "host/interpreter/SymbolTable.h"

#include <QString>

#include <algorithm>

namespace lisp {

std::u16string SymbolTable::folded(std::u16string_view name)
{
    const bool plain = std::all_of(name.begin(), name.end(), [](char16_t unit) { return unit < 0x80; });
    if (!plain)
        return QString(reinterpret_cast<const QChar *>(name.data()), static_cast<qsizetype>(name.size()))
            .toUpper()
            .toStdU16String();
    std::u16string upper(name);
    for (char16_t &unit : upper)
        if (unit >= u'a' && unit <= u'z')
            unit = static_cast<char16_t>(unit - u'a' + u'A');
    return upper;
}

Symbol *SymbolTable::intern(std::u16string_view name)
{
    std::u16string upper = folded(name);
    if (const auto found = m_byName.find(upper); found != m_byName.end())
        return found->second;
    Symbol &symbol = m_symbols.emplace_back(Symbol{Value::nil(), std::move(upper)});
    m_byName.emplace(symbol.name, &symbol);
    return &symbol;
}

Symbol *SymbolTable::find(std::u16string_view name)
{
    const auto found = m_byName.find(folded(name));
    return found == m_byName.end() ? nullptr : found->second;
}

} // namespace lisp
