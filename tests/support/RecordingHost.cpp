// Calls, arguments, results and lists. The services of the host are in RecordingHostServices.cpp.

#include "tests/support/RecordingHost.h"

#include "lisp/LispStatus.h"
#include "tests/support/FormatText.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>

namespace {

std::string describePoint(const LispPoint &point)
{
    return QStringLiteral(" (%1 %2 %3)").arg(point.x).arg(point.y).arg(point.z).toStdString();
}

bool holdsText(const resbuf &node)
{
    return node.restype == TypeString || (node.restype >= 1000 && node.restype <= 1002);
}

} // namespace

std::string describeList(const resbuf *list)
{
    std::string result;
    for (const resbuf *node = list; node != nullptr; node = node->rbnext) {
        result += ' ' + std::to_string(node->restype);
        if (holdsText(*node))
            result += operation("", QStringView(node->resval.string).toString());
        else if (node->restype == TypeShort || node->restype == TypeLong || node->restype == 1071)
            result += ' ' + std::to_string(node->resval.longInteger);
        else if (node->restype == TypePoint2d || node->restype == TypePoint3d)
            result += describePoint(node->resval.point);
    }
    return result;
}

std::string operation(const char *name, const QString &text)
{
    return std::string(name) + " \"" + text.toStdString() + '"';
}

std::string operation(const char *name, const char *text)
{
    return operation(name, QString::fromUtf8(text));
}

RecordingHost::RecordingHost(ReachedBy reachedBy) : m_reachedBy(reachedBy)
{
    if (m_reachedBy == ReachedBy::ActiveDocument)
        HostSdk::installActiveDocumentProvider(this);
}

RecordingHost::~RecordingHost()
{
    if (m_reachedBy == ReachedBy::ActiveDocument)
        HostSdk::installActiveDocumentProvider(nullptr);
}

void RecordingHost::setArguments(const Arguments &arguments)
{
    m_operations.clear();
    m_arguments = m_nodes.addArguments(arguments);
}

void RecordingHost::setAnswer(const std::string &operationName, int answer)
{
    m_answers[operationName] = answer;
}

CFxDocument *RecordingHost::activeDocument()
{
    m_documentFetched = true;
    return this;
}

LispHost *RecordingHost::lispHost()
{
    m_hostFetched = m_documentFetched || m_reachedBy == ReachedBy::GivenDocument;
    m_documentFetched = false;
    return this;
}

void RecordingHost::record(const std::string &line)
{
    EXPECT_TRUE(m_hostFetched) << "without fetching document and interpreter afresh: " << line;
    m_hostFetched = false;
    m_operations.push_back(line);
    errno = EDOM; // a host's calls leave in it what they like
}

int RecordingHost::recordAnswered(const std::string &name, const std::string &line)
{
    record(line);
    const auto answer = m_answers.find(name);
    return answer != m_answers.end() ? answer->second : StatusNormal;
}

int RecordingHost::recordText(const char *name, const char16_t *text)
{
    return recordAnswered(name, operation(name, QStringView(text).toString()));
}

int RecordingHost::defun(const char16_t *name, LispHandler handler)
{
    m_definedHandlers.push_back(handler);
    return recordText("defun", name);
}

int RecordingHost::undefun(const char16_t *name)
{
    return recordText("undefun", name);
}

resbuf *RecordingHost::getArgsNarrow()
{
    record("getArgsNarrow");
    return m_narrowArguments;
}

resbuf *RecordingHost::getArgs()
{
    record("getArgs");
    return m_arguments;
}

int RecordingHost::retInt(std::int32_t value)
{
    return recordAnswered("retInt", "retInt " + std::to_string(value));
}

int RecordingHost::retReal(double value)
{
    return recordAnswered("retReal", "retReal " + std::to_string(value));
}

int RecordingHost::retNil()
{
    return recordAnswered("retNil", "retNil");
}

int RecordingHost::retT()
{
    return recordAnswered("retT", "retT");
}

int RecordingHost::retStr(const char *text)
{
    return recordAnswered("retStr", operation("retStr", text));
}

int RecordingHost::retWStr(const char16_t *text)
{
    return recordText("retWStr", text);
}

int RecordingHost::retList(const resbuf *list)
{
    return recordAnswered("retList", "retList" + describeList(list));
}

int RecordingHost::retVal(const resbuf *list)
{
    return recordAnswered("retVal", "retVal" + describeList(list));
}

// The value is a node that nobody has asked for by name: releasing it would show as "releaseRb list".
int RecordingHost::evaluate(const char16_t *text, resbuf **value)
{
    *value = m_nodes.add(TypeTrue);
    return recordText("evaluate", text);
}

resbuf *RecordingHost::buildListNarrow(int firstCode, ...)
{
    std::va_list values;
    va_start(values, firstCode);
    resbuf *list = m_nodes.addBuilt(firstCode, values, true);
    va_end(values);
    record("buildListNarrow");
    return list;
}

resbuf *RecordingHost::buildList(int firstCode, ...)
{
    std::va_list values;
    va_start(values, firstCode);
    resbuf *list = m_nodes.addBuilt(firstCode, values, false);
    va_end(values);
    record("buildList" + describeList(list));
    return list;
}

resbuf *RecordingHost::newRb(int typeCode)
{
    record("newRb " + std::to_string(typeCode));
    return m_nodes.add(static_cast<TypeCode>(typeCode));
}

void RecordingHost::releaseRbNarrow(resbuf *list)
{
    record("releaseRbNarrow " + m_nodes.describe(list));
    m_nodes.release(list);
}

void RecordingHost::releaseRb(resbuf *list)
{
    record("releaseRb " + m_nodes.describe(list));
    m_nodes.release(list);
}

void RecordingHost::prependNumber(resbuf *list, int typeCode, const std::int16_t *number)
{
    record("prependRb " + std::to_string(typeCode) + (number ? ' ' + std::to_string(*number) : ""));
    resbuf *node = m_nodes.add(static_cast<TypeCode>(typeCode), {.longInteger = number ? *number : 0});
    node->rbnext = list->rbnext;
    list->rbnext = node;
}

void RecordingHost::prependRb(resbuf *list, int typeCode, void *value)
{
    if (typeCode != TypeString) {
        prependNumber(list, typeCode, static_cast<const std::int16_t *>(value));
        return;
    }
    const std::unique_ptr<char16_t, decltype(&std::free)> text(static_cast<char16_t *>(value), std::free);
    recordText("prependRb 5005", text.get());
    resbuf *node = m_nodes.addText(text.get());
    node->rbnext = list->rbnext;
    list->rbnext = node;
}

int RecordingHost::prompt(const char16_t *format, ...)
{
    std::va_list values;
    va_start(values, format);
    const QString text = formatText(format, values);
    va_end(values);
    return recordAnswered("prompt", operation("prompt", text));
}
