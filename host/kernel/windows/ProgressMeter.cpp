#include "host/kernel/windows/ProgressMeter.h"

#include "host/kernel/HostServices.h"

#include <algorithm>

namespace {

constexpr int FirstMaximum = 100;
constexpr int MillisecondsPerFrame = 16; // a screen shows no more

} // namespace

void ProgressMeter::start(const QString &label)
{
    m_started = true;
    m_progress = {label, 0, FirstMaximum};
    note(u"start");
    show(Urgency::Now);
}

bool ProgressMeter::set(int position)
{
    if (!m_started || position < 0)
        return false;
    m_progress.position = position;
    m_progress.maximum = std::max(m_progress.maximum, position);
    note(u"set");
    show(Urgency::WhenDue);
    return true;
}

void ProgressMeter::end()
{
    if (!m_started)
        return;
    m_started = false;
    note(u"end");
    m_services.userInterface->endProgress();
}

void ProgressMeter::showLatest()
{
    if (m_started && m_isBehind)
        show(Urgency::WhenDue);
}

void ProgressMeter::note(QStringView call)
{
    if (!m_services.transcript.isOpen())
        return;
    m_services.transcript.write(TranscriptEvent(u"progress")
                                    .add(u"call", call.toString())
                                    .add(u"label", m_progress.label)
                                    .add(u"position", m_progress.position));
}

void ProgressMeter::show(Urgency urgency)
{
    m_isBehind = urgency == Urgency::WhenDue && m_sinceShown.isValid() && m_sinceShown.elapsed() < MillisecondsPerFrame;
    if (m_isBehind)
        return;
    m_sinceShown.start();
    m_services.userInterface->showProgress(m_progress);
}
