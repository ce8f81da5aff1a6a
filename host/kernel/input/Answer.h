#pragma once

#include <QString>

// One line of an answers file: what a person would do next.
struct Answer
{
    enum class Kind {
        Typed,  // text at a prompt, then Enter; empty: Enter alone
        Escape, // @esc
        Press,  // @press NAME: a dialog's button
        Text,   // @text TEXT: the editor's text; the dialog stays open
        File,   // @file PATH: chosen in a file or folder dialog
        Move,   // @move X,Y: the cursor during a drag
    };

    Kind kind = Kind::Typed;
    QString argument; // the text behind the word, escapes resolved
    int line = 0;     // in the file, counted from 1
};

// The line as it stands in the file, for transcripts and messages.
QString answerLine(const Answer &answer);
