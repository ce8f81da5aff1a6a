#include "functions/StoredText.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/LispStatus.h"

#include <string>

void returnStoredText(const char16_t *section, const char16_t *name, int units)
{
    std::u16string buffer(static_cast<std::size_t>(units), u'\0');
    const int status = activeLispHost()->getProfileString(section, name, u"", buffer.data(), units);
    if (status == StatusNormal)
        activeLispHost()->retWStr(buffer.c_str());
    else
        activeLispHost()->retNil();
}
