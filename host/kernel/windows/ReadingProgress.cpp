#include "host/kernel/windows/ReadingProgress.h"

#include "host/drawing/Database.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr int Steps = 1000;
constexpr qint64 ShowInterval = 16; // milliseconds; a screen shows no more

QString translated(const char *text)
{
    return QCoreApplication::translate("ReadingProgress", text);
}

} // namespace

ReadingProgress::ReadingProgress(UserInterface &userInterface, const lisp::Machine &machine, const QString &path)
    : m_userInterface(userInterface), m_machine(machine), m_name(QFileInfo(path).fileName())
{
    m_sinceShown.start();
}

ReadingProgress::~ReadingProgress()
{
    m_userInterface.endProgress();
}

void ReadingProgress::show(double share)
{
    if (m_sinceShown.elapsed() >= ShowInterval) {
        m_userInterface.showProgress({translated("Opening %1").arg(m_name), static_cast<int>(share * Steps), Steps});
        m_sinceShown.restart();
    }
    if (m_machine.isInterrupted())
        throw drawing::ReadError(translated("%1: it was not read to its end").arg(m_name).toStdString());
}
