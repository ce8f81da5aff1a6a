#include "host/kernel/ResultBuilder.h"

#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/drawing/EntityName.h"
#include "lisp/TypeCode.h"

#include <string_view>

using lisp::ListBuilder;
using lisp::Machine;
using lisp::Value;

namespace {

// Walks nodes and builds values. A 5017 without its 5016 ends what is being read, as the end of the nodes does.
class NodeReader
{
public:
    NodeReader(Machine &machine, const resbuf *nodes) : m_machine(machine), m_next(nodes) {}

    Value readItems()
    {
        m_machine.checkNativeStack();
        ListBuilder items(m_machine.heap());
        while (m_next && m_next->restype != TypeListEnd) {
            if (m_next->restype == TypeDot) {
                m_next = m_next->rbnext;
                items.end(m_next && m_next->restype != TypeListEnd ? readValue() : Value::nil());
                break;
            }
            items.add(readValue());
        }
        while (m_next && m_next->restype != TypeListEnd)
            readValue(); // nothing may follow the tail of a dotted pair
        m_closed = m_next != nullptr;
        m_next = m_next ? m_next->rbnext : nullptr;
        return items.list();
    }

    Value readValue()
    {
        const resbuf &node = *m_next;
        m_next = node.rbnext;
        switch (node.restype) {
        case TypeReal:
            return Value::canonicalReal(node.resval.real);
        case TypePoint2d:
            return pointValue(m_machine, node.resval.point, 2);
        case TypePoint3d:
            return pointValue(m_machine, node.resval.point, 3);
        case TypeShort:
            return Value::integer(node.resval.shortInteger);
        case TypeLong:
            return Value::integer(node.resval.longInteger);
        case TypeString:
            return m_machine.string(node.resval.string ? std::u16string_view(node.resval.string) : u"");
        case TypeTrue:
            return m_machine.boolean(true);
        case TypeEntity:
            return entityName(m_machine, node.resval.name);
        case TypeSelectionSet:
            return selectionSet(node.resval.name);
        case TypeListBegin:
            return readItems();
        default:
            return Value::nil();
        }
    }

    Value selectionSet(const LispName &name) const
    {
        SelectionSet *set = Document::of(m_machine).selectionSets().find(name);
        return set ? Value::object(set) : Value::nil();
    }

    // Whether the list that was read last had its 5017.
    bool lastWasClosed() const { return m_closed; }

private:
    Machine &m_machine;
    const resbuf *m_next;
    bool m_closed = false;
};

} // namespace

Value valueFromNodes(Machine &machine, const resbuf *nodes)
{
    return nodes ? NodeReader(machine, nodes).readValue() : Value::nil();
}

Value listFromNodes(Machine &machine, const resbuf *nodes)
{
    if (nodes && nodes->restype == TypeListBegin) {
        NodeReader reader(machine, nodes);
        const Value list = reader.readValue();
        if (!reader.lastWasClosed())
            return list;
    }
    return NodeReader(machine, nodes).readItems();
}
