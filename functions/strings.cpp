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
