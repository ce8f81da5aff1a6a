#include "app/NameCompletion.h"

#include "host/interpreter/Machine.h"

#include <algorithm>

namespace {

bool endsName(QChar character)
{
    return QStringView(u"()'\" \t\n").contains(character);
}

QString nameAtEnd(const QString &text)
{
    const auto start = std::find_if(text.crbegin(), text.crend(), endsName).base();
    return text.mid(start - text.cbegin()).toLower();
}

QStringList namesWith(lisp::Machine &machine, const QString &beginning)
{
    QStringList names;
    for (const lisp::Symbol &symbol : machine.symbols().all()) {
        const QString name = QString::fromStdU16String(symbol.name).toLower();
        if (!symbol.value.isNil() && name.startsWith(beginning))
            names += name;
    }
    names.sort();
    return names;
}

} // namespace

NameCompletion completeName(lisp::Machine &machine, const QString &textBeforeCursor)
{
    const QString beginning = nameAtEnd(textBeforeCursor);
    const QStringList names = beginning.isEmpty() ? QStringList() : namesWith(machine, beginning);
    if (names.isEmpty())
        return {};
    const QString &first = names.constFirst(), &last = names.constLast();
    const auto common = std::mismatch(first.begin(), first.end(), last.begin(), last.end()).first - first.begin();
    if (common > beginning.size())
        return {first.mid(beginning.size(), common - beginning.size()), {}};
    return {{}, names};
}
