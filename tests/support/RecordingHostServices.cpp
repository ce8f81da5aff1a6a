// The host's services: what a handler reads through a buffer or an address is left as the handler had it.

#include "tests/support/RecordingHost.h"

int RecordingHost::regApp(const char16_t *applicationName)
{
    return recordText("regApp", applicationName);
}

int RecordingHost::getEnvVar(const char *name, int, int, int, char16_t *)
{
    return recordAnswered("getEnvVar", operation("getEnvVar", name));
}

int RecordingHost::wcMatch(const char16_t *text, const char16_t *)
{
    return recordText("wcMatch", text);
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

resbuf *RecordingHost::entGet(const LispName *, bool)
{
    record("entGet");
    return nullptr;
}

resbuf *RecordingHost::entGetX(const LispName *, const resbuf *, int)
{
    record("entGetX");
    return nullptr;
}

int RecordingHost::entMod(const resbuf *)
{
    return recordAnswered("entMod", "entMod");
}

resbuf *RecordingHost::tblSearch(const char16_t *table, const char16_t *, int)
{
    recordText("tblSearch", table);
    return nullptr;
}

int RecordingHost::menuCmd(const char16_t *command)
{
    return recordText("menuCmd", command);
}

int RecordingHost::findFile(const char16_t *name, char16_t *)
{
    return recordText("findFile", name);
}

int RecordingHost::getFileDialog(const char16_t *title, const char16_t *, const char16_t *, int, resbuf *)
{
    return recordText("getFileDialog", title);
}

void RecordingHost::setTabletMode(int mode)
{
    record("setTabletMode " + std::to_string(mode));
}

int RecordingHost::helpTrap(const char16_t *first, const char16_t *, const char16_t *)
{
    return recordText("helpTrap", first);
}

int RecordingHost::getProfileString(const char16_t *, const char16_t *key, const char16_t *, char16_t *, int)
{
    return recordText("getProfileString", key);
}

int RecordingHost::setProfileString(const char16_t *, const char16_t *key, const char16_t *)
{
    return recordText("setProfileString", key);
}
