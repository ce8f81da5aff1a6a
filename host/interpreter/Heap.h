#pragma once

#include "host/interpreter/Code.h"
#include "host/interpreter/SharedStrings.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace lisp {

class Marker;

// Memory for cons cells, strings and other objects, with a precise mark-and-reuse collector that moves nothing.
// Allocation never collects: the machine calls collect() at its safe points (function entries and loop ends) once
// collectionDue(). So C++ code may hold values in plain variables as long as it does not call back into the machine;
// code that does keeps them on the machine's stack (see Rooted in Machine.h).
class Heap
{
public:
    using RootVisitor = std::function<void(Marker &)>;

    // `countdown` is set to 1 when a collection becomes due, so that the machine stops at its next safe point.
    explicit Heap(std::int32_t &countdown);
    ~Heap();
    Heap(const Heap &) = delete;
    Heap &operator=(const Heap &) = delete;

    Value cons(Value car, Value cdr)
    {
        if (m_freeCell == m_freeEnd) [[unlikely]]
            nextRun();
        Cons *cell = m_freeCell++;
        cell->car = car;
        cell->cdr = cdr;
        return Value::cons(cell);
    }
    Value string(std::u16string_view text);
    Value asciiString(std::string_view text);
    // Perhaps a string that somebody has already; nil where the first one finds none.
    Value findSharedString(std::string_view ascii) const { return m_shared.find(ascii); }
    Value sharedAsciiString(std::string_view text) { return m_shared.string(text); }
    // A string of this length; the caller fills the characters before anybody else sees the value.
    std::pair<Value, char16_t *> newString(std::size_t length);
    // first followed by rest; repeated appending to the latest result costs only the appended part.
    Value append(Value first, std::u16string_view rest);

    Function *newFunction() { return adopt(new Function); }
    // To be told when a function's code is complete, so that its size counts.
    void noteCompleted(const Function &function) { noteAllocated(sizeOf(&function)); }
    Builtin *newBuiltin() { return adopt(new Builtin); }
    External *newExternal() { return adopt(new External); }
    Traced *newTraced() { return adopt(new Traced); }
    template <class T, class... Arguments> Value newNative(Arguments &&...arguments)
    {
        return Value::object(adopt(new T(std::forward<Arguments>(arguments)...)));
    }

    bool collectionDue() const { return m_allocated >= m_threshold; }
    // Frees everything that the visitor does not reach. The visitor marks the roots.
    void collect(const RootVisitor &roots);
    // Whether the cell was reached in the collection that is under way; for tables keyed by cells.
    bool isMarked(const Cons *cell) const;

    // Allocation beyond about this many bytes raises the LISP error "out of memory".
    static constexpr std::size_t Unlimited = std::numeric_limits<std::size_t>::max();
    std::size_t limit() const { return m_limit; }
    void setLimit(std::size_t bytes)
    {
        m_limit = bytes;
        m_threshold = std::min(m_threshold, nextThreshold());
    }
    std::size_t liveBytes() const { return m_live; }
    std::size_t collections() const { return m_collections; }

private:
    friend class Marker;
    struct Block;

    template <class T> T *adopt(T *object)
    {
        link(object, sizeof(T));
        return object;
    }
    void link(Object *object, std::size_t size)
    {
        object->next = m_objects;
        m_objects = object;
        noteAllocated(size);
    }
    void noteAllocated(std::size_t bytes)
    {
        m_allocated += bytes;
        if (m_allocated >= m_threshold)
            m_countdown = 1;
    }
    void checkLimit(std::size_t bytes);
    std::size_t nextThreshold() const;
    bool markCell(const Cons *cell); // false when it was marked already
    StringBuffer *newBuffer(std::size_t capacity);
    void nextRun();
    bool nextRunInBlock();
    void sweepObjects();
    static void destroy(Object *object);
    static std::size_t sizeOf(const Object *object);

    std::int32_t &m_countdown;
    Cons *m_freeCell = nullptr; // the run of free cells that cons() fills
    Cons *m_freeEnd = nullptr;
    std::vector<Block *> m_blocks;
    std::size_t m_block = 0; // where the search for free runs stands
    std::size_t m_cell = 0;
    Object *m_objects = nullptr;
    SharedStrings m_shared{*this};
    std::size_t m_allocated = 0; // bytes since the last collection
    std::size_t m_threshold;
    std::size_t m_limit = Unlimited;
    std::size_t m_live = 0;
    std::size_t m_collections = 0;
};

// Marks values and what they refer to; iterative, so that no list is too long or too deep for it.
class Marker
{
public:
    explicit Marker(Heap &heap) : m_heap(heap) {}
    void mark(Value value);
    void mark(Object *object);

private:
    void push(Value value);
    void drain();
    void markContents(Object *object);

    Heap &m_heap;
    std::vector<Value> m_pending;
};

// Builds a list front to back.
class ListBuilder
{
public:
    explicit ListBuilder(Heap &heap) : m_heap(heap) {}

    void add(Value item)
    {
        const Value cell = m_heap.cons(item, Value::nil());
        if (m_last)
            m_last->cdr = cell;
        else
            m_head = cell;
        m_last = cell.asCons();
    }
    // Ends the list with a tail other than nil; no add() after it.
    void end(Value tail)
    {
        if (m_last)
            m_last->cdr = tail;
        else
            m_head = tail;
    }
    Value list() const { return m_head; }

private:
    Heap &m_heap;
    Value m_head;
    Cons *m_last = nullptr;
};

} // namespace lisp
