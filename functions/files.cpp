#include "functions/files.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/CommandLine.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/FileAttributes.h"

#include <QDir>
#include <QFile>

// Paths are used exactly as they were given. Which argument node a handler hands back to the interpreter differs from
// handler to handler, and is part of its contract.

namespace {

bool isGiven(const resbuf *argument)
{
    return argument != nullptr && argument->restype != TypeNil;
}

void changeAttributes(const CFxString &path, std::int32_t word)
{
    if (SetFileAttributesW(windowsText(path.wide_strU()), static_cast<DWORD>(word)) == TRUE)
        activeLispHost()->retInt(word);
    else
        activeLispHost()->retNil();
}

void reportAttributes(const CFxString &path)
{
    const DWORD word = GetFileAttributesW(windowsText(path.wide_strU()));
    if (word != INVALID_FILE_ATTRIBUTES) {
        activeLispHost()->retInt(static_cast<std::int32_t>(word));
        return;
    }
    const CFxString message = CFxString::from_ansi_str("\nError: Unable to get the file attributes: %s.");
    activeLispHost()->prompt(message.wide_strU(), path.wide_strU());
    activeLispHost()->retNil();
}

} // namespace

int acetFileAttr()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    const CFxString path(pathNode->resval.string);
    resbuf *wordNode = pathNode->rbnext;
    if (isGiven(wordNode))
        changeAttributes(path, wordNode->resval.longInteger); // the word as it stands, whatever the node's type
    else
        reportAttributes(path);
    activeLispHost()->releaseRb(wordNode); // the path's node stays
    return StatusNormal;
}

int acetFileChdir()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    const QString path = textOf(pathNode);
    const bool changed = QDir::setCurrent(path);
    const QString nativePath = QDir::toNativeSeparators(path);
    if (changed)
        returnText(nativePath); // the argument's own words, not the directory as the system now names it
    else
        failWith(CFxString(QStringLiteral("\nError: Unable to change the current directory: ") + nativePath));
    activeLispHost()->releaseRb(pathNode);
    return StatusNormal;
}

int acetFileCwd()
{
    const QString path = QDir::currentPath();
    if (path.isNull())
        activeLispHost()->retNil();
    else
        returnText(QDir::toNativeSeparators(path));
    return StatusNormal;
}

int acetFileMkdir()
{
    // No argument checker here: a missing or wrong argument is answered with silence.
    resbuf *pathNode = activeLispHost()->getArgs();
    if (pathNode == nullptr || pathNode->restype != TypeString)
        return StatusNormal;
    const QString path = textOf(pathNode);
    if (!QDir(path).exists())
        QDir().mkpath(path);
    returnTruth(QDir(path).exists()); // what is there now decides, not what mkpath says
    activeLispHost()->releaseRb(pathNode);
    return StatusNormal;
}

int acetFileMove()
{
    resbuf *sourceNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (sourceNode == nullptr)
        return StatusNormal;
    resbuf *destinationNode = checkArgument(TypeString, sourceNode->rbnext);
    if (destinationNode != nullptr)
        returnTruth(QFile(textOf(sourceNode)).rename(textOf(destinationNode)));
    activeLispHost()->releaseRb(destinationNode); // null after a refused destination
    return StatusNormal;
}

int acetFileRemove()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    QFile file(textOf(pathNode));
    resbuf *forceNode = pathNode->rbnext;
    if (isGiven(forceNode))
        file.setPermissions(file.permissions() | QFileDevice::WriteOwner);
    activeLispHost()->retInt(file.remove() ? 1 : 0); // LISP programs rely on the integers 1 and 0 here, not T and nil
    activeLispHost()->releaseRb(forceNode);
    return StatusNormal;
}

int acetFileRmdir()
{
    resbuf *pathNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pathNode == nullptr)
        return StatusNormal;
    returnTruth(QDir(textOf(pathNode)).removeRecursively());
    activeLispHost()->releaseRb(pathNode);
    return StatusNormal;
}
