#pragma once

#include <QStringList>

// lisphost registry export FILE.reg [KEY ...] and import FILE.reg. They give an exit status and say on standard error
// what went wrong. Without keys the roots are exported that hold anything of one's own.
int exportRegistryKeys(const QString &file, const QStringList &keys);
int importRegistryKeys(const QString &file);
