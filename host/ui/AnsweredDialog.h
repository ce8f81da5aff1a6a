#pragma once

#include "host/kernel/input/Answer.h"

struct HostServices;
class TranscriptEvent;

// A modal dialog that waits for a person, whoever made it.
class AnsweredDialog
{
public:
    virtual ~AnsweredDialog() = default;

    virtual bool isOpen() const = 0;
    virtual void describe(TranscriptEvent &event) const = 0;
    virtual QString name() const = 0; // in a message, as: Dlg_MTextEditor "Title"
    // Whether the answer is one that it understands, and doing what a person would do who gives it; it may stay open.
    virtual bool suits(const Answer &answer) const = 0;
    virtual void perform(const Answer &answer) = 0;
    // Closes it when nobody has anything to say: as by Esc, and when it does not heed that, as one that went away.
    virtual void dismiss() = 0;
};

// Answers the dialog from the answers file until it is closed. Each answer makes an entry in the transcript, with the
// dialog as it was before: dialogs that the answer opens come later.
void answerDialog(AnsweredDialog &dialog, HostServices &services);
