#pragma once

#include "host/interpreter/Builtins.h"
#include "host/kernel/NodePool.h"

enum class TextWidth { Wide, Narrow };

// Whether nodes get the string's own text: a long one, whose copy would cost more than the call. Arguments outlive the
// nodes of their call.
bool isLent(lisp::String &string);

// Turns LISP values into result-buffer nodes of the frame:
// integer 5003 when it fits 16 bits, else 5010; real 5001; string 5005; nil 5019; T 5021; a list of two or three
// numbers one 5002 or 5009 node; any other list 5016 … 5017, with 5018 before the tail of a dotted pair; an entity name
// 5006; a selection set 5007; anything else a lone 5000. Strings are allocated with malloc and belong to their nodes,
// but long ones are lent.
class ArgumentList
{
public:
    ArgumentList(lisp::Machine &machine, NodePool &pool, CallFrame &frame, TextWidth width)
        : m_machine(machine), m_pool(pool), m_frame(frame), m_width(width)
    {
    }

    void add(lisp::Value value);
    resbuf *head() const { return m_head; }

private:
    resbuf *addNode(int typeCode);
    void addInteger(std::int32_t number);
    void addString(lisp::String &string);
    void addList(lisp::Value list);
    void addObject(lisp::Value object);
    bool addPoint(lisp::Value list);

    lisp::Machine &m_machine;
    NodePool &m_pool;
    CallFrame &m_frame;
    TextWidth m_width;
    resbuf *m_head = nullptr;
    resbuf *m_last = nullptr;
};
