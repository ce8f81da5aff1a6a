#pragma once

#include "host/interpreter/Machine.h"

#include <QStringList>

namespace lisptest {

// The files with tests that a path leads to: a file is one whatever its name is; in a folder, and below, those whose
// name begins or ends with the word "test" or "tests" before ".lsp", in the order of their names. Nothing, with a
// reason in `failure`, where there is no such path.
std::optional<QStringList> testFiles(const QString &path, QString &failure);

// The names of the functions without parameters that the file, which was loaded under this name, has defined and whose
// names begin with TEST and a hyphen, a colon or an underscore, in the order of the file.
std::vector<std::u16string> testFunctions(lisp::Machine &machine, std::u16string_view file);

// Whether the file has defined a function of this name without parameters.
bool definesFunction(lisp::Machine &machine, std::u16string_view file, std::u16string_view name);

} // namespace lisptest
