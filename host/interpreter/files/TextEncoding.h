#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringConverter>

#include <optional>
#include <string>
#include <string_view>

namespace lisp {

enum class TextEncoding { Windows1252, Utf8, Utf16LittleEndian, Utf16BigEndian };

struct ByteOrderMark
{
    TextEncoding encoding;
    qsizetype length; // bytes
};

// The mark that the bytes begin with.
std::optional<ByteOrderMark> byteOrderMark(QByteArrayView bytes);

// Turns bytes into UTF-16 piece by piece; a character may be split between two pieces. What is no character in the
// encoding becomes U+FFFD.
class TextDecoder
{
public:
    explicit TextDecoder(TextEncoding encoding);
    void append(std::u16string &text, QByteArrayView bytes);

private:
    std::optional<QStringDecoder> m_unicode; // none: Windows-1252
};

// A character that the code page lacks is written as \U+XXXX, so that nothing of the text is lost.
QByteArray encodedAsWindows1252(std::u16string_view text);

} // namespace lisp
