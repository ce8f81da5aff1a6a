#include "host/kernel/PlatformEvents.h"

#include "host/kernel/HostServices.h"
#include "platform/Beep.h"
#include "platform/Shell.h"

PlatformEvents::PlatformEvents(HostServices &services)
{
    setShellObserver([&services](const ShellLaunch &launch) {
        services.transcript.write(TranscriptEvent(u"shell")
                                      .add(u"verb", launch.verb)
                                      .add(u"file", launch.file)
                                      .add(u"parameters", launch.parameters)
                                      .add(u"result", launch.result));
    });
    setBeepObserver([&services](DWORD frequency, DWORD milliseconds) {
        services.transcript.write(TranscriptEvent(u"beep")
                                      .add(u"frequency", static_cast<int>(frequency))
                                      .add(u"milliseconds", static_cast<int>(milliseconds)));
    });
}

PlatformEvents::~PlatformEvents()
{
    setShellObserver({});
    setBeepObserver({});
}
