#pragma once

struct HostServices;

// Writes what the platform library launches and sounds into the transcript, as long as it lives. On Windows those calls
// are the system's own, and nobody hears of them.
class PlatformEvents
{
public:
    explicit PlatformEvents(HostServices &services);
    ~PlatformEvents();
    PlatformEvents(const PlatformEvents &) = delete;
    PlatformEvents &operator=(const PlatformEvents &) = delete;
};
