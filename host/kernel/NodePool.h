#pragma once

#include "lisp/resbuf.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

class CallFrame;

// Result-buffer nodes, pooled. Every node belongs to the call frame that asked for it until it is released; what a
// handler leaves behind goes back to the pool when its frame closes. Builds with assertions abort on a node that is
// released twice, that the running frame never gave, or that is written to after its release; under the address
// sanitizer reading a released node is an error, too.
class NodePool
{
public:
    NodePool();
    ~NodePool();
    NodePool(const NodePool &) = delete;
    NodePool &operator=(const NodePool &) = delete;

    // A node with all-zero value and no successor.
    resbuf *allocate(CallFrame &owner, int typeCode);
    // Gives a node a copy of the text. A short one stands beside the node, which spares an allocation.
    static void setText(resbuf *node, std::u16string_view text);
    // Gives a node a NUL-terminated text that stays the caller's and outlives the node's frame. Nobody may change it:
    // builds with assertions abort on a text that was changed.
    void lend(resbuf *node, const char16_t *text);
    // From this node to the end of its list, with the strings; null is allowed.
    void release(CallFrame &owner, resbuf *list);
    // Everything that the frame still owns.
    void reclaim(CallFrame &owner);

    std::size_t liveNodes() const { return m_live; }

private:
    struct Slot;
    friend class CallFrame;

    void grow();
    void retire(Slot *slot);
    static void releaseText(Slot &slot);
    void checkOwned(const CallFrame &owner, const resbuf *node) const;

    std::vector<std::unique_ptr<Slot[]>> m_slabs;
    Slot *m_free = nullptr;
    std::size_t m_live = 0;
};
