#include "functions/ini.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"

#include <QFileInfo>
#include <QSettings>
#include <QVariant>

#include <initializer_list>

namespace {

// Reads optional texts in turn; one that is not given as a string ends the reading and leaves the rest empty, so that
// nil and "" mean the same. Gives the node where the reading stopped: the last one when all were read.
resbuf *readTexts(resbuf *node, std::initializer_list<QString *> texts)
{
    resbuf *stop = node;
    for (QString *text : texts) {
        stop = node;
        if (node == nullptr || node->restype != TypeString)
            break;
        *text = textOf(node);
        node = node->rbnext;
    }
    return stop;
}

bool isReadable(const QString &file)
{
    const QFileInfo info(file);
    return info.exists() && info.isReadable();
}

void returnValue(const QSettings &settings, const QString &key, const QString &fallback)
{
    if (settings.contains(key))
        returnText(settings.value(key).toString());
    else if (!fallback.isEmpty())
        returnText(fallback);
    else
        activeLispHost()->retNil();
}

// Without a section its names, without a key those of the section. Neither a missing file nor an unknown section asks
// for the fallback: that stands in for a missing key alone.
void lookUp(const QString &file, const QString &section, const QString &key, const QString &fallback)
{
    QSettings settings(file, QSettings::IniFormat);
    if (!isReadable(file)) {
        activeLispHost()->retNil();
        return;
    }
    if (section.isEmpty()) {
        returnNames(settings.childGroups());
        return;
    }
    if (!settings.childGroups().contains(section, Qt::CaseSensitive)) {
        activeLispHost()->retNil();
        return;
    }
    settings.beginGroup(section);
    if (key.isEmpty())
        returnNames(settings.childKeys());
    else
        returnValue(settings, key, fallback);
    settings.endGroup();
}

// An empty section without a key stands for the whole file, and so removes every key of it.
void change(QSettings &settings, const QString &section, const QString &key, const QString &value)
{
    if (key.isEmpty()) {
        settings.remove(section);
        return;
    }
    settings.beginGroup(section);
    if (value.isEmpty())
        settings.remove(key);
    else
        settings.setValue(key, QVariant(value));
    settings.endGroup();
}

} // namespace

int acetIniGet()
{
    resbuf *fileNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (fileNode == nullptr)
        return StatusNormal;
    QString section;
    QString key;
    QString fallback;
    readTexts(fileNode->rbnext, {&section, &key, &fallback});
    lookUp(textOf(fileNode), section, key, fallback);
    return StatusNormal; // the arguments are left to the interpreter
}

int acetIniSet()
{
    resbuf *fileNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (fileNode == nullptr)
        return StatusNormal;
    // A refused section does not end the call: after message and nil it goes on with three empty texts.
    const resbuf *sectionNode = checkArgument(TypeString, fileNode->rbnext);
    QString section;
    QString key;
    QString value;
    resbuf *lastNode = nullptr;
    if (sectionNode != nullptr) {
        section = textOf(sectionNode);
        lastNode = readTexts(sectionNode->rbnext, {&key, &value});
    }
    QSettings settings(textOf(fileNode), QSettings::IniFormat);
    const bool writable = settings.isWritable();
    if (writable)
        change(settings, section, key, value);
    returnTruth(writable);
    activeLispHost()->releaseRb(lastNode);
    return StatusNormal;
}
