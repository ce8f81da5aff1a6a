// Operations of the LISP interface that ask the person at the command line.

#include "host/kernel/SubstituteLispHost.h"

#include "host/kernel/TextFormat.h"
#include "lisp/LispStatus.h"

int SubstituteLispHost::initGet(int flags, const char16_t *keywords)
{
    m_prompter.initGet(flags, keywords ? keywords : u"");
    return StatusNormal;
}

int SubstituteLispHost::getInt(const char16_t *prompt, std::int32_t *value)
{
    return m_prompter.integer(prompt ? prompt : u"", *value);
}

int SubstituteLispHost::getInput(char16_t *buffer, int capacity)
{
    return copyText(m_prompter.lastInput(), buffer, capacity) ? StatusNormal : StatusError;
}

int SubstituteLispHost::getString(int allowBlanks, const char16_t *prompt, char16_t *buffer, int capacity)
{
    std::u16string text;
    const int status = m_prompter.string(allowBlanks != 0, prompt ? prompt : u"", text);
    if (status != StatusNormal)
        return status;
    return copyText(text, buffer, capacity) ? StatusNormal : StatusError;
}
