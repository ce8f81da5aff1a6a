// Calls, arguments, results, evaluation, messages and the help that modules register. Variables, input, the drawing,
// commands and windows are in the …Operations.cpp beside; what this host does not have, in UnavailableServices.cpp.

#include "host/kernel/SubstituteLispHost.h"

#include "host/interpreter/Direction.h"
#include "host/interpreter/FileSearch.h"
#include "host/interpreter/text/WildcardPattern.h"
#include "host/kernel/ArgumentList.h"
#include "host/kernel/HostServices.h"
#include "host/kernel/NodeList.h"
#include "host/kernel/ResultBuilder.h"
#include "host/kernel/RunningCall.h"
#include "host/kernel/TextFormat.h"
#include "lisp/LispStatus.h"
#include "sdk/fx/CFxString.h"

#include <algorithm>
#include <cstdlib>

using lisp::Args;
using lisp::External;
using lisp::LispError;
using lisp::Machine;
using lisp::Value;

namespace {

// The argument whose own text, which was lent, comes back as the result; null when it is another text.
const Value *lenderOf(const char16_t *text, const Args &arguments)
{
    const auto lent = std::find_if(arguments.begin(), arguments.end(), [text](Value value) {
        return value.isString() && value.asString()->characters == text && isLent(*value.asString());
    });
    return lent != arguments.end() ? lent : nullptr;
}

} // namespace

SubstituteLispHost::SubstituteLispHost(Machine &machine, HostServices &services, SystemVariables &variables)
    : m_machine(machine), m_services(services), m_variables(variables), m_prompter(services, machine)
{
    machine.setExternalCaller(this);
}

SubstituteLispHost::~SubstituteLispHost()
{
    m_machine.setExternalCaller(nullptr);
}

Value SubstituteLispHost::call(Machine &machine, const External &function, Args arguments)
{
    const CallFrame frame(machine, arguments, m_pool, m_frame);
    const RunningCall running;
    const int status = function.entry();
    m_services.userInterface->callEnded();
    if (status == StatusError)
        lisp::fail(u"error in " + function.name->name);
    return frame.result();
}

int SubstituteLispHost::defun(const char16_t *name, LispHandler handler)
{
    m_machine.defineExternal(name, handler);
    return StatusNormal;
}

int SubstituteLispHost::undefun(const char16_t *name)
{
    return m_machine.undefineExternal(name) ? StatusNormal : StatusError;
}

resbuf *SubstituteLispHost::getArgsNarrow()
{
    if (!m_frame)
        return nullptr;
    ArgumentList list(m_machine, m_pool, *m_frame, TextWidth::Narrow);
    for (const Value argument : m_frame->arguments())
        list.add(argument);
    return list.head();
}

resbuf *SubstituteLispHost::getArgs()
{
    if (!m_frame)
        return nullptr;
    ArgumentList list(m_machine, m_pool, *m_frame, TextWidth::Wide);
    for (const Value argument : m_frame->arguments())
        list.add(argument);
    return list.head();
}

int SubstituteLispHost::setResult(Value value)
{
    if (!m_frame)
        return StatusError;
    m_frame->setResult(value);
    return StatusNormal;
}

int SubstituteLispHost::retInt(std::int32_t value)
{
    return setResult(Value::integer(value));
}

int SubstituteLispHost::retReal(double value)
{
    return setResult(Value::canonicalReal(value));
}

int SubstituteLispHost::retNil()
{
    return setResult(Value::nil());
}

int SubstituteLispHost::retT()
{
    return setResult(m_machine.boolean(true));
}

int SubstituteLispHost::retStr(const char *text)
{
    const std::string_view bytes(text);
    if (std::any_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; }))
        return retWStr(CFxString::from_ansi_str(text).wide_strU());
    return setResult(m_machine.heap().asciiString(bytes));
}

int SubstituteLispHost::retWStr(const char16_t *text)
{
    if (const Value *lender = m_frame ? lenderOf(text, m_frame->arguments()) : nullptr)
        return setResult(*lender);
    const QStringView units(text); // measures the text faster than std::u16string_view does
    return setResult(m_machine.string({units.utf16(), static_cast<std::size_t>(units.size())}));
}

