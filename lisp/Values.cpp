#include "lisp/Values.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/TypeCode.h"
#include "sdk/fx/CFxString.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

// A copy that a list can own.
char16_t *duplicate(const QString &text)
{
    const auto units = static_cast<std::size_t>(text.size()) + 1;
    auto *copy = static_cast<char16_t *>(std::malloc(units * sizeof(char16_t)));
    if (copy == nullptr)
        throw std::bad_alloc();
    std::copy_n(reinterpret_cast<const char16_t *>(text.utf16()), units, copy);
    return copy;
}

} // namespace

bool isString(const resbuf *node)
{
    return node != nullptr && node->restype == TypeString;
}

QString textOf(const resbuf *node)
{
    return QStringView(node->resval.string).toString();
}

QString viewOf(const resbuf *node)
{
    const QStringView units(node->resval.string);
    return QString::fromRawData(units.data(), units.size());
}

void returnText(const QString &text)
{
    const CFxString result(text);
    activeLispHost()->retWStr(result.wide_strU());
}

void returnChanged(const QString &text, const resbuf *node)
{
    const bool isUnchanged = text.constData() == reinterpret_cast<const QChar *>(node->resval.string);
    if (isUnchanged)
        activeLispHost()->retWStr(node->resval.string);
    else
        returnText(text);
}

void returnTruth(bool value)
{
    if (value)
        activeLispHost()->retT();
    else
        activeLispHost()->retNil();
}

resbuf *listOfNames(const QStringList &names)
{
    resbuf *list = activeLispHost()->newRb(TypeListBegin);
    // Each name goes in front of those before it.
    for (auto name = names.crbegin(); name != names.crend(); ++name)
        activeLispHost()->prependRb(list, TypeString, duplicate(*name));
    return list;
}

void returnNames(const QStringList &names)
{
    resbuf *list = listOfNames(names);
    activeLispHost()->retList(list);
    activeLispHost()->releaseRb(list);
}
