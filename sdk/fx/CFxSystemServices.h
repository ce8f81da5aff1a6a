#pragma once

#include "sdk/fx/FxExport.h"

class CFxDocument;
class CFxDocumentManager;
class CFxString;
class QWidget;

// The entrance to the host's own services.
class CFxSystemServices
{
public:
    virtual CFxDocumentManager *documentManager() = 0; // null while there is none
    virtual QWidget *mainWindow() = 0;                 // null in a host without windows

    // Shows a text to the user.
    virtual void message(const CFxString &text) = 0;

    // Shows a text with HTML tags. What the option selects is the host's affair; modules pass false.
    virtual void htmlPrompt(const CFxString &text, bool option) = 0;

protected:
    ~CFxSystemServices() = default;
};

FX_EXPORT CFxSystemServices *GetFxSystemServices(); // null before the host's start and after its end
FX_EXPORT CFxDocument *ACTIVE_DOCUMENT();           // null when no document is active
