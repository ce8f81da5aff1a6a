#pragma once

#include "host/kernel/windows/UserInterface.h"

#include <QElapsedTimer>

struct HostServices;

// The host's progress meter. Programs do not tell it how far they will go: its range grows with the positions. Starting
// it anew ends the one before.
class ProgressMeter
{
public:
    explicit ProgressMeter(HostServices &services) : m_services(services) {}

    void start(const QString &label);
    bool set(int position); // false, and nothing happens, for a negative position and while no meter is started
    void end();
    void showLatest(); // a position that was passed over because it came too soon; nothing when there is none

private:
    enum class Urgency { Now, WhenDue };

    void note(QStringView call);
    void show(Urgency urgency);

    HostServices &m_services;
    Progress m_progress;
    bool m_started = false;
    bool m_isBehind = false; // what is shown is not the latest
    QElapsedTimer m_sinceShown;
};
