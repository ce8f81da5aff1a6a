#pragma once

#include "host/sdk/HostSdk.h"
#include "sdk/fx/CFxString.h"
#include "sdk/fx/CFxSystemServices.h"
#include "tests/support/DialogWatcher.h"
#include "tests/support/HandlerTest.h"

#include <QWidget>

// The services of a host with a main window.
class WindowServices final : public CFxSystemServices
{
public:
    WindowServices() { HostSdk::installSystemServices(this); }
    ~WindowServices() { HostSdk::installSystemServices(nullptr); }

    CFxDocumentManager *documentManager() override { return nullptr; }
    void message(const CFxString &) override {}
    QWidget *mainWindow() override { return &m_window; }
    void htmlPrompt(const CFxString &text, bool option) override
    {
        m_prompts.push_back(text.toQString().toStdString() + (option ? " 1" : " 0"));
    }

    const std::vector<std::string> &prompts() const { return m_prompts; }

private:
    QWidget m_window;
    std::vector<std::string> m_prompts;
};

// Handlers that show windows, with a person who was told beforehand what to do with them.
class UiTest : public HandlerTest
{
protected:
    UiTest() { host().setWindow(&m_documentWindow); }

    QWidget &mainWindow() { return *m_services.mainWindow(); }
    QWidget &documentWindow() { return m_documentWindow; }
    const std::vector<std::string> &prompts() const { return m_services.prompts(); }
    DialogWatcher &person() { return m_person; }

private:
    WindowServices m_services;
    QWidget m_documentWindow;
    DialogWatcher m_person;
};
