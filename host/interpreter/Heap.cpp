#include "host/interpreter/Heap.h"

#include "host/interpreter/Errors.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <new>

namespace lisp {

namespace {

constexpr std::size_t BlockSize = std::size_t{256} * 1024;
constexpr std::size_t CellsPerBlock = std::size_t{254} * 64;
constexpr std::size_t SmallestThreshold = std::size_t{16} * 1024 * 1024;
constexpr std::size_t SmallestRoom = std::size_t{1024} * 1024; // near the limit: collecting more often gains nothing
// Below this many characters a copy is cheaper than a shared buffer.
constexpr std::size_t SmallestBuffer = 256;

} // namespace

// Cells of one aligned block of memory; a set bit means that the last collection reached the cell.
struct Heap::Block
{
    std::uint64_t marks[CellsPerBlock / 64];
    Cons cells[CellsPerBlock];

    static Block *of(const Cons *cell)
    {
        const auto address = reinterpret_cast<std::uintptr_t>(cell) & ~(BlockSize - 1);
        return reinterpret_cast<Block *>(address); // NOLINT(performance-no-int-to-ptr)
    }
    std::size_t indexOf(const Cons *cell) const { return static_cast<std::size_t>(cell - cells); }
    bool isMarked(std::size_t index) const { return (marks[index / 64] >> (index % 64)) & 1; }
    void setMark(std::size_t index) { marks[index / 64] |= std::uint64_t(1) << (index % 64); }

