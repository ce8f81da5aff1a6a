#pragma once

#include "host/kernel/DocumentManager.h"
#include "host/kernel/HostServices.h"
#include "host/kernel/ModuleLoader.h"
#include "host/kernel/PlatformEvents.h"
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
    QWidget *mainWindow() override { return m_services.userInterface->mainWindow(); }
    void htmlPrompt(const CFxString &text, bool option) override;
    std::vector<std::u16string> loadedModules() const override;
    bool loadModule(std::u16string_view path) override;
    void message(const CFxString &text) override;
    DocumentManager &documents() { return m_documents; }
    ModuleLoader &modules() { return m_modules; }
    HostServices &services() { return m_services; }

private:
    CFxDocument *activeDocument() override { return m_documents.active(); }
    OdDbObjectId objectId(const LispName &name) override;

    HostServices m_services;
    PlatformEvents m_platformEvents{m_services};
    DocumentManager m_documents{*this, m_services};
    ModuleLoader m_modules;
};
