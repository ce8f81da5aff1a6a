#include "functions/dragrotate.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "sdk/fx/CFxString.h"

#include <cmath>

namespace {

constexpr int KeywordUnits = 512;

// Both outlive the call: without a base point of its own a drag turns about that of the one before.
LispPoint basePoint{};
LispMatrix lastTransform{};

struct DragOptions
{
    CFxString prompt = CFxString::from_ansi_str("\nSpecify rotation:");
    resbuf *lastNode = nullptr; // the last one looked at
};

// Base point, prompt, one that is skipped, and an integer that is only checked. A wrong prompt or integer is answered
// by the checker and does not keep the drag from happening.
DragOptions readOptions(resbuf *node)
{
    DragOptions options{.lastNode = node};
    if (node == nullptr || (node->restype != TypePoint3d && node->restype != TypePoint2d))
        return options;
    basePoint = node->resval.point;
    options.lastNode = checkArgument(TypeString, node->rbnext, Presence::Optional);
    if (options.lastNode == nullptr)
        return options;
    options.prompt = CFxString(options.lastNode->resval.string);
    options.lastNode = options.lastNode->rbnext;
    if (options.lastNode != nullptr)
        options.lastNode = checkArgument(TypeShort, options.lastNode->rbnext, Presence::Optional);
    return options;
}

// The angle is taken from the cursor to the base point, the other way round than for the result, and the matrix turns
// about the X axis. Hosts show the drag as it is given here; drawings depend on neither.
int transformAtCursor(const LispPoint *cursor, LispMatrix *transform)
{
    *transform = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    const double angle = activeLispHost()->angle(cursor, &basePoint);
    transform->rows[1][1] = transform->rows[2][2] = std::cos(angle);
    transform->rows[2][1] = std::sin(angle);
    transform->rows[1][2] = -std::sin(angle);
    lastTransform = *transform;
    return StatusNormal;
}

void returnAngleTo(const LispPoint &picked)
{
    const double angle = activeLispHost()->angle(&basePoint, &picked);
    activeLispHost()->retReal(angle);
}

void returnTypedText()
{
    char16_t text[KeywordUnits] = {};
    activeLispHost()->getInput(text, KeywordUnits);
    activeLispHost()->retWStr(text);
}

} // namespace

int acetSsDragRotate()
{
    const resbuf *selectionNode = checkArgument(TypeSelectionSet, activeLispHost()->getArgs());
    if (selectionNode == nullptr)
        return StatusNormal;
    const LispName selection = selectionNode->resval.name;
    const DragOptions options = readOptions(selectionNode->rbnext);
    LispPoint picked{};
    const int status =
        activeLispHost()->dragSelection(&selection, options.prompt.wide_strU(), 0, transformAtCursor, &picked);
    if (status == StatusNormal)
        returnAngleTo(picked);
    else if (status == StatusText)
        returnTypedText();
    activeLispHost()->releaseRb(options.lastNode); // the selection's node stays
    return StatusNormal;
}
