#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

// Writes to an open, unbuffered file and waits until the disk has it. Gives what went wrong, null when nothing did;
// then a part may stand in the file.
QString writeAndSync(QFile &file, const QByteArray &content);
