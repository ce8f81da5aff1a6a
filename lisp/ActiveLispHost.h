#pragma once

#include "lisp/LispHost.h"

// The active document's interpreter, fetched from the host at every call. Never keep the pointer: whatever runs between
// two operations, an evaluation or a dialog's event loop, may activate another document.
LispHost *activeLispHost();
