#include "host/kernel/input/DocumentInput.h"

#include "host/kernel/input/Prompter.h"
#include "lisp/LispStatus.h"

int DocumentInput::initGet(int bits, const char16_t *keywords)
{
    m_prompter.initGet(bits, keywords ? keywords : u"");
    return StatusNormal;
}

int DocumentInput::getPoint(const char16_t *prompt, const LispPoint *base, LispPoint *result, CFxString *keyword)
{
    m_prompter.letOtherInputThrough();
    const int status = m_prompter.point(prompt ? prompt : u"", base, *result);
    const bool isEnter = status == StatusNoInput;
    if (status != StatusKeyword && !isEnter)
        return status;
    if (keyword)
        *keyword = isEnter ? CFxString() : CFxString(m_prompter.lastInput().c_str());
    return StatusKeyword;
}
