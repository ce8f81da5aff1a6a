#pragma once

#include <memory>

struct HostServices;

// Answers the message boxes that the system itself shows, as DialogDriver answers the dialogs of Qt, as long as it
// lives. Only Windows has such boxes; elsewhere there is nothing to do. One at a time, for the thread that makes it.
class SystemBoxDriver
{
public:
    virtual ~SystemBoxDriver() = default;
};

std::unique_ptr<SystemBoxDriver> driveSystemBoxes(HostServices &services);
