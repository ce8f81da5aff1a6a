// The drawing and the person at the command line. They answer with what stands in `replies`.

#include "tests/support/RecordingHost.h"

#include "lisp/LispStatus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

std::string describeName(const LispName &name)
{
    return std::to_string(name.words[0]) + ':' + std::to_string(name.words[1]);
}

void copyTo(char16_t *buffer, int capacity, const std::u16string &text)
{
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity) - 1);
    *std::copy_n(text.begin(), length, buffer) = u'\0';
}

} // namespace

int RecordingHost::commandNarrow(const resbuf *tokens)
{
    std::string line = "commandNarrow";
    for (const resbuf *token = tokens; token != nullptr; token = token->rbnext)
        line += std::string(" \"") + token->resval.narrowString + '"';
    return recordAnswered("commandNarrow", line);
}

int RecordingHost::setVar(const char16_t *name, const resbuf *value)
{
    const std::string number = std::to_string(value->resval.longInteger);
    return recordAnswered("setVar", operation("setVar", QStringView(name).toString()) + ' ' + number);
}

int RecordingHost::getVar(const char16_t *name, resbuf *value)
{
    value->resval.longInteger = replies.number;
    return recordText("getVar", name);
}

double RecordingHost::angle(const LispPoint *from, const LispPoint *to)
{
    record("angle");
    replies.angleFrom = *from;
    replies.angleTo = *to;
    return std::atan2(to->y - from->y, to->x - from->x);
}

int RecordingHost::initGet(int flags, const char16_t *keywords)
{
    const std::string line = "initGet " + std::to_string(flags);
    return recordAnswered("initGet", operation(line.c_str(), QStringView(keywords).toString()));
}

int RecordingHost::getInt(const char16_t *prompt, std::int32_t *value)
{
    replies.defaultNumber = *value;
    const int status = recordText("getInt", prompt);
    if (status == StatusNormal)
        *value = replies.number;
    return status;
}

int RecordingHost::getInput(char16_t *buffer, int capacity)
{
    copyTo(buffer, capacity, replies.input);
    return recordAnswered("getInput", "getInput " + std::to_string(capacity));
}

int RecordingHost::getString(int allowBlanks, const char16_t *prompt, char16_t *buffer, int capacity)
{
    copyTo(buffer, capacity, replies.text);
    const std::string line = "getString " + std::to_string(allowBlanks) + ' ' + std::to_string(capacity);
    return recordAnswered("getString", operation(line.c_str(), QStringView(prompt).toString()));
}

int RecordingHost::dragSelection(const LispName *selection, const char16_t *prompt, int cursorType,
                                 DragTransform transform, LispPoint *result)
{
    const std::string line = "dragSelection " + describeName(*selection) + ' ' + std::to_string(cursorType);
    const int status = recordAnswered("dragSelection", operation(line.c_str(), QStringView(prompt).toString()));
    if (replies.drag)
        replies.drag(transform);
    *result = replies.point;
    return status;
}

int RecordingHost::compileShape(const char16_t *firstFile, const char16_t *secondFile)
{
    const std::string line = operation("compileShape", QStringView(firstFile).toString());
    return recordAnswered("compileShape", operation(line.c_str(), QStringView(secondFile).toString()));
}

int RecordingHost::getEntityExtents(const LispName *entity, LispPoint *minimum, LispPoint *maximum)
{
    *minimum = replies.point;
    *maximum = replies.otherPoint;
    return recordAnswered("getEntityExtents", "getEntityExtents " + describeName(*entity));
}

resbuf *RecordingHost::dictSearch(const LispName *dictionary, const char16_t *key, int next)
{
    const std::string line = "dictSearch " + describeName(*dictionary) + ' ' + std::to_string(next);
    recordAnswered("dictSearch", operation(line.c_str(), QStringView(key).toString()));
    return replies.list;
}

int RecordingHost::namedObjDict(LispName *dictionary)
{
    *dictionary = replies.name;
    return recordAnswered("namedObjDict", "namedObjDict");
}

resbuf *RecordingHost::entGet(const LispName *entity, bool wide)
{
    record("entGet " + describeName(*entity) + (wide ? " 1" : " 0"));
    return replies.list;
}

resbuf *RecordingHost::entGetX(const LispName *entity, const resbuf *narrowApplicationNames, int zero)
{
    const bool isAlone = narrowApplicationNames->restype == TypeString && narrowApplicationNames->rbnext == nullptr;
    record(operation(("entGetX " + describeName(*entity) + ' ' + std::to_string(zero)).c_str(),
                     isAlone ? narrowApplicationNames->resval.narrowString : "not one name"));
    return replies.list;
}

int RecordingHost::entMod(const resbuf *list)
{
    return recordAnswered("entMod", "entMod" + describeList(list));
}

resbuf *RecordingHost::tblSearch(const char16_t *table, const char16_t *name, int next)
{
    const std::string line = operation("tblSearch", QStringView(table).toString());
    record(operation(line.c_str(), QStringView(name).toString()) + ' ' + std::to_string(next));
    return replies.tableRecord;
}

OdDbDatabase *RecordingHost::database()
{
    EXPECT_TRUE(m_documentFetched) << "without fetching the document afresh";
    m_documentFetched = false;
    return replies.database;
}

CFxUserInput *RecordingHost::userInput()
{
    EXPECT_TRUE(m_documentFetched) << "without fetching the document afresh";
    m_documentFetched = false;
    m_hostFetched = true; // what follows is an operation of the document itself
    return &m_userInput;
}

int RecordingHost::RecordingUserInput::initGet(int bits, const char16_t *keywords)
{
    const std::string line = "userInput initGet " + std::to_string(bits);
    return m_host.recordAnswered("userInput initGet", operation(line.c_str(), QStringView(keywords).toString()));
}

int RecordingHost::RecordingUserInput::getPoint(const char16_t *prompt, const LispPoint *base, LispPoint *result,
                                                CFxString *keyword)
{
    const bool isFresh = !base && result->x == 0 && result->y == 0 && result->z == 0 && keyword->toQString().isEmpty();
    const std::string line = isFresh ? "userInput getPoint" : "userInput getPoint with something in it";
    return m_host.recordAnswered("userInput getPoint", operation(line.c_str(), QStringView(prompt).toString()));
}

OdDbObjectId RecordingHost::objectId(const LispName &name)
{
    replies.name = name;
    return replies.objectId;
}
