#pragma once

#include "host/lisptest/TestResult.h"

namespace lisptest {

// Writes results in the XML form that servers for continuous integration read: a suite for each file, in which a test
// has the class name of its file. What XML cannot hold, control characters for example, becomes U+FFFD. False, with a
// reason, when the file cannot be written; it then is as it was.
bool writeJUnitFile(const QString &path, const std::vector<TestResult> &results, QString &failure);

} // namespace lisptest
