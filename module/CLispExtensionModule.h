#pragma once

#include "sdk/fx/CFxDocumentManagerReactor.h"
#include "sdk/oda/OdRxModule.h"

// The module: defines its functions in every open document, and as its own reactor in every document whose interpreter
// comes later. OdRxWin32Module adds reference count, library handle and factory.
class CLispExtensionModule : public OdRxModule, public CFxDocumentManagerReactor
{
public:
    void initApp() override;
    void uninitApp() override;
    OdString moduleName() const override; // cut to 259 units when longer

    void DocumentLispLoaded(CFxDocument *document) override;
    void DocumentLispUnloaded(CFxDocument *document) override;

protected:
    ~CLispExtensionModule() = default;
};
