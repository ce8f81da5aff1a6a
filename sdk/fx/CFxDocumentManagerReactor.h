#pragma once

#include "sdk/fx/FxExport.h"
#include "sdk/oda/OdRxObject.h"

class CFxDocument;

// Notifications about the host's documents, on its main thread. The host defines the constructor and the default
// behaviour of every notification.
class FX_EXPORT CFxDocumentManagerReactor : public OdRxObject
{
public:
    CFxDocumentManagerReactor();

    virtual void DocumentCreateStarted(CFxDocument *document);
    virtual void DocumentCreated(CFxDocument *document);
    virtual void DocumentToBeDestroyed(CFxDocument *document);
    virtual void DocumentDestroyed(const char16_t *fileName); // the document itself is gone already
    virtual void DocumentLispLoaded(CFxDocument *document);   // its interpreter is ready for definitions
    virtual void DocumentLispUnloaded(CFxDocument *document); // its interpreter is about to go away
    virtual void DocumentToBeActivated(CFxDocument *document);
    virtual void DocumentToBeDeactivated(CFxDocument *document);
    virtual void DocumentActivated(CFxDocument *document);
    virtual void DocumentCreateCanceled(CFxDocument *document);
    virtual void DocumentBecameCurrent(CFxDocument *document);
    virtual void DocumentActivationModified(bool active);
    virtual void DocumentPreOpen(const char16_t *fileName);

protected:
    ~CFxDocumentManagerReactor() = default;
};
