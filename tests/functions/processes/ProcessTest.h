#pragma once

#include "tests/support/FileReport.h"
#include "tests/support/HandlerTest.h"

// Handlers that start processes: a program that writes down its arguments, and a file that it writes them to.
class ProcessTest : public HandlerTest
{
    FileReport m_report;

protected:
    const QString child = QStringLiteral(TEST_CHILD);
    const QString report = m_report.path();

    QStringList reportedArguments() const { return m_report.lines(); }
};
