#include "host/kernel/DocumentManager.h"

#include "sdk/fx/CFxDocumentManagerReactor.h"

#include <algorithm>

using Reactor = CFxDocumentManagerReactor;

// Reactors may come and go while they are being told: those that are there at the start hear of it.
template <class... Parameters, class... Arguments>
void DocumentManager::notify(void (Reactor::*notification)(Parameters...), Arguments... arguments)
{
    const std::vector<Reactor *> reactors = m_reactors;
    for (Reactor *reactor : reactors)
        if (std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end())
            (reactor->*notification)(arguments...);
}

DocumentManager::~DocumentManager()
{
    while (!m_documents.empty())
        close(*m_documents.back());
}

void DocumentManager::addReactor(Reactor *reactor)
{
    if (std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void DocumentManager::removeReactor(Reactor *reactor)
{
    std::erase(m_reactors, reactor);
}

std::uint16_t DocumentManager::documentCount() const
{
    return static_cast<std::uint16_t>(m_documents.size());
}

CFxDocument *DocumentManager::documentAt(std::uint16_t index) const
{
    return index < m_documents.size() ? m_documents[index].get() : nullptr;
}

Document &DocumentManager::open()
{
    Document &document = *m_documents.emplace_back(std::make_unique<Document>(m_services));
    document.machine().setModuleService(&m_modules);
    notify(&Reactor::DocumentCreateStarted, &document);
    notify(&Reactor::DocumentCreated, &document);
    notify(&Reactor::DocumentLispLoaded, &document);
    activate(document);
    return document;
}

void DocumentManager::activate(Document &document)
{
    if (m_active == &document)
        return;
    if (m_active)
        notify(&Reactor::DocumentToBeDeactivated, m_active);
    notify(&Reactor::DocumentToBeActivated, &document);
    m_active = &document;
    notify(&Reactor::DocumentActivated, &document);
    notify(&Reactor::DocumentBecameCurrent, &document);
}

void DocumentManager::close(Document &document)
{
    notify(&Reactor::DocumentToBeDestroyed, &document);
    notify(&Reactor::DocumentLispUnloaded, &document);
    const bool wasActive = m_active == &document;
    if (wasActive)
        m_active = nullptr;
    std::erase_if(m_documents, [&](const auto &open) { return open.get() == &document; });
    notify(&Reactor::DocumentDestroyed, u"");
    if (wasActive && !m_documents.empty())
        activate(*m_documents.back());
}
