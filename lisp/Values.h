#pragma once

#include "lisp/resbuf.h"

#include <QStringList>

bool isString(const resbuf *node); // false for null, too

// The text of a string node.
QString textOf(const resbuf *node);
QString viewOf(const resbuf *node); // the same without a copy: only until the node is released

// Set the call's result.
void returnText(const QString &text);
void returnChanged(const QString &text, const resbuf *node); // the node's own where viewOf() of it was never changed
void returnTruth(bool value);                                // T or nil

// A list begin with the strings behind it, in the order given; the closing node is left to the host. The caller's.
resbuf *listOfNames(const QStringList &names);

// Sets the result to a list of strings, in the order given; no names give nil. The list is handed over without its
// closing node, which the host supplies.
void returnNames(const QStringList &names);
