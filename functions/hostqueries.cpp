#include "functions/hostqueries.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "sdk/fx/CFxDocument.h"
#include "sdk/fx/CFxString.h"
#include "sdk/fx/CFxSystemServices.h"
#include "sdk/fx/CFxUserInput.h"

// Apart from ismnugrploaded these say nothing about a missing or wrong argument, and give nothing.

namespace {

bool isPoint(const resbuf *node)
{
    return node != nullptr && (node->restype == TypePoint2d || node->restype == TypePoint3d);
}

// LISP programs know how the request for a point ended by these numbers.
void returnOutcome(int status)
{
    if (status == StatusNormal)
        activeLispHost()->retInt(0);
    else if (status == StatusKeyword)
        activeLispHost()->retInt(1);
    else if (status == StatusCancelled)
        activeLispHost()->retInt(2);
}

} // namespace

int ismnugrploaded()
{
    resbuf *groupNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (groupNode == nullptr)
        return StatusNormal;
    const CFxString query(textOf(groupNode) + QStringLiteral("=?"));
    returnTruth(activeLispHost()->menuCmd(query.wide_strU()) == StatusNormal);
    activeLispHost()->releaseRb(groupNode);
    return StatusNormal;
}

int tablet()
{
    constexpr int MostPoints = 3;
    const resbuf *codeNode = activeLispHost()->getArgs();
    if (codeNode == nullptr || codeNode->restype != TypeShort)
        return StatusNormal;
    resbuf *rest = codeNode->rbnext;
    for (int points = 0; points < MostPoints && isPoint(rest); ++points)
        rest = rest->rbnext;
    if (codeNode->resval.shortInteger == 0)
        activeLispHost()->setTabletMode(0);
    activeLispHost()->retNil();
    activeLispHost()->releaseRb(rest);
    return StatusNormal;
}

int wexoCompileshp()
{
    const resbuf *firstNode = activeLispHost()->getArgs();
    if (!isString(firstNode))
        return StatusNormal;
    resbuf *secondNode = firstNode->rbnext;
    if (isString(secondNode) &&
        activeLispHost()->compileShape(firstNode->resval.string, secondNode->resval.string) == StatusNormal)
        activeLispHost()->retT();
    activeLispHost()->releaseRb(secondNode);
    return StatusNormal;
}

int wexoGetpointEsc()
{
    resbuf *promptNode = activeLispHost()->getArgs();
    if (!isString(promptNode))
        return StatusNormal;
    ACTIVE_DOCUMENT()->userInput()->initGet(0, u"");
    LispPoint point{}; // which point it was is nobody's business here
    CFxString keyword;
    returnOutcome(ACTIVE_DOCUMENT()->userInput()->getPoint(promptNode->resval.string, nullptr, &point, &keyword));
    activeLispHost()->releaseRb(promptNode);
    return StatusNormal;
}
