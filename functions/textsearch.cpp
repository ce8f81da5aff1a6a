#include "functions/textsearch.h"

#include "functions/PlainReplacement.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "sdk/fx/CFxString.h"

#include <QRegularExpression>

namespace {

enum class Syntax { Plain, RegularExpression };

constexpr int All = -1;

struct Search
{
    Qt::CaseSensitivity caseSensitivity = Qt::CaseSensitive;
    Syntax syntax = Syntax::Plain;
    int count = All; // how many replacements
};

// An option counts as given only when it is T or nil.
bool isFlag(const resbuf *node)
{
    return node->restype == TypeTrue || node->restype == TypeNil;
}

bool isOn(const resbuf *flag)
{
    return flag->restype == TypeTrue;
}

Search findOptions(const resbuf *node)
{
    Search search;
    if (node == nullptr || !isFlag(node))
        return search;
    search.caseSensitivity = isOn(node) ? Qt::CaseInsensitive : Qt::CaseSensitive;
    if (node->rbnext != nullptr && isOn(node->rbnext))
        search.syntax = Syntax::RegularExpression;
    return search;
}

// Reads the options behind the text, each only after a valid one, and moves `last` to the last node that it has read.
Search replaceOptions(resbuf *&last)
{
    Search search;
    const auto readNext = [&last] {
        const bool exists = last->rbnext != nullptr;
        last = exists ? last->rbnext : last;
        return exists;
    };
    if (!readNext() || !isFlag(last))
        return search;
    search.caseSensitivity = isOn(last) ? Qt::CaseInsensitive : Qt::CaseSensitive;
    if (!readNext() || !isFlag(last))
        return search;
    search.syntax = isOn(last) ? Syntax::RegularExpression : Syntax::Plain;
    if (readNext() && last->restype == TypeShort && last->resval.shortInteger >= 0)
        search.count = last->resval.shortInteger;
    return search;
}

QRegularExpression expressionOf(const QString &pattern, Qt::CaseSensitivity caseSensitivity)
{
    return QRegularExpression(pattern, caseSensitivity == Qt::CaseInsensitive
                                           ? QRegularExpression::CaseInsensitiveOption
                                           : QRegularExpression::NoPatternOption);
}

// Positions count from 0; -1: nowhere.
int plainPosition(const QString &text, const QString &pattern, Qt::CaseSensitivity caseSensitivity)
{
    CFxString where(text);
    CFxString what(pattern);
    if (caseSensitivity == Qt::CaseInsensitive) {
        where.makeLower();
        what.makeLower();
    }
    return where.find(what);
}

// An expression that is not valid is nowhere.
int expressionPosition(const QString &text, const QString &pattern, Qt::CaseSensitivity caseSensitivity)
{
    const QRegularExpression expression = expressionOf(pattern, caseSensitivity);
    return expression.isValid() ? static_cast<int>(expression.match(text).capturedStart(0)) : -1;
}

// Each search starts at the replacement just made, not behind it, and each replacement covers as many characters as the
// pattern's text is long, even when a regular expression has matched more or fewer. LISP programs rely on both.
template <typename Find>
void replaceSome(QString &text, qsizetype patternLength, const QString &replacement, int count, Find find)
{
    for (qsizetype position = 0; count > 0; --count) {
        position = find(position);
        if (position < 0)
            return;
        text.replace(position, patternLength, replacement);
    }
}

void replacePlain(QString &text, const QString &pattern, const QString &replacement, Search search)
{
    if (search.count == All && search.caseSensitivity == Qt::CaseSensitive) {
        replacePlainText(text, pattern, replacement);
    } else if (search.count == All) {
        text.replace(pattern, replacement, search.caseSensitivity);
    } else {
        replaceSome(text, pattern.size(), replacement, search.count,
                    [&](qsizetype from) { return text.indexOf(pattern, from, search.caseSensitivity); });
    }
}

// Replaces nothing when the expression is not valid. Only the replacement of all knows \1 in the replacement.
void replaceExpression(QString &text, const QString &pattern, const QString &replacement, Search search)
{
    const QRegularExpression expression = expressionOf(pattern, search.caseSensitivity);
    if (!expression.isValid())
        return;
    if (search.count == All) {
        text.replace(expression, replacement);
    } else {
        replaceSome(text, pattern.size(), replacement, search.count,
                    [&](qsizetype from) { return text.indexOf(expression, from); });
    }
}

} // namespace

int acetStrFind()
{
    resbuf *pattern = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pattern == nullptr)
        return StatusNormal;
    resbuf *text = checkArgument(TypeString, pattern->rbnext);
    if (text == nullptr)
        return StatusNormal;
    resbuf *options = text->rbnext;
    const Search search = findOptions(options);
    const auto find = search.syntax == Syntax::Plain ? plainPosition : expressionPosition;
    const int position = find(viewOf(text), viewOf(pattern), search.caseSensitivity);
    if (position < 0)
        activeLispHost()->retNil();
    else
        activeLispHost()->retInt(position + 1);
    activeLispHost()->releaseRb(options);
    return StatusNormal;
}

int acetStrReplace()
{
    resbuf *pattern = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pattern == nullptr)
        return StatusNormal;
    resbuf *replacement = checkArgument(TypeString, pattern->rbnext);
    if (replacement == nullptr)
        return StatusNormal;
    resbuf *text = checkArgument(TypeString, replacement->rbnext);
    if (text == nullptr)
        return StatusNormal;
    resbuf *last = text;
    const Search search = replaceOptions(last);
    QString result = viewOf(text);
    const auto replace = search.syntax == Syntax::Plain ? replacePlain : replaceExpression;
    replace(result, viewOf(pattern), viewOf(replacement), search);
    returnChanged(result, text);
    activeLispHost()->releaseRb(last);
    return StatusNormal;
}
