#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <functional>

// Writes to an open, unbuffered file and waits until the disk has it. Gives what went wrong, null when nothing did;
// then a part may stand in the file.
QString writeAndSync(QFile &file, const QByteArray &content);

// The same for content that is written piece by piece. `write` gives false when the file does not take a piece.
using ContentWriter = std::function<bool(QIODevice &)>;
QString writeAndSync(QFile &file, const ContentWriter &write);

// Writes all of the bytes to an unbuffered device, which may take them part by part; false when it does not.
bool writeAll(QIODevice &file, QByteArrayView bytes);
