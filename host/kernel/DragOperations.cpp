// The drag of a selection set: the person moves the cursor, a module says how the objects are shown for each place.

#include "host/kernel/Document.h"
#include "lisp/LispStatus.h"

// The matrix may be any: it says how the objects are shown, and neither changes the drawing nor decides what is picked.
// The cursor's shape is of no concern without a screen.
int SubstituteLispHost::dragSelection(const LispName *selection, const char16_t *prompt, int, DragTransform transform,
                                      LispPoint *result)
{
    const SelectionSet *set = m_machine.owner() ? Document::of(m_machine).selectionSets().find(*selection) : nullptr;
    if (!set)
        return StatusError;
    const auto transformAt = [transform](const LispPoint &cursor) {
        LispMatrix shown{};
        transform(&cursor, &shown);
        return shown;
    };
    return m_prompter.drag(prompt ? prompt : u"", {set->entities(), transformAt}, *result);
}