int SubstituteLispHost::retList(const resbuf *list)
{
    return setResult(listFromNodes(m_machine, list));
}

int SubstituteLispHost::retVal(const resbuf *list)
{
    return setResult(valueFromNodes(m_machine, list));
}

int SubstituteLispHost::evaluate(const char16_t *text, resbuf **value)
{
    if (value)
        *value = nullptr;
    const RunningCall::Pause pause;
    const Machine::CatchScope scope(m_machine); // the caller learns of errors by the status, not the program's *error*
    try {
        const Value result = m_machine.load(text, u"");
        if (value && m_frame)
            *value = nodesOf(result);
        return StatusNormal;
    } catch (const LispError &) {
        return StatusError;
    }
}

resbuf *SubstituteLispHost::nodesOf(Value value)
{
    ArgumentList list(m_machine, m_pool, *m_frame, TextWidth::Wide);
    list.add(value);
    return list.head();
}

resbuf *SubstituteLispHost::buildListNarrow(int firstCode, ...)
{
    if (!m_frame)
        return nullptr;
    std::va_list arguments;
    va_start(arguments, firstCode);
    resbuf *list = nodesFromArguments(m_pool, *m_frame, TextWidth::Narrow, firstCode, arguments);
    va_end(arguments);
    return list;
}

resbuf *SubstituteLispHost::buildList(int firstCode, ...)
{
    if (!m_frame)
        return nullptr;
    std::va_list arguments;
    va_start(arguments, firstCode);
    resbuf *list = nodesFromArguments(m_pool, *m_frame, TextWidth::Wide, firstCode, arguments);
    va_end(arguments);
    return list;
}

resbuf *SubstituteLispHost::newRb(int typeCode)
{
    return m_frame ? m_pool.allocate(*m_frame, typeCode) : nullptr;
}

void SubstituteLispHost::releaseRbNarrow(resbuf *list)
{
    releaseRb(list);
}

void SubstituteLispHost::releaseRb(resbuf *list)
{
    if (m_frame)
        m_pool.release(*m_frame, list);
}

void SubstituteLispHost::prependRb(resbuf *list, int typeCode, void *value)
{
    if (!m_frame || !list)
        return;
    resbuf *node = m_pool.allocate(*m_frame, typeCode);
    storeValue(*node, value);
    node->rbnext = list->rbnext;
    list->rbnext = node;
}

int SubstituteLispHost::getEnvVar(const char *name, int, int, int capacity, char16_t *buffer)
{
    const char *value = std::getenv(name);
    if (!value)
        return StatusError;
    return copyText(QString::fromLocal8Bit(value).toStdU16String(), buffer, capacity) ? StatusNormal : StatusError;
}

int SubstituteLispHost::wcMatch(const char16_t *text, const char16_t *pattern)
{
    return lisp::WildcardPattern(pattern).matches(text) ? StatusNormal : StatusError;
}

int SubstituteLispHost::prompt(const char16_t *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::u16string text = formatText(format, arguments);
    va_end(arguments);
    m_machine.write(text);
    return StatusNormal;
}

int SubstituteLispHost::findFile(const char16_t *name, char16_t *resultPath)
{
    const std::optional<std::u16string> path = lisp::findFile(name, m_machine.searchFolders());
    if (!path || path->size() >= FoundPathUnits)
        return StatusError;
    *std::copy(path->begin(), path->end(), resultPath) = u'\0';
    return StatusNormal;
}

double SubstituteLispHost::angle(const LispPoint *from, const LispPoint *to)
{
    return lisp::directionOf(to->x - from->x, to->y - from->y);
}

// Nobody looks help up here; what was registered is seen in the transcript.
int SubstituteLispHost::helpTrap(const char16_t *first, const char16_t *helpFile, const char16_t *topic)
{
    m_services.transcript.write(TranscriptEvent(u"help")
                                    .add(u"name", QStringView(first).toString())
                                    .add(u"file", QStringView(helpFile).toString())
                                    .add(u"topic", QStringView(topic).toString()));
    return StatusNormal;
}
