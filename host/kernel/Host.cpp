#include "host/kernel/Host.h"

Host::Host()
{
    HostSdk::installSystemServices(this);
    HostSdk::installActiveDocumentProvider(this);
}

Host::~Host()
{
    m_modules.unloadAll();
    HostSdk::installActiveDocumentProvider(nullptr);
    HostSdk::installSystemServices(nullptr);
}