    // The first cell at or after `index` whose mark is `wanted`; CellsPerBlock when there is none.
    std::size_t find(std::size_t index, bool wanted) const
    {
        while (index < CellsPerBlock) {
            const std::uint64_t word = (wanted ? marks[index / 64] : ~marks[index / 64]) >> (index % 64);
            if (word != 0)
                return index + static_cast<std::size_t>(std::countr_zero(word));
            index = (index / 64 + 1) * 64;
        }
        return CellsPerBlock;
    }
};

Heap::Heap(std::int32_t &countdown) : m_countdown(countdown), m_threshold(SmallestThreshold)
{
    static_assert(sizeof(Block) <= BlockSize);
}

Heap::~Heap()
{
    while (m_objects)
        destroy(std::exchange(m_objects, m_objects->next));
    for (Block *block : m_blocks)
        ::operator delete(block, std::align_val_t(BlockSize));
}

void Heap::nextRun()
{
    while (m_block < m_blocks.size()) {
        if (nextRunInBlock())
            return;
        ++m_block;
        m_cell = 0;
    }
    checkLimit(BlockSize);
    auto *block = static_cast<Block *>(::operator new(BlockSize, std::align_val_t(BlockSize)));
    std::fill(std::begin(block->marks), std::end(block->marks), 0);
    m_blocks.push_back(block);
    nextRunInBlock();
}

bool Heap::nextRunInBlock()
{
    Block *block = m_blocks[m_block];
    const std::size_t first = block->find(m_cell, false);
    if (first == CellsPerBlock)
        return false;
    m_cell = block->find(first, true);
    m_freeCell = block->cells + first;
    m_freeEnd = block->cells + m_cell;
    noteAllocated((m_cell - first) * sizeof(Cons));
    return true;
}

// A program that catches the error goes on with what the next safe point frees.
void Heap::checkLimit(std::size_t bytes)
{
    if (m_live + m_allocated + bytes <= m_limit)
        return;
    m_threshold = 0;
    m_countdown = 1;
    fail(u"out of memory");
}

// As much again as is in use, but not so much that garbage alone would reach the limit.
std::size_t Heap::nextThreshold() const
{
    const std::size_t room = m_limit > m_live ? m_limit - m_live : 0;
    return std::min(std::max(SmallestThreshold, m_live), std::max(SmallestRoom, room / 2));
}

Value Heap::string(std::u16string_view text)
{
    const auto [value, characters] = newString(text.size());
    std::copy(text.begin(), text.end(), characters);
    return value;
}

Value Heap::asciiString(std::string_view text)
{
    const auto [value, characters] = newString(text.size());
    std::copy(text.begin(), text.end(), characters);
    return value;
}

std::pair<Value, char16_t *> Heap::newString(std::size_t length)
{
    if (length > std::numeric_limits<std::int32_t>::max())
        fail(u"string too long");
    const std::size_t size = sizeof(String) + (length + 1) * sizeof(char16_t);
    checkLimit(size);
    auto *string = new (::operator new(size)) String;
    auto *characters = reinterpret_cast<char16_t *>(string + 1);
    characters[length] = 0;
    string->length = static_cast<std::uint32_t>(length);
    string->characters = characters;
    link(string, size);
    return {Value::string(string), characters};
}

Value Heap::append(Value first, std::u16string_view rest)
{
    String *head = first.asString();
    if (rest.empty())
        return first;
    const std::size_t length = head->length + rest.size();
    if (length < SmallestBuffer) {
        const auto [value, characters] = newString(length);
        std::copy(rest.begin(), rest.end(), std::copy_n(head->characters, head->length, characters));
        return value;
    }
    if (length > std::numeric_limits<std::int32_t>::max())
        fail(u"string too long");
    StringBuffer *buffer = head->buffer;
    const bool fits = buffer && head->characters + head->length == buffer->characters() + buffer->used &&
                      buffer->capacity - buffer->used >= rest.size();
    if (!fits) {
        buffer = newBuffer(length * 2);
        std::copy_n(head->characters, head->length, buffer->characters());
        buffer->used = head->length;
    }
    std::copy(rest.begin(), rest.end(), buffer->characters() + buffer->used);
    buffer->used += rest.size();
    ++buffer->references;

    auto *string = new (::operator new(sizeof(String))) String;
    string->length = static_cast<std::uint32_t>(length);
    string->characters = buffer->characters();
    string->buffer = buffer;
    link(string, sizeof(String));
    return Value::string(string);
}

StringBuffer *Heap::newBuffer(std::size_t capacity)
{
    const std::size_t size = sizeof(StringBuffer) + capacity * sizeof(char16_t);
    checkLimit(size);
    auto *buffer = new (::operator new(size)) StringBuffer;
    buffer->capacity = capacity;
    noteAllocated(size);
    return buffer;
}

void Heap::collect(const RootVisitor &roots)
{
    for (Block *block : m_blocks)
        std::fill(std::begin(block->marks), std::end(block->marks), 0);
    m_live = 0;
    m_shared.clear();
    Marker marker(*this);
    roots(marker);
    sweepObjects();
    m_freeCell = m_freeEnd = nullptr;
    m_block = m_cell = 0;
    m_allocated = 0;
    m_threshold = nextThreshold();
    ++m_collections;
}

bool Heap::isMarked(const Cons *cell) const
{
    const Block *block = Block::of(cell);
    return block->isMarked(block->indexOf(cell));
}

bool Heap::markCell(const Cons *cell)
{
    Block *block = Block::of(cell);
    const std::size_t index = block->indexOf(cell);
    if (block->isMarked(index))
        return false;
    block->setMark(index);
    m_live += sizeof(Cons);
    return true;
}

void Heap::sweepObjects()
{
    Object **link = &m_objects;
    while (Object *object = *link) {
        if (object->marked) {
            object->marked = false;
            m_live += sizeOf(object);
            link = &object->next;
        } else {
            *link = object->next;
            destroy(object);
        }
    }
}

void Heap::destroy(Object *object)
{
    switch (object->kind) {
    case ObjectKind::String: {
        auto *string = static_cast<String *>(object);
        if (string->buffer && --string->buffer->references == 0)
            ::operator delete(string->buffer);
        string->~String();
        ::operator delete(string);
        break;
    }
    case ObjectKind::Function:
        delete static_cast<Function *>(object);
        break;
    case ObjectKind::Builtin:
        delete static_cast<Builtin *>(object);
        break;
    case ObjectKind::External:
        delete static_cast<External *>(object);
        break;
    case ObjectKind::Traced:
        delete static_cast<Traced *>(object);
        break;
    case ObjectKind::Native:
        delete static_cast<Native *>(object);
        break;
    }
}

std::size_t Heap::sizeOf(const Object *object)
{
    if (object->kind == ObjectKind::Function) {
        const auto *function = static_cast<const Function *>(object);
        return sizeof(Function) + function->code.size() * (sizeof(Instruction) + sizeof(std::uint32_t)) +
               (function->constants.size() + function->variables.size()) * sizeof(Value);
    }
    if (object->kind != ObjectKind::String)
        return sizeof(Builtin);
    const auto *string = static_cast<const String *>(object);
    const std::size_t characters =
        string->buffer ? string->buffer->capacity / string->buffer->references : string->length + 1;
    return sizeof(String) + characters * sizeof(char16_t);
}

void Marker::mark(Value value)
{
    push(value);
    drain();
}

void Marker::mark(Object *object)
{
    if (!object || object->marked)
        return;
    object->marked = true;
    markContents(object);
    drain();
}

void Marker::push(Value value)
{
    if (value.isCons())
        m_pending.push_back(value);
    else if (value.isString())
        value.asString()->marked = true;
    else if (value.isObject() && !value.asObject()->marked) {
        value.asObject()->marked = true;
        markContents(value.asObject());
    }
}

void Marker::drain()
{
    while (!m_pending.empty()) {
        Value list = m_pending.back();
        m_pending.pop_back();
        while (list.isCons() && m_heap.markCell(list.asCons())) {
            push(list.asCons()->car);
            list = list.asCons()->cdr;
        }
        if (!list.isCons())
            push(list);
    }
}

void Marker::markContents(Object *object)
{
    if (object->kind == ObjectKind::Traced)
        m_pending.push_back(static_cast<Traced *>(object)->function);
    if (object->kind != ObjectKind::Function)
        return;
    for (const Value constant : static_cast<Function *>(object)->constants)
        m_pending.push_back(constant);
}

} // namespace lisp
