#pragma once

#include <QByteArrayView>

#include <optional>
#include <string>

class QString;

namespace lisp {

// Program text from a file's bytes: what a byte order mark says, else UTF-8 if the bytes are valid UTF-8, else
// Windows-1252, in which older programs are written.
std::u16string decodeSource(QByteArrayView bytes);

// The text of a program. Where there is none `failure` says in one line why: no such file, a folder, not readable, or
// not text at all.
std::optional<std::u16string> readSourceFile(const QString &path, QString &failure);

} // namespace lisp
