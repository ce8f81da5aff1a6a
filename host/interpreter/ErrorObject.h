#pragma once

#include "host/interpreter/Objects.h"

namespace lisp {

// What vl-catch-all-apply gives in place of a value when the call failed.
struct ErrorObject : Native
{
    explicit ErrorObject(std::u16string text) : message(std::move(text)) {}

    std::u16string_view typeName() const override { return u"VL-CATCH-ALL-APPLY-ERROR"; }
    std::u16string printed() const override { return u"#<%catch-all-apply-error%>"; }

    std::u16string message;
};

} // namespace lisp
