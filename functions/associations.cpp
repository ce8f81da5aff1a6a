#include "functions/associations.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/Shell.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QUrl>

namespace {

constexpr int LeastSuccess = 32; // of the shell's numbers

} // namespace

int acetFilenameAcadRoot()
{
    if (activeLispHost()->getArgs() != nullptr) {
        returnText(QObject::tr("Error. Too much arguments")); // the result of a call that fails; nothing is printed
        return StatusError;
    }
    const QString folder = QDir(QCoreApplication::applicationDirPath()).absolutePath() + u'\\';
    returnText(QDir::toNativeSeparators(folder));
    return StatusNormal;
}

int acetFilenameAssociatedApp()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    char16_t program[MAX_PATH] = {};
    const HINSTANCE instance = FindExecutableW(windowsText(pathNode->resval.string), nullptr, windowsText(program));
    const auto number = static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(instance));
    if (number < LeastSuccess)
        activeLispHost()->retInt(number);
    else
        activeLispHost()->retWStr(program);
    activeLispHost()->releaseRb(pathNode);
    return StatusNormal;
}

// The arguments stay with the interpreter on every path.
int wexoOpendefaultapp()
{
    const resbuf *pathNode = activeLispHost()->getArgs();
    if (pathNode == nullptr || pathNode->restype != TypeString)
        return StatusError;
    const QFile file(textOf(pathNode));
    if (!file.exists())
        return StatusError;
    QDesktopServices::openUrl(QUrl::fromLocalFile(file.fileName()));
    return StatusNormal;
}
