#pragma once

#include "host/sdk/HostSdk.h"
#include "sdk/fx/CFxDocumentManager.h"
#include "sdk/fx/CFxSystemServices.h"
#include "tests/support/RecordingHost.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

// System services with a document manager whose documents record what is defined in them.
class FakeDocumentManager final : public CFxDocumentManager, private CFxSystemServices
{
public:
    FakeDocumentManager() { HostSdk::installSystemServices(this); }
    ~FakeDocumentManager() { HostSdk::installSystemServices(nullptr); }

    RecordingHost &open()
    {
        m_documents.push_back(std::make_unique<RecordingHost>(RecordingHost::ReachedBy::GivenDocument));
        return *m_documents.back();
    }

    void close(std::size_t index) { m_documents.erase(m_documents.begin() + long(index)); }

    void disappear() { m_present = false; }
    void whenVisited(std::function<void(std::size_t)> action) { m_visitAction = std::move(action); }
    const std::vector<CFxDocumentManagerReactor *> &reactors() const { return m_reactors; }

    void addReactor(CFxDocumentManagerReactor *reactor) override { m_reactors.push_back(reactor); }
    void removeReactor(CFxDocumentManagerReactor *reactor) override { std::erase(m_reactors, reactor); }
    std::uint16_t documentCount() const override { return static_cast<std::uint16_t>(m_documents.size()); }

    CFxDocument *documentAt(std::uint16_t index) const override
    {
        CFxDocument *document = m_documents.at(index)->document();
        if (m_visitAction)
            m_visitAction(index);
        return document;
    }

private:
    CFxDocumentManager *documentManager() override { return m_present ? this : nullptr; }
    QWidget *mainWindow() override { return nullptr; }
    void message(const CFxString &) override {}
    void htmlPrompt(const CFxString &, bool) override {}

    std::vector<std::unique_ptr<RecordingHost>> m_documents;
    std::vector<CFxDocumentManagerReactor *> m_reactors;
    std::function<void(std::size_t)> m_visitAction;
    bool m_present = true;
};
