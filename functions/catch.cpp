#include "functions/catch.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "sdk/fx/CFxString.h"

namespace {

// Whether the last evaluation raised a LISP error. One for all documents; only a further evaluation changes it.
bool lastApplyFailed = false;

} // namespace

// Sets no result of its own, and keeps its hands off the value: that belongs to the interpreter.
int vlCatchAllApply()
{
    resbuf *arguments = checkArgument(TypeString, activeLispHost()->getArgs());
    if (arguments == nullptr)
        return StatusNormal;
    const CFxString text(arguments->resval.string);
    resbuf *value = nullptr;
    const int status = activeLispHost()->evaluate(text.wide_strU(), &value);
    lastApplyFailed = status == StatusError; // any other status, even an unknown one, is no LISP error
    activeLispHost()->releaseRb(arguments);
    return StatusNormal;
}

int vlCatchAllErrorP()
{
    resbuf *arguments = activeLispHost()->getArgs();
    returnTruth(lastApplyFailed);
    activeLispHost()->releaseRb(arguments);
    return StatusNormal;
}
