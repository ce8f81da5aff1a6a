#include "functions/system.h"

#include "functions/HostWindows.h"
#include "functions/RuntimeCall.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/Beep.h"
#include "platform/KeyState.h"

#include <QThread>
#include <QWidget>

#include <cstdlib>

namespace {

int answerMouseButton(int virtualKey)
{
    returnTruth(GetKeyState(virtualKey) < 0);
    return StatusNormal;
}

DWORD frequencyOf(std::int16_t tone)
{
    constexpr int Plain = 700, Step = 400; // hertz
    return static_cast<DWORD>(tone == 0 ? Plain : std::abs(tone * Step));
}

} // namespace

int acetSysKeystate()
{
    resbuf *keyNode = checkArgument(TypeShort, activeLispHost()->getArgs());
    if (keyNode == nullptr)
        return StatusNormal;
    const std::int16_t state = GetKeyState(keyNode->resval.shortInteger);
    activeLispHost()->retInt(state < 0 ? state : 0); // the toggle bit of a key that is up is not told
    activeLispHost()->releaseRb(keyNode);
    return StatusNormal;
}

int acetSysLmouseDown()
{
    return answerMouseButton(VK_LBUTTON);
}

int acetSysMmouseDown()
{
    return answerMouseButton(VK_MBUTTON);
}

int acetSysRmouseDown()
{
    return answerMouseButton(VK_RBUTTON);
}

int acetSysBeep()
{
    constexpr DWORD Duration = 300; // milliseconds
    resbuf *toneNode = checkArgument(TypeShort, activeLispHost()->getArgs());
    if (toneNode == nullptr)
        return StatusNormal;
    Beep(frequencyOf(toneNode->resval.shortInteger), Duration);
    activeLispHost()->releaseRb(toneNode);
    return StatusNormal;
}

int acetSysSleep()
{
    if (resbuf *timeNode = checkArgument(TypeShort, activeLispHost()->getArgs())) {
        // A negative number is a very long time.
        QThread::msleep(static_cast<std::uint32_t>(std::int32_t{timeNode->resval.shortInteger}));
        activeLispHost()->releaseRb(timeNode);
    }
    activeLispHost()->retNil();
    return StatusNormal;
}

int acetSysLasterr()
{
    activeLispHost()->retInt(lastRuntimeError);
    return StatusNormal;
}

int acetSysForeground()
{
    if (QWidget *window = activeDocumentWindow()) {
        // Maximised first and then normal: the window comes up in its normal size, wherever it was.
        window->setWindowState((window->windowState() & ~Qt::WindowMinimized) | Qt::WindowMaximized | Qt::WindowActive);
        window->showNormal();
        window->setFocus();
        window->raise();
    }
    activeLispHost()->retNil();
    return StatusNormal;
}
