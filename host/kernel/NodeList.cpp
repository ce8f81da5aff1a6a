#include "host/kernel/NodeList.h"

#include "host/kernel/TextFormat.h"
#include "host/kernel/ValueKind.h"
#include "lisp/TypeCode.h"

#include <cstring>
#include <string_view>

namespace {

bool endsList(int code)
{
    return code == 0 || code == TypeNone;
}

void takeArgument(resbuf &node, TextWidth width, std::va_list &arguments)
{
    switch (valueKind(node.restype)) {
    case ValueKind::Real:
        node.resval.real = va_arg(arguments, double);
        break;
    case ValueKind::Short:
    case ValueKind::Long:
        node.resval.longInteger = va_arg(arguments, int);
        break;
    case ValueKind::Text:
        if (width == TextWidth::Wide)
            node.resval.string = duplicateWide(va_arg(arguments, const char16_t *));
        else
            node.resval.narrowString = duplicateNarrow(std::string_view(va_arg(arguments, const char *)));
        break;
    case ValueKind::Point:
        node.resval.point = *va_arg(arguments, const LispPoint *);
        break;
    case ValueKind::Name:
        node.resval.name = *va_arg(arguments, const LispName *);
        break;
    case ValueKind::None:
        break; // list marks, nil and T stand for themselves
    }
}

} // namespace

resbuf *nodesFromArguments(NodePool &pool, CallFrame &frame, TextWidth width, int firstCode, std::va_list arguments)
{
    std::va_list rest;
    va_copy(rest, arguments);
    resbuf *head = nullptr;
    resbuf **link = &head;
    for (int code = firstCode; !endsList(code); code = va_arg(rest, int)) {
        *link = pool.allocate(frame, code);
        takeArgument(**link, width, rest);
        link = &(*link)->rbnext;
    }
    va_end(rest);
    return head;
}

void storeValue(resbuf &node, void *value)
{
    switch (valueKind(node.restype)) {
    case ValueKind::Text:
        node.resval.string = static_cast<char16_t *>(value);
        break;
    case ValueKind::Real:
        node.resval.real = *static_cast<const double *>(value);
        break;
    case ValueKind::Short:
        node.resval.longInteger = *static_cast<const std::int16_t *>(value);
        break;
    case ValueKind::Long:
        node.resval.longInteger = *static_cast<const std::int32_t *>(value);
        break;
    case ValueKind::Point:
        node.resval.point = *static_cast<const LispPoint *>(value);
        break;
    case ValueKind::Name:
        node.resval.name = *static_cast<const LispName *>(value);
        break;
    case ValueKind::None:
        break;
    }
}
