#pragma once

#include "host/interpreter/ModuleService.h"
#include "host/kernel/Document.h"
#include "sdk/fx/CFxDocumentManager.h"

#include <memory>
#include <vector>

// The open documents in the order in which they were opened, and who wants to hear of them.
class DocumentManager final : public CFxDocumentManager
{
public:
    // The machines of all documents ask `modules` about modules and share `services`; both outlive the manager.
    DocumentManager(lisp::ModuleService &modules, HostServices &services) : m_modules(modules), m_services(services) {}
    ~DocumentManager();

    void addReactor(CFxDocumentManagerReactor *reactor) override;
    void removeReactor(CFxDocumentManagerReactor *reactor) override;
    std::uint16_t documentCount() const override;
    CFxDocument *documentAt(std::uint16_t index) const override;

    // Opens a new document, tells the reactors and makes it the active one.
    Document &open();
    void activate(Document &document);
    // Closes a document of this manager; the one opened last becomes active if the closed one was.
    void close(Document &document);
    Document *active() const { return m_active; }

private:
    template <class... Parameters, class... Arguments>
    void notify(void (CFxDocumentManagerReactor::*notification)(Parameters...), Arguments... arguments);

    lisp::ModuleService &m_modules;
    HostServices &m_services;
    std::vector<std::unique_ptr<Document>> m_documents;
    std::vector<CFxDocumentManagerReactor *> m_reactors;
    Document *m_active = nullptr;
};
