#include "functions/config.h"

#include "functions/StoredText.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"

namespace {

constexpr const char16_t *Section = u"variables";
constexpr int BufferUnits = 512; // longer values are cut

} // namespace

// The product keys come without a root: programs put HKEY_LOCAL_MACHINE\ or HKEY_CURRENT_USER\ in front. Arguments are
// not even fetched.

// Wow6432Node is where 64-bit Windows keeps the machine's keys of 32-bit programs; a user's keys have no such level.
int acetRegProdkey()
{
    activeLispHost()->retWStr(u"Software\\Wow6432Node\\Velmora GmbH\\Tarn Studio 2016");
    return StatusNormal;
}

int acetRegUserProdkey()
{
    activeLispHost()->retWStr(u"Software\\Velmora GmbH\\Tarn Studio 2016");
    return StatusNormal;
}

int acetGetConfig()
{
    return callForStoredText(Section, BufferUnits);
}

// Sets no result, so every call gives nil: programs cannot tell a failed write from a successful one.
int acetSetConfig()
{
    const resbuf *nameNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (nameNode == nullptr)
        return StatusNormal;
    resbuf *valueNode = checkArgument(TypeString, nameNode->rbnext);
    if (valueNode != nullptr)
        activeLispHost()->setProfileString(Section, nameNode->resval.string, valueNode->resval.string);
    activeLispHost()->releaseRb(valueNode);
    return StatusNormal;
}
