#include "host/kernel/NodeList.h"

#include "host/kernel/TextFormat.h"
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
    switch (node.restype) {
    case TypeReal:
        node.resval.real = va_arg(arguments, double);
        break;
    case TypeShort:
    case TypeLong:
        node.resval.longInteger = va_arg(arguments, int);
        break;
    case TypeString:
        if (width == TextWidth::Wide) {
            node.resval.string = duplicateWide(va_arg(arguments, const char16_t *));
        } else {
            node.resval.narrowString = duplicateNarrow(std::string_view(va_arg(arguments, const char *)));
        }
        break;
    case TypePoint2d:
    case TypePoint3d:
        node.resval.point = *va_arg(arguments, const LispPoint *);
        break;
    case TypeEntity:
    case TypeSelectionSet:
        node.resval.name = *va_arg(arguments, const LispName *);
        break;
    default:
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
    switch (node.restype) {
    case TypeString:
        node.resval.string = static_cast<char16_t *>(value);
        break;
    case TypeReal:
        node.resval.real = *static_cast<const double *>(value);
        break;
    case TypeShort:
        node.resval.longInteger = *static_cast<const std::int16_t *>(value);
        break;
    case TypeLong:
        node.resval.longInteger = *static_cast<const std::int32_t *>(value);
        break;
    case TypePoint2d:
    case TypePoint3d:
        node.resval.point = *static_cast<const LispPoint *>(value);
        break;
    case TypeEntity:
    case TypeSelectionSet:
        node.resval.name = *static_cast<const LispName *>(value);
        break;
    default:
        break;
    }
}
