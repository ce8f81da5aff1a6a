#pragma once

#include "host/interpreter/Objects.h"

#include <string_view>

namespace lisp {

// What `open` gives. The printing functions write to it without knowing more.
struct FileObject : Native
{
    std::u16string_view typeName() const override { return u"FILE"; }
    // Raises a LISP error when the file is closed or was opened for reading.
    virtual void write(std::u16string_view text) = 0;
};

} // namespace lisp
