#pragma once

#include <QString>

#include <optional>

// How a function of the module is called, one form a line, and what it does, indented: the beginning of its section in
// the pages of docs/functions, which are compiled in. Nothing for a function without a page. Case does not matter.
std::optional<QString> referenceEntry(const QString &functionName);
