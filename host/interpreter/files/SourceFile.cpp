#include "host/interpreter/files/SourceFile.h"

#include "host/interpreter/files/TextEncoding.h"

#include <QFile>
#include <QFileInfo>
#include <QString>

namespace lisp {

namespace {

// No text has NUL bytes but UTF-16, whose byte order mark tells it apart.
bool isBinary(QByteArrayView bytes)
{
    const std::optional<ByteOrderMark> mark = byteOrderMark(bytes);
    const bool isUtf16 = mark && mark->encoding != TextEncoding::Utf8;
    return !isUtf16 && bytes.contains('\0');
}

} // namespace

std::u16string decodeSource(QByteArrayView bytes)
{
    const ByteOrderMark unmarked{bytes.isValidUtf8() ? TextEncoding::Utf8 : TextEncoding::Windows1252, 0};
    const ByteOrderMark mark = byteOrderMark(bytes).value_or(unmarked);
    std::u16string text;
    TextDecoder(mark.encoding).append(text, bytes.sliced(mark.length));
    return text;
}

std::optional<std::u16string> readSourceFile(const QString &path, QString &failure)
{
    const QFileInfo info(path);
    QFile file(path);
    if (!info.exists())
        failure = QStringLiteral("%1: no such file").arg(path);
    else if (info.isDir())
        failure = QStringLiteral("%1: is a folder").arg(path);
    else if (QByteArray bytes;
             !file.open(QIODevice::ReadOnly) || (bytes = file.readAll(), file.error() != QFileDevice::NoError))
        failure = QStringLiteral("%1: %2").arg(path, file.errorString());
    else if (isBinary(bytes))
        failure = QStringLiteral("%1: is not a text file").arg(path);
    else
        return decodeSource(bytes);
    return std::nullopt;
}

} // namespace lisp
