#include "app/Documentation.h"

#include "app/ReferencePages.h"
#include "app/Session.h"
#include "host/interpreter/Builtins.h"
#include "host/lisptest/Assertions.h"

#include <algorithm>
#include <string>
#include <vector>

using lisp::Builtin;
using lisp::External;
using lisp::Object;
using lisp::ObjectKind;
using lisp::Symbol;

namespace {

std::u16string widened(const char *text)
{
    const std::string_view bytes(text);
    return std::u16string(bytes.begin(), bytes.end());
}

const Object *functionOf(const Symbol &symbol)
{
    return symbol.value.isObject() ? symbol.value.asObject() : nullptr;
}

std::u16string description(const Object &function)
{
    if (function.kind == ObjectKind::Builtin) {
        const auto &builtin = static_cast<const Builtin &>(function);
        return widened(builtin.signature) + u"\n    " + widened(builtin.description) + u"\n";
    }
    const std::u16string &name = static_cast<const External &>(function).name->name;
    if (const std::optional<QString> entry = referenceEntry(QString::fromStdU16String(name)))
        return entry->toStdU16String();
    return u"(" + name + u" ...)\n    Function of a loaded module.\n";
}

} // namespace

int showDocumentation(Session &session, const QString &name)
{
    lisp::defineBuiltins(session.machine(), lisptest::assertionBuiltins());
    if (!name.isEmpty()) {
        const Symbol *symbol = session.machine().symbols().find(name.toStdU16String());
        const Object *function = symbol ? functionOf(*symbol) : nullptr;
        if (!function) {
            session.console().writeError(
                (QStringLiteral("lisphost: no function is named ") + name + u'\n').toStdU16String());
            return ExitFailed;
        }
        session.console().write(description(*function));
        return ExitFine;
    }
    std::vector<std::u16string> names;
    for (const Symbol &symbol : session.machine().symbols().all())
        if (functionOf(symbol))
            names.push_back(QString::fromStdU16String(symbol.name).toLower().toStdU16String());
    std::sort(names.begin(), names.end());
    for (std::u16string &function : names)
        session.console().write(function += u'\n');
    return ExitFine;
}
