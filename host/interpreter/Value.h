#pragma once

#include <bit>
#include <cstdint>

// A LISP value in 64 bits. A real is its own IEEE bits; everything else hides in the negative quiet NaNs, with the kind
// in the upper 16 bits and an integer or an address in the rest. User-space addresses fit 48 bits on x86-64 and
// AArch64 Linux and on 64-bit Windows.
namespace lisp {

struct Cons;
struct Object;
struct String;
struct Symbol;

class Value
{
public:
    constexpr Value() : m_bits(NilBits) {}

    static constexpr Value nil() { return Value(); }
    static constexpr Value integer(std::int32_t number)
    {
        return Value((IntegerTag << TagShift) | static_cast<std::uint32_t>(number));
    }
    // Not for a NaN made elsewhere, whose payload may look like another kind: see canonicalReal.
    static constexpr Value real(double number) { return Value(std::bit_cast<std::uint64_t>(number)); }
    static constexpr Value canonicalReal(double number) { return number != number ? Value(NanBits) : real(number); }
    static Value cons(const Cons *cell) { return fromPointer(ConsTag, cell); }
    static Value symbol(const Symbol *name) { return fromPointer(SymbolTag, name); }
    static Value string(const String *text) { return fromPointer(StringTag, text); }
    // Any heap object but a cons, a symbol and a string.
    static Value object(const Object *thing) { return fromPointer(ObjectTag, thing); }
    static constexpr Value fromBits(std::uint64_t bits) { return Value(bits); }

    constexpr std::uint64_t bits() const { return m_bits; }

    constexpr bool isNil() const { return m_bits == NilBits; }
    constexpr bool isTrue() const { return m_bits != NilBits; }
    constexpr bool isInteger() const { return tag() == IntegerTag; }
    constexpr bool isReal() const { return m_bits < (IntegerTag << TagShift); }
    constexpr bool isNumber() const { return m_bits < (NilTag << TagShift); }
    constexpr bool isCons() const { return tag() == ConsTag; }
    constexpr bool isList() const { return isCons() || isNil(); }
    constexpr bool isSymbol() const { return tag() == SymbolTag; }
    constexpr bool isString() const { return tag() == StringTag; }
    constexpr bool isObject() const { return tag() == ObjectTag; }

    constexpr std::int32_t asInteger() const { return static_cast<std::int32_t>(static_cast<std::uint32_t>(m_bits)); }
    constexpr double asReal() const { return std::bit_cast<double>(m_bits); }
    // An integer or a real as a double.
    constexpr double asDouble() const { return isInteger() ? asInteger() : asReal(); }
    Cons *asCons() const { return static_cast<Cons *>(pointer()); }
    Symbol *asSymbol() const { return static_cast<Symbol *>(pointer()); }
    String *asString() const { return static_cast<String *>(pointer()); }
    Object *asObject() const { return static_cast<Object *>(pointer()); }

    // Identity, as `eq` has it for everything but numbers and strings.
    friend constexpr bool operator==(Value a, Value b) { return a.m_bits == b.m_bits; }

private:
    static constexpr unsigned TagShift = 48;
    static constexpr std::uint64_t IntegerTag = 0xFFF9, NilTag = 0xFFFA, ConsTag = 0xFFFB, SymbolTag = 0xFFFC,
                                   StringTag = 0xFFFD, ObjectTag = 0xFFFE;
    static constexpr std::uint64_t NilBits = NilTag << TagShift;
    static constexpr std::uint64_t NanBits = 0x7FF8'0000'0000'0000;
    static constexpr std::uint64_t PointerMask = 0x0000'FFFF'FFFF'FFFF;

    explicit constexpr Value(std::uint64_t bits) : m_bits(bits) {}
    static Value fromPointer(std::uint64_t tag, const void *address)
    {
        return Value((tag << TagShift) | reinterpret_cast<std::uintptr_t>(address));
    }
    constexpr std::uint64_t tag() const { return m_bits >> TagShift; }
    void *pointer() const
    {
        const auto address = static_cast<std::uintptr_t>(m_bits & PointerMask);
        return reinterpret_cast<void *>(address); // NOLINT(performance-no-int-to-ptr)
    }

    std::uint64_t m_bits;
};

static_assert(sizeof(Value) == 8);

struct Cons
{
    Value car;
    Value cdr;
};

} // namespace lisp
