#include "tests/support/NodeStore.h"

#include <gtest/gtest.h>

struct NodeStore::Node
{
    resbuf record = {};
    std::u16string text;
    std::string narrowText;
    int position = 0; // among the arguments; 0: none of them
};

NodeStore::NodeStore() = default;
NodeStore::~NodeStore() = default;

NodeStore::Node &NodeStore::emplace(TypeCode type)
{
    auto node = std::make_unique<Node>();
    node->record.restype = static_cast<std::int16_t>(type);
    Node &result = *node;
    m_nodes.emplace(&result.record, std::move(node));
    return result;
}

resbuf *NodeStore::add(TypeCode type, const LispValue &value)
{
    Node &node = emplace(type);
    node.record.resval = value;
    return &node.record;
}

resbuf *NodeStore::addText(const std::u16string &text)
{
    Node &node = emplace(TypeString);
    node.text = text;
    node.record.resval.string = node.text.data();
    return &node.record;
}

resbuf *NodeStore::addNarrowText(const std::string &text)
{
    Node &node = emplace(TypeString);
    node.narrowText = text;
    node.record.resval.narrowString = node.narrowText.data();
    return &node.record;
}

resbuf *NodeStore::addArguments(const Arguments &arguments)
{
    resbuf *head = nullptr;
    resbuf **link = &head;
    int position = 0;
    for (const Argument &argument : arguments) {
        *link = argument.type == TypeString ? addText(argument.text) : add(argument.type, argument.value);
        m_nodes.at(*link)->position = ++position;
        link = &(*link)->rbnext;
    }
    return head;
}

resbuf *NodeStore::addBuilt(int firstCode, std::va_list values, bool narrow)
{
    resbuf *head = nullptr;
    resbuf **link = &head;
    for (int code = firstCode; code != 0 && code != TypeNone; code = va_arg(values, int)) {
        LispValue value = {};
        if (code == TypeString || (code >= 1000 && code <= 1002)) {
            *link = narrow ? addNarrowText(va_arg(values, const char *)) : addText(va_arg(values, const char16_t *));
            (*link)->restype = static_cast<std::int16_t>(code);
        } else {
            if (code == TypeReal)
                value.real = va_arg(values, double);
            else if (code == TypeShort || code == TypeLong || code == 1071)
                value.longInteger = va_arg(values, int);
            else if (code == TypePoint2d || code == TypePoint3d)
                value.point = *va_arg(values, const LispPoint *);
            else if (code == TypeEntity || code == TypeSelectionSet)
                value.name = *va_arg(values, const LispName *);
            *link = add(static_cast<TypeCode>(code), value);
        }
        link = &(*link)->rbnext;
    }
    return head;
}

std::string NodeStore::describe(const resbuf *node) const
{
    if (node == nullptr)
        return "null";
    const auto found = m_nodes.find(node);
    if (found == m_nodes.end())
        return "of an unknown node";
    return found->second->position > 0 ? std::to_string(found->second->position) : "list";
}

void NodeStore::release(resbuf *node)
{
    while (node != nullptr) {
        const auto found = m_nodes.find(node);
        if (found == m_nodes.end()) {
            ADD_FAILURE() << "a node was released twice, or was never given";
            return;
        }
        node = found->second->record.rbnext;
        m_nodes.erase(found);
    }
}
