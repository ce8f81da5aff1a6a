#pragma once

#include "host/interpreter/Machine.h"
#include "lisp/resbuf.h"

#include <optional>

// Points as LISP lists of two or three numbers.

struct PointList
{
    LispPoint point; // z is 0 in a list of two
    int count;       // 2 or 3
};

// Nothing when the value is no proper list of two or three numbers.
std::optional<PointList> pointListOf(lisp::Value value);

lisp::Value pointValue(lisp::Machine &machine, const LispPoint &point, int count);
