#include "host/interpreter/files/TextFile.h"

#include <QFileInfo>
#include <QString>

namespace lisp {

namespace {

constexpr qsizetype BytesPerRead = qsizetype{64} * 1024;
constexpr char Utf8Mark[] = "\xEF\xBB\xBF";

QStringView qView(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

bool isNamed(std::u16string_view name, QStringView expected)
{
    return qView(name).compare(expected, Qt::CaseInsensitive) == 0;
}

} // namespace

std::optional<FileMode> fileModeNamed(std::u16string_view name)
{
    if (isNamed(name, u"r"))
        return FileMode::Read;
    if (isNamed(name, u"w"))
        return FileMode::Write;
    if (isNamed(name, u"a"))
        return FileMode::Append;
    return std::nullopt;
}

FileEncoding fileEncodingNamed(std::u16string_view name)
{
    if (isNamed(name, u"utf8"))
        return FileEncoding::Utf8;
    return isNamed(name, u"utf8-bom") ? FileEncoding::Utf8WithMark : FileEncoding::Ansi;
}

std::unique_ptr<TextFile> TextFile::open(const QString &path, FileMode mode, FileEncoding encoding)
{
    std::unique_ptr<TextFile> file(new TextFile(path, mode, encoding));
    return file->openFile() ? std::move(file) : nullptr;
}

TextFile::TextFile(const QString &path, FileMode mode, FileEncoding encoding)
    : m_file(path), m_mode(mode), m_encoding(encoding),
      m_decoder(encoding == FileEncoding::Ansi ? TextEncoding::Windows1252 : TextEncoding::Utf8),
      m_encoder(QStringConverter::Utf8)
{
}

TextFile::~TextFile()
{
    close();
}

bool TextFile::openFile()
{
    // A folder can be opened like a file on some platforms, and then fails at the first read.
    if (m_file.fileName().isEmpty() || QFileInfo(m_file).isDir())
        return false;
    switch (m_mode) {
    case FileMode::Read:
        return openForReading();
    case FileMode::Write:
        return openForWriting(QIODevice::WriteOnly | QIODevice::Truncate);
    case FileMode::Append:
        return openForWriting(QIODevice::WriteOnly | QIODevice::Append);
    }
    return false;
}

bool TextFile::openForReading()
{
    if (!m_file.open(QIODevice::ReadOnly))
        return false;
    if (const std::optional<ByteOrderMark> mark = byteOrderMark(m_file.peek(3))) {
        m_file.skip(mark->length);
        m_decoder = TextDecoder(mark->encoding);
    }
    return true;
}

bool TextFile::openForWriting(QIODevice::OpenMode flags)
{
    if (!m_file.open(flags | QIODevice::Text))
        return false;
    return m_encoding != FileEncoding::Utf8WithMark || m_file.size() > 0 || writeBytes(Utf8Mark);
}

bool TextFile::readMore()
{
    m_ahead.erase(0, m_next);
    m_next = 0;
    const std::size_t before = m_ahead.size();
    while (m_ahead.size() == before) {
        const QByteArray bytes = m_file.read(BytesPerRead);
        if (bytes.isEmpty())
            return false;
        m_decoder.append(m_ahead, bytes);
    }
    return true;
}

std::optional<std::u16string> TextFile::readLine()
{
    std::size_t searched = 0; // of what stands ahead
    std::size_t end;
    while ((end = m_ahead.find(u'\n', m_next + searched)) == std::u16string::npos) {
        searched = m_ahead.size() - m_next;
        if (readMore())
            continue;
        if (searched == 0)
            return std::nullopt;
        end = m_ahead.size();
        break;
    }
    std::u16string line = m_ahead.substr(m_next, end - m_next);
    const bool endsWithNewline = end < m_ahead.size();
    m_next = end + (endsWithNewline ? 1 : 0);
    if (endsWithNewline && line.ends_with(u'\r'))
        line.pop_back();
    return line;
}

std::optional<char16_t> TextFile::readCharacter()
{
    if (m_next == m_ahead.size() && !readMore())
        return std::nullopt;
    const char16_t unit = m_ahead[m_next++];
    if (unit != u'\r' || (m_next == m_ahead.size() && !readMore()) || m_ahead[m_next] != u'\n')
        return unit;
    return m_ahead[m_next++];
}

bool TextFile::write(std::u16string_view text)
{
    if (m_encoding == FileEncoding::Ansi)
        return writeBytes(encodedAsWindows1252(text));
    const QByteArray bytes = m_encoder.encode(qView(text));
    return writeBytes(bytes);
}

bool TextFile::writeBytes(QByteArrayView bytes)
{
    if (m_file.write(bytes.data(), bytes.size()) != bytes.size())
        m_failed = true;
    return !m_failed;
}

bool TextFile::close()
{
    if (!m_file.isOpen())
        return !m_failed;
    if (m_mode != FileMode::Read && !m_file.flush())
        m_failed = true;
    m_file.close();
    return !m_failed;
}

} // namespace lisp
