// Operations of the LISP interface on system variables.

#include "host/kernel/SubstituteLispHost.h"

#include "host/kernel/TextFormat.h"
#include "host/kernel/variables/SystemVariables.h"
#include "lisp/LispStatus.h"
#include "lisp/TypeCode.h"

#include <cstdlib>

namespace {

std::optional<VariableValue> valueOf(const resbuf &node)
{
    switch (node.restype) {
    case TypeShort:
        return node.resval.shortInteger;
    case TypeLong:
        return node.resval.longInteger;
    case TypeReal:
        return node.resval.real;
    case TypeString:
        return std::u16string(node.resval.string ? node.resval.string : u"");
    case TypePoint2d:
    case TypePoint3d:
        return node.resval.point;
    default:
        return std::nullopt;
    }
}

// The node's old text is not freed: it is a node of the caller's, who hands it over empty.
void store(resbuf &node, const VariableRow &variable, const VariableValue &value)
{
    switch (variable.type) {
    case VariableType::Integer:
        node.restype = TypeShort;
        node.resval.longInteger = std::get<int>(value);
        break;
    case VariableType::Real:
        node.restype = TypeReal;
        node.resval.real = std::get<double>(value);
        break;
    case VariableType::Text:
        node.restype = TypeString;
        node.resval.string = duplicateWide(std::get<std::u16string>(value));
        break;
    case VariableType::Point2d:
    case VariableType::Point3d:
        node.restype = variable.type == VariableType::Point2d ? TypePoint2d : TypePoint3d;
        node.resval.point = std::get<LispPoint>(value);
        break;
    }
}

} // namespace

int SubstituteLispHost::setVar(const char16_t *name, const resbuf *value)
{
    const VariableRow *variable = findVariable(name);
    const std::optional<VariableValue> wanted = value ? valueOf(*value) : std::nullopt;
    return variable && wanted && m_variables.set(*variable, *wanted) ? StatusNormal : StatusError;
}

int SubstituteLispHost::getVar(const char16_t *name, resbuf *value)
{
    const VariableRow *variable = findVariable(name);
    if (!variable || !value)
        return StatusError;
    store(*value, *variable, m_variables.get(*variable));
    return StatusNormal;
}
