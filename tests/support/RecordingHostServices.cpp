// The host's services: what a handler reads through a buffer or an address is left as the handler had it.

#include "tests/support/RecordingHost.h"

#include "lisp/LispStatus.h"

#include <algorithm>
#include <initializer_list>

namespace {

// Each with a blank in front.
std::string quoted(std::initializer_list<const char16_t *> texts)
{
    std::string result;
    for (const char16_t *text : texts)
        result += operation("", QStringView(text).toString());
    return result;
}

} // namespace

int RecordingHost::regApp(const char16_t *applicationName)
{
    return recordText("regApp", applicationName);
}

int RecordingHost::getEnvVar(const char *name, int zero, int secondZero, int capacity, char16_t *)
{
    std::string line = operation("getEnvVar", name);
    for (const int number : {zero, secondZero, capacity})
        line += ' ' + std::to_string(number);
    return recordAnswered("getEnvVar", line);
}

int RecordingHost::wcMatch(const char16_t *text, const char16_t *pattern)
{
    const std::string line =
        operation(operation("wcMatch", QStringView(text).toString()).c_str(), QStringView(pattern).toString());
    return recordAnswered("wcMatch", line);
}

void RecordingHost::progressStart(const char16_t *label)
{
    recordText("progressStart", label);
}

void RecordingHost::progressEnd()
{
    record("progressEnd");
}

int RecordingHost::progressSet(int position)
{
    return recordAnswered("progressSet", "progressSet " + std::to_string(position));
}

int RecordingHost::menuCmd(const char16_t *command)
{
    return recordText("menuCmd", command);
}

int RecordingHost::findFile(const char16_t *name, char16_t *resultPath)
{
    *std::copy(replies.text.begin(), replies.text.end(), resultPath) = u'\0';
    return recordText("findFile", name);
}

int RecordingHost::getFileDialog(const char16_t *title, const char16_t *defaultName, const char16_t *extension,
                                 int flags, resbuf *result)
{
    result->restype = TypeString;
    result->resval.string = m_chosenFile.data();
    std::string line = operation("getFileDialog", QStringView(title).toString());
    line += operation("", QStringView(defaultName).toString()) + operation("", QStringView(extension).toString());
    return recordAnswered("getFileDialog", line + ' ' + std::to_string(flags));
}

void RecordingHost::setTabletMode(int mode)
{
    record("setTabletMode " + std::to_string(mode));
}

int RecordingHost::helpTrap(const char16_t *first, const char16_t *helpFile, const char16_t *topic)
{
    return recordAnswered("helpTrap", "helpTrap" + quoted({first, helpFile, topic}));
}

int RecordingHost::getProfileString(const char16_t *section, const char16_t *key, const char16_t *fallback,
                                    char16_t *buffer, int capacity)
{
    const int status = recordAnswered("getProfileString", "getProfileString" + quoted({section, key, fallback}) + ' ' +
                                                              std::to_string(capacity));
    const std::u16string text = m_profileText.substr(0, static_cast<std::size_t>(capacity) - 1);
    if (status == StatusNormal)
        *std::copy(text.begin(), text.end(), buffer) = u'\0';
    return status;
}

int RecordingHost::setProfileString(const char16_t *section, const char16_t *key, const char16_t *value)
{
    return recordAnswered("setProfileString", "setProfileString" + quoted({section, key, value}));
}
