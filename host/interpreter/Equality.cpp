#include "host/interpreter/Equality.h"

#include "host/interpreter/Machine.h"

#include <cmath>
#include <limits>

namespace lisp {

bool isSame(Value a, Value b)
{
    if (a.isNumber() && b.isNumber())
        return a.asDouble() == b.asDouble();
    if (a == b)
        return true;
    if (a.isString() && b.isString())
        return a.asString()->view() == b.asString()->view();
    if (!a.isObject() || !b.isObject())
        return false;
    const Object *left = a.asObject();
    const Object *right = b.asObject();
    return left->kind == ObjectKind::Native && right->kind == ObjectKind::Native &&
           static_cast<const Native *>(left)->equals(*static_cast<const Native *>(right));
}

bool isEqual(const Machine &machine, Value a, Value b, double fuzz)
{
    while (a.isCons() && b.isCons()) {
        if (a == b)
            return true;
        const Value left = a.asCons()->car, right = b.asCons()->car;
        if (left.isCons() && right.isCons())
            machine.checkNativeStack();
        if (!isEqual(machine, left, right, fuzz))
            return false;
        a = a.asCons()->cdr;
        b = b.asCons()->cdr;
    }
    if (fuzz > 0.0 && a.isNumber() && b.isNumber()) {
        // The fuzz takes in the error of the binary representation: 1.123456 and 1.123457 are equal within 0.000001.
        const double x = a.asDouble(), y = b.asDouble();
        const double slack = 4 * std::numeric_limits<double>::epsilon() * std::max(std::fabs(x), std::fabs(y));
        return x == y || std::fabs(x - y) <= fuzz + slack;
    }
    return isSame(a, b);
}

} // namespace lisp
