#include "host/kernel/input/AnswersFile.h"

#include <QFile>
#include <QStringTokenizer>

#include <array>
#include <utility>

namespace {

struct AnswerWord
{
    QStringView word;
    Answer::Kind kind;
};

constexpr std::array<AnswerWord, 5> answerWords = {{
    {u"@esc", Answer::Kind::Escape},
    {u"@press", Answer::Kind::Press},
    {u"@text", Answer::Kind::Text},
    {u"@file", Answer::Kind::File},
    {u"@move", Answer::Kind::Move},
}};

// \n, \t and \\; any other back slash stands for itself.
QString withoutEscapes(QStringView text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t next = text[i] == u'\\' && i + 1 < text.size() ? text[i + 1].unicode() : u'\0';
        const bool isEscape = next == u'n' || next == u't' || next == u'\\';
        result += !isEscape ? text[i] : next == u'n' ? QChar(u'\n') : next == u't' ? QChar(u'\t') : QChar(u'\\');
        i += isEscape ? 1 : 0;
    }
    return result;
}

QString withEscapes(const QString &text)
{
    QString result = text;
    result.replace(u'\\', QStringLiteral("\\\\")).replace(u'\n', QStringLiteral("\\n"));
    return result.replace(u'\t', QStringLiteral("\\t"));
}

Answer answerOf(QStringView line, const QString &name, int number)
{
    if (!line.startsWith(u'@'))
        return {Answer::Kind::Typed, line.toString(), number};
    const qsizetype blank = line.indexOf(u' ');
    const QStringView word = blank < 0 ? line : line.first(blank);
    const QStringView argument = blank < 0 ? QStringView() : line.sliced(blank + 1);
    for (const AnswerWord &known : answerWords) {
        if (word != known.word)
            continue;
        const bool isText = known.kind == Answer::Kind::Text;
        return {known.kind, isText ? withoutEscapes(argument) : argument.trimmed().toString(), number};
    }
    // "@10,5" is a relative point, as typed at a prompt; only a word that begins with a letter can be a mistake.
    if (word.size() > 1 && word[1].isLetter())
        throw AnswersError(QStringLiteral("%1:%2: unknown answer %3").arg(name, QString::number(number), word));
    return {Answer::Kind::Typed, line.toString(), number};
}

} // namespace

QString answerLine(const Answer &answer)
{
    for (const AnswerWord &known : answerWords) {
        if (known.kind != answer.kind)
            continue;
        if (answer.argument.isEmpty())
            return known.word.toString();
        const bool isText = answer.kind == Answer::Kind::Text;
        return known.word.toString() + u' ' + (isText ? withEscapes(answer.argument) : answer.argument);
    }
    return answer.argument;
}

AnswersFile AnswersFile::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw AnswersError(QStringLiteral("%1: %2").arg(path, file.errorString()));
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw AnswersError(QStringLiteral("%1: %2").arg(path, file.errorString()));
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    return fromText(QString::fromUtf8(bytes), path);
}

AnswersFile AnswersFile::fromText(QStringView text, const QString &name)
{
    AnswersFile answers;
    if (text.endsWith(u'\n'))
        text.chop(1);
    else if (text.isEmpty())
        return answers;
    int number = 0;
    for (QStringView line : qTokenize(text, u'\n')) {
        ++number;
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (!line.startsWith(u';'))
            answers.m_answers.push_back(answerOf(line, name, number));
    }
    return answers;
}

std::optional<Answer> AnswersFile::take()
{
    if (m_answers.empty())
        return std::nullopt;
    Answer answer = std::move(m_answers.front());
    m_answers.pop_front();
    return answer;
}
