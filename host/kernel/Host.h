#pragma once

#include "host/kernel/DocumentManager.h"
#include "host/kernel/ModuleLoader.h"
#include "host/sdk/HostSdk.h"
#include "sdk/fx/CFxSystemServices.h"

// The substitute host as a whole: while it lives, it is what the SDK's entrance functions lead to. One per process.
class Host final : public CFxSystemServices, public lisp::ModuleService, private HostSdk::ActiveDocumentProvider
{
public:
    Host();
    ~Host(); // unloads the modules, then closes the documents
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;

    CFxDocumentManager *documentManager() override { return &m_documents; }
    std::vector<std::u16string> loadedModules() const override;
    bool loadModule(std::u16string_view path) override;
    DocumentManager &documents() { return m_documents; }
    ModuleLoader &modules() { return m_modules; }

private:
    CFxDocument *activeDocument() override { return m_documents.active(); }

    DocumentManager m_documents{*this};
    ModuleLoader m_modules;
};
