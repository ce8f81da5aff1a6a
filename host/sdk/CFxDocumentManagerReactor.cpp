#include "sdk/fx/CFxDocumentManagerReactor.h"

// The default behaviour of every notification is to do nothing.

CFxDocumentManagerReactor::CFxDocumentManagerReactor() = default;

void CFxDocumentManagerReactor::DocumentCreateStarted(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentCreated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentToBeDestroyed(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentDestroyed(const char16_t *) {}
void CFxDocumentManagerReactor::DocumentLispLoaded(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentLispUnloaded(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentToBeActivated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentToBeDeactivated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentActivated(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentCreateCanceled(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentBecameCurrent(CFxDocument *) {}
void CFxDocumentManagerReactor::DocumentActivationModified(bool) {}
void CFxDocumentManagerReactor::DocumentPreOpen(const char16_t *) {}
