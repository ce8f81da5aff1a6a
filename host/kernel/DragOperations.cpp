// The drag of a selection set: the person moves the cursor, a module says how the objects are shown for each place.

#include "host/kernel/Document.h"
#include "lisp/LispStatus.h"

// The matrix may be any: it says how the objects are shown, and neither changes the drawing nor decides what is picked.
// The cursor's shape is of no concern without a screen.
int SubstituteLispHost::dragSelection(const LispName *selection, const char16_t *prompt, int, DragTransform transform,
                                      LispPoint *result)
{
    if (!m_machine.owner() || !Document::of(m_machine).selectionSets().find(*selection))
        return StatusError;
    const auto cursorAt = [transform](const LispPoint &cursor) {
        LispMatrix shown{};
        transform(&cursor, &shown);
    };
    return m_prompter.drag(prompt ? prompt : u"", cursorAt, *result);
}
