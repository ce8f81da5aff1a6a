#include "functions/help.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/Shell.h"
#include "sdk/fx/CFxString.h"

#include <array>

namespace {

// Group codes of extended data, from the DXF reference.
enum ExtendedDataCode : int {
    ExtendedDataStart = -3,
    ApplicationName = 1001,
    ExtendedString = 1000,
    ControlString = 1002,
    ExtendedLong = 1071,
};

constexpr char16_t urlApplication[] = u"PE_URL";

// The help file's full path where the host finds it, else its bare name.
QString helpFile()
{
    const QString name = QStringLiteral("ExpressTool.chm");
    std::array<char16_t, FoundPathUnits> path{};
    const CFxString wanted(name);
    return activeLispHost()->findFile(wanted.wide_strU(), path.data()) == StatusNormal
               ? QStringView(path.data()).toString()
               : name;
}

// For a topic the viewer's whole command line stands in the place of the verb, and no file is named. Programs see no
// difference: the result is nil whatever becomes of it.
void openHelp(const QString &file, const resbuf *topic)
{
    const bool hasTopic = isString(topic);
    const CFxString verb(hasTopic ? QStringLiteral("hh.exe mk:@MSITStore:%1::/html/%2.html").arg(file, textOf(topic))
                                  : QStringLiteral("open"));
    const CFxString document(file);
    ShellExecuteW(nullptr, windowsText(verb.wide_strU()), hasTopic ? nullptr : windowsText(document.wide_strU()),
                  nullptr, nullptr, SW_SHOWNORMAL);
}

void registerUrlApplication()
{
    if (activeLispHost()->tblSearch(u"APPID", urlApplication, 1) == nullptr)
        activeLispHost()->regApp(urlApplication);
}

resbuf *buildUrlData(const char16_t *url)
{
    return activeLispHost()->buildList(ExtendedDataStart, ApplicationName, urlApplication, ExtendedString, url,
                                       ControlString, u"{", ExtendedString, u"", ExtendedString, url, ControlString,
                                       u"{", ExtendedLong, 0, ControlString, u"}", ControlString, u"}", 0);
}

void append(resbuf *list, resbuf *tail)
{
    while (list->rbnext != nullptr)
        list = list->rbnext;
    list->rbnext = tail;
}

// The first text of the application's data that is not empty, in 8-bit text; null when there is none.
const char *firstText(const resbuf *data)
{
    for (const resbuf *node = data; node != nullptr; node = node->rbnext) {
        if (node->restype == ExtendedString && *node->resval.narrowString != '\0')
            return node->resval.narrowString;
    }
    return nullptr;
}

} // namespace

int acetHelp()
{
    const QString file = helpFile();
    resbuf *topicNode = activeLispHost()->getArgs();
    openHelp(file, topicNode);
    activeLispHost()->retNil();
    activeLispHost()->releaseRb(topicNode);
    return StatusNormal;
}

int acetHelpTrap()
{
    const resbuf *nameNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (nameNode == nullptr)
        return StatusNormal;
    const resbuf *lastText = nameNode;
    CFxString topic;
    CFxString file; // stays empty, without its default, where there is no topic
    if (isString(nameNode->rbnext)) {
        lastText = nameNode->rbnext;
        topic = CFxString(lastText->resval.string);
        file = CFxString::from_ansi_str("WexoTools.chm");
        if (isString(lastText->rbnext)) {
            lastText = lastText->rbnext;
            file = CFxString(lastText->resval.string);
        }
    }
    returnTruth(activeLispHost()->helpTrap(nameNode->resval.string, file.wide_strU(), topic.wide_strU()) ==
                StatusNormal);
    activeLispHost()->releaseRb(lastText->rbnext);
    return StatusNormal;
}

int geturl()
{
    resbuf *entityNode = checkArgument(TypeEntity, activeLispHost()->getArgs());
    if (entityNode == nullptr)
        return StatusNormal;
    char application[] = "PE_URL";
    resbuf applications{};
    applications.restype = TypeString;
    applications.resval.narrowString = application;
    const resbuf *data = activeLispHost()->entGetX(&entityNode->resval.name, &applications, 0);
    if (const char *url = firstText(data))
        returnText(CFxString::from_ansi_str(url).toQString());
    else
        activeLispHost()->retNil();
    activeLispHost()->releaseRb(entityNode); // the data stay with the interpreter
    return StatusNormal;
}

int seturl()
{
    resbuf *entityNode = checkArgument(TypeEntity, activeLispHost()->getArgs());
    if (entityNode == nullptr)
        return StatusNormal;
    const resbuf *urlNode = checkArgument(TypeString, entityNode->rbnext);
    if (urlNode == nullptr)
        return StatusNormal;
    registerUrlApplication();
    resbuf *definition = activeLispHost()->entGet(&entityNode->resval.name, true);
    resbuf *urlData = buildUrlData(urlNode->resval.string);
    if (definition != nullptr)
        append(definition, urlData);
    if (activeLispHost()->entMod(definition) != StatusNormal)
        activeLispHost()->retNil();
    activeLispHost()->releaseRb(definition);
    activeLispHost()->releaseRb(entityNode);
    return StatusNormal;
}
