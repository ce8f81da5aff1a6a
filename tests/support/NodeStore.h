#pragma once

#include "tests/support/Argument.h"

#include <cstdarg>
#include <map>
#include <memory>
#include <string>

// Owns every node that a recording host gives out. A released node is deleted, so that a sanitizer sees any later use;
// releasing a node that is not there fails the test. What is never released goes with the store.
class NodeStore
{
public:
    NodeStore();
    ~NodeStore();

    resbuf *add(TypeCode type, const LispValue &value = {});
    resbuf *addText(const std::u16string &text);
    resbuf *addNarrowText(const std::string &text);

    // A list of arguments; each node has its position from 1 on. Null when there are none.
    resbuf *addArguments(const Arguments &arguments);

    // A list from type codes and values as list-building calls pass them.
    resbuf *addBuilt(int firstCode, std::va_list values, bool narrow);

    // What to call a node: "null", its position among the arguments, or "list".
    std::string describe(const resbuf *node) const;

    void release(resbuf *node); // to the end of the list

private:
    struct Node;

    Node &emplace(TypeCode type);

    std::map<const resbuf *, std::unique_ptr<Node>> m_nodes;
};
