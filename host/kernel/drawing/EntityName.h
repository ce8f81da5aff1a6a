#pragma once

#include "host/drawing/Drawing.h"
#include "host/interpreter/Objects.h"
#include "lisp/resbuf.h"

namespace lisp {
class Machine;
class Value;
} // namespace lisp

// What LISP programs know an entity, table record, dictionary or other object of a drawing by. It stays the same as
// long as the drawing is open, also while the entity is erased.
struct EntityName final : lisp::Native
{
    explicit EntityName(const LispName &lispName) : name(lispName) {}

    std::u16string_view typeName() const override { return u"ENAME"; }
    std::u16string printed() const override;
    bool equals(const Native &other) const override;

    LispName name;
};

lisp::Value entityName(lisp::Machine &machine, const LispName &name);
lisp::Value entityName(lisp::Machine &machine, const drawing::Drawing &drawing, drawing::RecordId record);
// The same in nodes: the words hold the drawing's and the record's number, and the handle.
LispName nodeName(const drawing::Drawing &drawing, drawing::RecordId record);
// NoRecord for a name that is none of this drawing; erased ones are found.
drawing::RecordId recordOf(const drawing::Drawing &drawing, const LispName &name);
