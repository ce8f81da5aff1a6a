#pragma once

#include "host/kernel/Document.h"

// Why an entity was not picked, as programs that ask again read it in the system variable ERRNO ("AutoLISP Error Codes"
// of the AutoLISP reference). A pick that succeeds leaves the variable as it is.
enum class PickError : int {
    NothingThere = 7,
    NoAnswer = 52 // Enter
};

inline void notePickError(Document &document, PickError error)
{
    document.variables().assign(u"ERRNO", static_cast<int>(error));
}
