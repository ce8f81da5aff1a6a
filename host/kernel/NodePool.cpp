#include "host/kernel/NodePool.h"

#include "host/kernel/CallFrame.h"
#include "host/kernel/TextFormat.h"
#include "host/kernel/ValueKind.h"
#include "lisp/TypeCode.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string_view>

#if __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h> // its macros do nothing without the sanitizer
#else
#define ASAN_POISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#endif

namespace {

constexpr std::size_t SlabSize = 256;
constexpr std::size_t ShortText = 64;  // UTF-16 units, terminator included: what stands in the slot itself
constexpr unsigned char Poison = 0xD5; // what a released node holds in builds with assertions

#ifdef NDEBUG
constexpr bool Checked = false;
#else
constexpr bool Checked = true;
#endif

// A free node holds the pattern, and the address sanitizer reports everyone who reads or writes it.
void closeNode(resbuf &node)
{
    if constexpr (Checked)
        std::memset(&node, Poison, sizeof node);
    ASAN_POISON_MEMORY_REGION(&node, sizeof node);
}

[[noreturn]] void abortWith(const char *message)
{
    std::fprintf(stderr, "result-buffer check: %s\n", message);
    std::abort();
}

std::size_t hashOf(const char16_t *text)
{
    return std::hash<std::u16string_view>()(text);
}

} // namespace

// A node and its place in the list of its frame or of the free nodes.
struct NodePool::Slot
{
    resbuf node; // first, so that a node's address is its slot's
    Slot *previous;
    Slot *next;
    const CallFrame *owner; // null: free
    const char16_t *lent;   // the node's text, when it is not its own
    std::size_t lentHash;   // of that text, in builds with assertions
    char16_t shortText[ShortText];
};

NodePool::NodePool() = default;

NodePool::~NodePool() = default;

resbuf *NodePool::allocate(CallFrame &owner, int typeCode)
{
    if (!m_free)
        grow();
    Slot *slot = m_free;
    m_free = slot->next;
    ASAN_UNPOISON_MEMORY_REGION(&slot->node, sizeof slot->node);
    if constexpr (Checked) {
        const auto *bytes = reinterpret_cast<const unsigned char *>(&slot->node);
        if (std::any_of(bytes, bytes + sizeof(resbuf), [](unsigned char byte) { return byte != Poison; }))
            abortWith("a node was written to after its release");
    }
    std::memset(&slot->node, 0, sizeof(resbuf));
    slot->node.restype = static_cast<std::int16_t>(typeCode);
    slot->owner = &owner;
    slot->lent = nullptr;
    slot->previous = nullptr;
    slot->next = static_cast<Slot *>(owner.m_nodes);
    if (slot->next)
        slot->next->previous = slot;
    owner.m_nodes = slot;
    ++m_live;
    return &slot->node;
}

void NodePool::setText(resbuf *node, std::u16string_view text)
{
    if (text.size() >= ShortText) {
        node->resval.string = duplicateWide(text);
        return;
    }
    auto *slot = reinterpret_cast<Slot *>(node);
    ASAN_UNPOISON_MEMORY_REGION(slot->shortText, sizeof slot->shortText);
    *std::copy(text.begin(), text.end(), slot->shortText) = u'\0';
    node->resval.string = slot->shortText;
}

void NodePool::lend(resbuf *node, const char16_t *text)
{
    auto *slot = reinterpret_cast<Slot *>(node);
    node->resval.string = const_cast<char16_t *>(text); // a node's texts are not for handlers to change
    slot->lent = text;
    if constexpr (Checked)
        slot->lentHash = hashOf(text);
}

void NodePool::release(CallFrame &owner, resbuf *list)
{
    while (list) {
        if constexpr (Checked)
            checkOwned(owner, list);
        auto *slot = reinterpret_cast<Slot *>(list);
        list = list->rbnext;
        if (slot->previous)
            slot->previous->next = slot->next;
        else
            owner.m_nodes = slot->next;
        if (slot->next)
            slot->next->previous = slot->previous;
        retire(slot);
    }
}

void NodePool::reclaim(CallFrame &owner)
{
    for (auto *slot = static_cast<Slot *>(owner.m_nodes); slot;) {
        Slot *next = slot->next;
        retire(slot);
        slot = next;
    }
    owner.m_nodes = nullptr;
}

void NodePool::releaseText(Slot &slot)
{
    if (Checked && slot.lent && hashOf(slot.lent) != slot.lentHash)
        abortWith("a text that was lent was changed");
    if (slot.node.resval.string != slot.lent && slot.node.resval.string != slot.shortText)
        std::free(slot.node.resval.string);
}

void NodePool::retire(Slot *slot)
{
    if (slot->node.restype == TypeString ||
        (slot->node.restype < TypeNone && valueKind(slot->node.restype) == ValueKind::Text))
        releaseText(*slot);
    ASAN_POISON_MEMORY_REGION(slot->shortText, sizeof slot->shortText);
    closeNode(slot->node);
    slot->owner = nullptr;
    slot->next = m_free;
    m_free = slot;
    --m_live;
}

void NodePool::grow()
{
    auto &slab = m_slabs.emplace_back(new Slot[SlabSize]);
    for (std::size_t i = SlabSize; i-- > 0;) {
        closeNode(slab[i].node);
        slab[i].owner = nullptr;
        slab[i].next = m_free;
        m_free = &slab[i];
    }
}

void NodePool::checkOwned(const CallFrame &owner, const resbuf *node) const
{
    const auto *slot = reinterpret_cast<const Slot *>(node);
    const bool known = std::any_of(m_slabs.begin(), m_slabs.end(), [slot](const auto &slab) {
        return slot >= slab.get() && slot < slab.get() + SlabSize;
    });
    if (!known)
        abortWith("a node was released that the host never gave");
    if (!slot->owner)
        abortWith("a node was released twice");
    if (slot->owner != &owner)
        abortWith("a node of another call was released");
}
