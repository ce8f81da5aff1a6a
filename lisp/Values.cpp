#include "lisp/Values.h"

#include "lisp/ActiveLispHost.h"
#include "sdk/fx/CFxString.h"

QString textOf(const resbuf *node)
{
    return QString::fromUtf16(node->resval.string);
}

void returnText(const QString &text)
{
    const CFxString result(text);
    activeLispHost()->retWStr(result.wide_strU());
}

void returnTruth(bool value)
{
    if (value)
        activeLispHost()->retT();
    else
        activeLispHost()->retNil();
}
