#pragma once

#include <QStringList>

// What a program asks of a dialog for files, in the terms of getfiled: (getfiled title default extension flags).
struct FileRequest
{
    enum class Mode { Open, Save };
    enum class Overwriting { Confirmed, Silent };

    // The extension is one ("dxf"), several ("dwg;dxf"), empty for any, or a whole filter ("Drawings (*.dwg *.dxf)"),
    // of which "|" or ";;" separate several. A default that ends in a separator, or any with the flag 16, is a folder.
    static FileRequest fromGetfiled(const QString &title, const QString &defaultName, const QString &extension,
                                    int flags);

    Mode mode = Mode::Open;
    Overwriting overwriting = Overwriting::Confirmed;
    QString title;
    QString folder;          // empty: the current one
    QString fileName;        // offered; may be empty
    QStringList nameFilters; // in Qt's form
    QString extension;       // added to a new file's name that has none; empty: nothing is added
};
