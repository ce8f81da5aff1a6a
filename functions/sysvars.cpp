#include "functions/sysvars.h"

#include "functions/StoredText.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "sdk/fx/CFxString.h"

#include <QLocale>

namespace {

constexpr const char16_t *Section = u"Tarn";
constexpr int BufferUnits = 255; // longer values are cut

// LISP programs decode the prefix themselves: reading gives it back with the number.
QString storedText(const resbuf *value)
{
    constexpr QLatin1Char Blank(' ');
    switch (value->restype) {
    case TypeString:
        return textOf(value);
    case TypeShort:
        return QStringLiteral("INT__%1").arg(value->resval.shortInteger, 0, 10, Blank);
    case TypeLong:
        return QStringLiteral("INT__%1").arg(value->resval.longInteger, 0, 10, Blank);
    case TypeReal:
        return QStringLiteral("REA__%1").arg(value->resval.real, 0, 'g', QLocale::FloatingPointShortest, Blank);
    default:
        return {};
    }
}

} // namespace

int acetVarSetvar()
{
    resbuf *nameNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (nameNode == nullptr)
        return StatusNormal;
    const CFxString name(nameNode->resval.string);
    resbuf *valueNode = nameNode->rbnext;
    if (valueNode != nullptr) {
        const CFxString text(storedText(valueNode));
        const int status = activeLispHost()->setProfileString(Section, name.wide_strU(), text.wide_strU());
        returnTruth(status == StatusNormal);
    }
    // The name's node is left to the interpreter, unlike in acet-var-getvar.
    activeLispHost()->releaseRb(valueNode);
    return StatusNormal;
}

int acetVarGetvar()
{
    return callForStoredText(Section, BufferUnits);
}
