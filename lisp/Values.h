#pragma once

#include "lisp/resbuf.h"

#include <QString>

// The text of a string node.
QString textOf(const resbuf *node);

// Set the call's result.
void returnText(const QString &text);
void returnTruth(bool value); // T or nil
