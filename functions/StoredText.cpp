#include "functions/StoredText.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"

#include <string>

int callForStoredText(const char16_t *section, int units)
{
    resbuf *nameNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (nameNode == nullptr)
        return StatusNormal;
    std::u16string buffer(static_cast<std::size_t>(units), u'\0');
    if (activeLispHost()->getProfileString(section, nameNode->resval.string, u"", buffer.data(), units) == StatusNormal)
        activeLispHost()->retWStr(buffer.c_str());
    else
        activeLispHost()->retNil();
    activeLispHost()->releaseRb(nameNode);
    return StatusNormal;
}
