#include "host/kernel/profile/EscapedText.h"

#include <QChar>

#include <algorithm>

namespace {

constexpr QStringView SignsInNames = u"=[];#";

bool isInvisible(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate: // a lone one
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

void appendNumbered(QString &result, QStringView units)
{
    for (const QChar unit : units)
        result += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
}

// The character that begins at a position, one unit or a pair.
QStringView characterAt(QStringView text, qsizetype position)
{
    const bool pair =
        text[position].isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate();
    return text.sliced(position, pair ? 2 : 1);
}

char32_t codeOf(QStringView character)
{
    return character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1]) : character[0].unicode();
}

void appendEscaped(QString &result, QStringView character, EscapedPlace place)
{
    const char32_t code = codeOf(character);
    if (code == U'\n')
        result += u"\\n";
    else if (code == U'\r')
        result += u"\\r";
    else if (code == U'\t')
        result += u"\\t";
    else if (isInvisible(code))
        appendNumbered(result, character);
    else {
        if (code == U'\\' || (place == EscapedPlace::Name && SignsInNames.contains(character[0])))
            result += u'\\';
        result += character;
    }
}

bool isSign(QChar unit)
{
    return unit.unicode() > 0x20 && unit.unicode() < 0x7f && !unit.isLetterOrNumber();
}

bool isHexadecimal(QChar digit)
{
    return (digit >= u'0' && digit <= u'9') || (digit.toLower() >= u'a' && digit.toLower() <= u'f');
}

// Four hexadecimal digits at the beginning of the text; 0 when they are not there. A text cannot hold a NUL.
char16_t number(QStringView text)
{
    const QStringView digits = text.first(qMin<qsizetype>(4, text.size()));
    if (digits.size() < 4 || !std::all_of(digits.begin(), digits.end(), isHexadecimal))
        return u'\0';
    return digits.toUShort(nullptr, 16);
}

// Takes an escape from the beginning of `rest`, behind its backslash; a null character when there is no such escape.
QChar takeEscape(QStringView &rest)
{
    if (rest.isEmpty())
        return {};
    const QChar letter = rest.front();
    rest = rest.sliced(1);
    if (letter == u'u') {
        const char16_t unit = number(rest);
        rest = rest.sliced(unit == u'\0' ? 0 : 4);
        return unit;
    }
    if (letter == u'n')
        return u'\n';
    if (letter == u'r')
        return u'\r';
    if (letter == u't')
        return u'\t';
    return isSign(letter) ? letter : QChar();
}

} // namespace

QString escaped(QStringView text, EscapedPlace place)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype position = 0; position < text.size();) {
        const QStringView character = characterAt(text, position);
        const bool atEnd = position == 0 || position + 1 == text.size();
        if (atEnd && character == u" ")
            appendNumbered(result, character);
        else
            appendEscaped(result, character, place);
        position += character.size();
    }
    return result;
}

bool unescape(QStringView text, QString &result, QString &failure)
{
    result.clear();
    result.reserve(text.size());
    while (!text.isEmpty()) {
        const QChar unit = text.front();
        text = text.sliced(1);
        if (unit != u'\\') {
            result += unit;
            continue;
        }
        const QString escape = text.first(qMin<qsizetype>(5, text.size())).toString();
        const QChar character = takeEscape(text);
        if (character.isNull()) {
            failure =
                QStringLiteral("no escape begins with \"\\%1\"").arg(escape.left(escape.startsWith(u'u') ? 5 : 1));
            return false;
        }
        result += character;
    }
    return true;
}
