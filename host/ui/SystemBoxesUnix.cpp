#include "host/ui/SystemBoxes.h"

// The boxes of the platform library are dialogs of Qt.
std::unique_ptr<SystemBoxDriver> driveSystemBoxes(HostServices &)
{
    return nullptr;
}
