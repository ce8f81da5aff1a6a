#pragma once

#include "host/drawing/Drawing.h"
#include "host/interpreter/Value.h"

#include <memory>

// The filter of ssget, ((0 . "LINE,ARC") (8 . "walls*") (-4 . "<OR") (62 . 1) (62 . 2) (-4 . "OR>")), compiled once and
// asked of many entities.
//
// All conditions hold, but for those between <AND AND>, <OR OR>, <XOR XOR> and <NOT NOT>, which nest. A relation before
// a group, (-4 . ">="), compares its value: = /= != <> < <= > >= * (anything), & (a bit in common) and &= (all bits);
// for points with one relation for each coordinate, "*,>=,<". Texts are wildcard patterns; in names case does not
// matter. (-3 ("APP,OTHER*")) asks for extended data. A group that an entity leaves out is what entget shows, or a
// colour, linetype or the like what it then means; any other group that is not there fails its condition.
class SelectionFilter
{
public:
    // nil lets everything through. Raises "bad SSGET list" for what is no filter.
    explicit SelectionFilter(lisp::Value list);
    ~SelectionFilter();
    SelectionFilter(SelectionFilter &&) noexcept;

    bool accepts(const drawing::Drawing &drawing, drawing::RecordId entity) const;

    class Condition;

private:
    std::unique_ptr<Condition> m_condition; // null: everything
};
