#include "lisp/CommandLine.h"

#include "lisp/ActiveLispHost.h"

void printText(const CFxString &text)
{
    activeLispHost()->prompt(u"%s", text.wide_strU());
}

void failWith(const char *message)
{
    failWith(CFxString::from_ansi_str(message));
}

void failWith(const CFxString &message)
{
    printText(message);
    activeLispHost()->retNil();
}
