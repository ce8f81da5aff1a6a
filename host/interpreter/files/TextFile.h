#pragma once

#include "host/interpreter/files/TextEncoding.h"

#include <QFile>
#include <QStringConverter>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace lisp {

enum class FileMode { Read, Write, Append };

// "r", "w" or "a" in either case.
std::optional<FileMode> fileModeNamed(std::u16string_view name);

enum class FileEncoding { Ansi, Utf8, Utf8WithMark };

// "utf8" or "utf8-bom" in any case; every other name stands for the ANSI code page, which is Windows-1252.
FileEncoding fileEncodingNamed(std::u16string_view name);

// A text file that is read or written from beginning to end. A byte order mark goes before the encoding that was asked
// for. Written text is buffered and may reach the disk only when the file is closed.
class TextFile
{
public:
    // Null if the file cannot be opened. Writing replaces an existing file, appending makes one that is missing.
    static std::unique_ptr<TextFile> open(const QString &path, FileMode mode, FileEncoding encoding);
    ~TextFile();

    FileMode mode() const { return m_mode; }

    // The next line without its LF or CR LF; nothing at the end of the file.
    std::optional<std::u16string> readLine();
    // The next character, LF for CR LF; nothing at the end of the file.
    std::optional<char16_t> readCharacter();
    // False when the disk has refused something; LF becomes the platform's line end.
    bool write(std::u16string_view text);
    // False when not everything that was written has reached the file.
    bool close();

private:
    TextFile(const QString &path, FileMode mode, FileEncoding encoding);
    bool openFile();
    bool openForReading();
    bool openForWriting(QIODevice::OpenMode flags);
    bool readMore(); // false at the end
    bool writeBytes(QByteArrayView bytes);

    QFile m_file;
    FileMode m_mode;
    FileEncoding m_encoding;
    bool m_failed = false;

    TextDecoder m_decoder;
    std::u16string m_ahead; // decoded, but not given away before m_next
    std::size_t m_next = 0;
    QStringEncoder m_encoder; // keeps the first half of a surrogate pair until the second comes
};

} // namespace lisp
