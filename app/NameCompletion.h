#pragma once

#include <QString>
#include <QStringList>

namespace lisp {
class Machine;
}

// What TAB does to the name in front of the cursor: with symbols that have a value, in lower case.
struct NameCompletion
{
    QString insertion;   // what all names with that beginning have in common behind it
    QStringList choices; // the names, when there is nothing to insert; empty: none has that beginning
};

NameCompletion completeName(lisp::Machine &machine, const QString &textBeforeCursor);
