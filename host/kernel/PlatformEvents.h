#pragma once

struct HostServices;

// Writes what the modules launch and sound into the transcript, as long as it lives.
class PlatformEvents
{
public:
    explicit PlatformEvents(HostServices &services);
    ~PlatformEvents();
    PlatformEvents(const PlatformEvents &) = delete;
    PlatformEvents &operator=(const PlatformEvents &) = delete;
};
