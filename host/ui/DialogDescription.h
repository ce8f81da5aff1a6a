#pragma once

#include "host/kernel/input/Transcript.h"

class QDialog;

// What a person would see of a dialog: class, title, text, icon, buttons, labels, and where a file dialog stands.
void describeDialog(TranscriptEvent &event, const QDialog &dialog);

// The text that a dialog is about: a box's message, an editor's text, a page as it was given, an offered file name; of
// other dialogs that of their only label.
QString dialogText(const QDialog &dialog);

// A dialog in a message, as: Dlg_MTextEditor "Title".
QString dialogName(const QDialog &dialog);
