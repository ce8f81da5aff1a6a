#pragma once

#include "host/interpreter/Errors.h"
#include "host/interpreter/Machine.h"
#include "host/interpreter/Objects.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// How a built-in function is written. Each family is one file in builtins/ with one table of rows:
//
//     namespace {
//     Value stringLength(Machine &, Args arguments) { ... return Value::integer(total); }
//     constexpr BuiltinRow rows[] = {
//         {"strlen", "(strlen [STRING ...])", "Gives the number of characters in the strings.", stringLength},
//     };
//     }
//     std::span<const BuiltinRow> stringBuiltins() { return rows; }
//
// The signature is the single source of the number of arguments: words in capitals are required, [WORD] may be left
// out, "..." allows any number. `lisphost doc NAME` prints name, signature and description from here.
namespace lisp {

// The evaluated arguments of one call of a built-in; the machine has checked their number. The typed getters raise the
// language's "bad argument type" error. The values stay reachable for the collector during the call.
class Args
{
public:
    Args(const Value *values, std::uint32_t count) : m_values(values), m_count(count) {}

    std::uint32_t count() const { return m_count; }
    bool has(std::uint32_t index) const { return index < m_count; }
    // The argument, or nil where there is none.
    Value operator[](std::uint32_t index) const { return index < m_count ? m_values[index] : Value::nil(); }
    const Value *begin() const { return m_values; }
    const Value *end() const { return m_values + m_count; }

    std::int32_t integer(std::uint32_t index) const;     // fixnump:
    double number(std::uint32_t index) const;            // numberp: an integer or a real
    std::u16string_view text(std::uint32_t index) const; // stringp
    Value list(std::uint32_t index) const;               // listp: a cons or nil
    Cons *cons(std::uint32_t index) const;               // consp
    Symbol *symbol(std::uint32_t index) const;           // symbolp
    template <class T> T *native(std::uint32_t index, std::u16string_view predicate) const
    {
        const Value value = (*this)[index];
        if (T *thing = asNative<T>(value))
            return thing;
        badArgument(predicate, value);
    }

private:
    const Value *m_values;
    std::uint32_t m_count;
};

struct BuiltinRow
{
    const char *name;
    const char *signature;
    const char *description;
    BuiltinHandler handler;
};

// The families; Builtins.cpp registers them in this order.
std::span<const BuiltinRow> listBuiltins();       // builtins/Lists.cpp
std::span<const BuiltinRow> numberBuiltins();     // builtins/Numbers.cpp
std::span<const BuiltinRow> comparisonBuiltins(); // builtins/Comparison.cpp
std::span<const BuiltinRow> geometryBuiltins();   // builtins/Geometry.cpp
std::span<const BuiltinRow> functionBuiltins();   // builtins/Functions.cpp
std::span<const BuiltinRow> symbolBuiltins();     // builtins/Symbols.cpp
std::span<const BuiltinRow> sequenceBuiltins();   // builtins/Sequences.cpp
std::span<const BuiltinRow> outputBuiltins();     // builtins/Output.cpp
std::span<const BuiltinRow> stringBuiltins();     // builtins/Strings.cpp
std::span<const BuiltinRow> conversionBuiltins(); // builtins/Conversions.cpp
std::span<const BuiltinRow> fileBuiltins();       // builtins/Files.cpp
std::span<const BuiltinRow> fileNameBuiltins();   // builtins/FileNames.cpp
std::span<const BuiltinRow> systemBuiltins();     // builtins/System.cpp

// Defines all built-ins and special forms in a new machine.
void defineBuiltins(Machine &machine);
// Defines a family in addition, one of the host's for example.
void defineBuiltins(Machine &machine, std::span<const BuiltinRow> family);

struct ArgumentRange
{
    std::uint32_t minimum, maximum;
};
// The number of arguments that a signature such as "(substr STRING START [LENGTH])" allows.
ArgumentRange argumentRange(std::string_view signature);

// The items of a proper list, for range-based for; raises "bad argument type: listp" at an improper end.
class ListItems
{
public:
    explicit ListItems(Value list) : m_list(list) {}
    class Iterator
    {
    public:
        explicit Iterator(Value rest) : m_rest(rest) {}
        Value operator*() const { return m_rest.asCons()->car; }
        Iterator &operator++()
        {
            m_rest = m_rest.asCons()->cdr;
            return *this;
        }
        bool operator!=(const Iterator &) const
        {
            if (m_rest.isCons())
                return true;
            if (m_rest.isTrue())
                badArgument(u"listp", m_rest);
            return false;
        }

    private:
        Value m_rest;
    };
    Iterator begin() const { return Iterator(m_list); }
    Iterator end() const { return Iterator(Value::nil()); }

private:
    Value m_list;
};

// The items of a proper list; raises the same error.
std::vector<Value> itemsOf(Value list);

} // namespace lisp
