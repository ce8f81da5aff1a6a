#pragma once

#include "host/kernel/input/Answer.h"

class QDialog;

// Whether the answer is one that this dialog understands: a button that it has and that is enabled, an editor to type
// into, a dialog for files.
bool suits(const Answer &answer, const QDialog &dialog);

// Does to a dialog what a person would do who gives this answer, which must suit it. The dialog may stay open.
void perform(const Answer &answer, QDialog &dialog);

// Closes a dialog to which nobody has anything to say: as by Esc, and when it does not heed that, as rejected.
void dismiss(QDialog &dialog);
