#include "functions/strings.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "sdk/fx/CFxString.h"

namespace {

// Case counts only when the flag is the integer 1. Its type is not looked at: T, nil, 0 and any text ignore case.
bool caseSensitive(const resbuf *flag)
{
    return flag != nullptr && flag->resval.shortInteger == 1;
}

int compareTexts(const resbuf *first, const resbuf *second, const resbuf *flag)
{
    const CFxString left(first->resval.string);
    const CFxString right(second->resval.string);
    return caseSensitive(flag) ? left.compare(right) : left.compareNoCase(right);
}

int sign(int value)
{
    return (value > 0) - (value < 0);
}

// A real has up to six significant digits, with a point whatever the locale; what is neither a number nor a string has
// no text.
QString rendered(const resbuf *value)
{
    switch (value->restype) {
    case TypeReal:
        return QStringLiteral("%1").arg(value->resval.real, 0, 'g', -1, u' ');
    case TypeShort:
        return QString::number(value->resval.shortInteger);
    case TypeLong:
        return QString::number(value->resval.longInteger);
    case TypeString:
        return textOf(value);
    default:
        return {};
    }
}

} // namespace

int acetStrEqual()
{
    resbuf *first = checkArgument(TypeString, activeLispHost()->getArgs());
    if (first == nullptr)
        return StatusNormal;
    resbuf *second = checkArgument(TypeString, first->rbnext);
    if (second == nullptr)
        return StatusNormal;
    resbuf *flag = second->rbnext;
    returnTruth(compareTexts(first, second, flag) == 0);
    activeLispHost()->releaseRb(flag);
    return StatusNormal;
}

int acetStrCollate()
{
    resbuf *first = checkArgument(TypeString, activeLispHost()->getArgs());
    if (first == nullptr)
        return StatusNormal;
    resbuf *second = checkArgument(TypeString, first->rbnext);
    if (second == nullptr)
        return StatusNormal;
    resbuf *flag = second->rbnext;
    activeLispHost()->retInt(sign(compareTexts(first, second, flag)));
    activeLispHost()->releaseRb(flag);
    return StatusNormal;
}

// The pattern's syntax is the host's. Without case the pattern is turned into capitals as well as the text, so that
// [a-z] means all letters of that range.
int acetStrWcmatch()
{
    resbuf *first = checkArgument(TypeString, activeLispHost()->getArgs());
    if (first == nullptr)
        return StatusNormal;
    resbuf *second = checkArgument(TypeString, first->rbnext);
    if (second == nullptr)
        return StatusNormal;
    resbuf *flag = second->rbnext;
    CFxString text(first->resval.string);
    CFxString pattern(second->resval.string);
    if (!caseSensitive(flag)) {
        text.makeUpper();
        pattern.makeUpper();
    }
    returnTruth(activeLispHost()->wcMatch(text.wide_strU(), pattern.wide_strU()) == StatusNormal);
    activeLispHost()->releaseRb(flag);
    return StatusNormal;
}

// One value after another, each in the text that the values before it have left: "%1" is found in "%10", too, and a
// value may bring in the placeholder of a later one. LISP programs rely on both.
int acetStrFormat()
{
    resbuf *format = checkArgument(TypeString, activeLispHost()->getArgs());
    if (format == nullptr)
        return StatusNormal;
    QString text = textOf(format);
    resbuf *value = format->rbnext;
    for (int number = 1; value != nullptr; ++number, value = value->rbnext)
        text.replace(u'%' + QString::number(number), rendered(value));
    returnText(text);
    activeLispHost()->releaseRb(value);
    return StatusNormal;
}

// Always upper case: a second argument that elsewhere asks for lower case is ignored.
int xstrcase()
{
    resbuf *argument = checkArgument(TypeString, activeLispHost()->getArgs());
    if (argument == nullptr)
        return StatusNormal;
    CFxString text(argument->resval.string);
    text.makeUpper();
    activeLispHost()->retWStr(text.wide_strU());
    activeLispHost()->releaseRb(argument);
    return StatusNormal;
}
