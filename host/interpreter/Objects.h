#pragma once

#include "host/interpreter/Value.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>

// What lives on the collected heap besides cons cells. Objects are made by Heap only and never move.
namespace lisp {

class Machine;
class Args;

enum class ObjectKind : std::uint8_t { String, Function, Builtin, External, Traced, Native };

struct Object
{
    explicit Object(ObjectKind objectKind) : kind(objectKind) {}

    Object *next = nullptr; // all objects of the heap, for the sweep
    ObjectKind kind;
    bool marked = false;
};

// Characters that several strings may share: each string sees a prefix, and appending to the string that ends where the
// buffer's used part ends writes behind it without copying. What a string sees never changes.
struct StringBuffer
{
    std::size_t references = 0;
    std::size_t used = 0;
    std::size_t capacity = 0;
    char16_t *characters() { return reinterpret_cast<char16_t *>(this + 1); }
};

// An immutable UTF-16 text; unpaired surrogates are allowed. NUL-terminated when it shares no buffer.
struct String : Object
{
    String() : Object(ObjectKind::String) {}

    std::u16string_view view() const { return {characters, length}; }

    std::uint32_t length = 0;
    bool isKnownText = false; // somebody has looked: there is no NUL in it
    const char16_t *characters = nullptr;
    StringBuffer *buffer = nullptr; // null: the characters stand behind the object itself
};

// A name and its one value cell: variables and functions share it. Symbols are never collected.
struct Symbol
{
    Value value;
    std::u16string name; // upper case, as printed
};

using BuiltinHandler = Value (*)(Machine &, Args);

struct SpecialForm;

struct Builtin : Object
{
    Builtin() : Object(ObjectKind::Builtin) {}

    BuiltinHandler handler = nullptr;         // null: a special form that cannot be applied to values
    const SpecialForm *specialForm = nullptr; // how the compiler translates calls; null: an ordinary function
    std::uint32_t minimum = 0;                // number of arguments
    std::uint32_t maximum = 0;
    const Symbol *name = nullptr;
    const char *signature = nullptr;
    const char *description = nullptr;
};

// A function that a loaded module defines. `entry` is its address; the machine's ExternalCaller knows how to call it.
struct External : Object
{
    External() : Object(ObjectKind::External) {}

    int (*entry)() = nullptr;
    const Symbol *name = nullptr;
};

// Stands in a symbol for the function whose calls `trace` shows; programs see the function itself.
struct Traced : Object
{
    Traced() : Object(ObjectKind::Traced) {}

    Value function;
    const Symbol *name = nullptr;
};

// Anything else that a value can stand for: files, error objects, entity names.
struct Native : Object
{
    Native() : Object(ObjectKind::Native) {}
    virtual ~Native() = default;

    virtual std::u16string_view typeName() const = 0; // what `type` gives, e.g. u"FILE"
    virtual std::u16string printed() const = 0;
    virtual bool equals(const Native &other) const { return this == &other; } // for eq, = and equal
};

// The native object of this class in a value; null when it is something else.
template <class T> T *asNative(Value value)
{
    const bool isNative = value.isObject() && value.asObject()->kind == ObjectKind::Native;
    auto *native = isNative ? static_cast<Native *>(value.asObject()) : nullptr;
    if constexpr (std::is_final_v<T>) // takes a fraction of the time
        return native && typeid(*native) == typeid(T) ? static_cast<T *>(native) : nullptr;
    else
        return dynamic_cast<T *>(native);
}

} // namespace lisp
