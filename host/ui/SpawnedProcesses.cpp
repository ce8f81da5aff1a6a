#include "host/ui/SpawnedProcesses.h"

#include <QProcess>
#include <QWidget>

void freeEndedProcesses(QWidget &window)
{
    for (QProcess *process : window.findChildren<QProcess *>(QString(), Qt::FindDirectChildrenOnly)) {
        process->waitForFinished(0); // looks, and does not wait
        if (process->state() == QProcess::NotRunning)
            delete process;
    }
}
