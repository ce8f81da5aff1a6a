#include "host/lisptest/Discovery.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace lisptest {

namespace {

bool isTestFileName(const QFileInfo &file)
{
    static const QRegularExpression word(QStringLiteral("^tests?([-_. ]|$)|[-_. ]tests?$"),
                                         QRegularExpression::CaseInsensitiveOption);
    return word.match(file.completeBaseName()).hasMatch();
}

bool isTestName(std::u16string_view name)
{
    constexpr std::u16string_view beginning = u"TEST";
    return name.starts_with(beginning) && name.size() > beginning.size() + 1 &&
           std::u16string_view(u"-:_").find(name[beginning.size()]) != std::u16string_view::npos;
}

// The function that the file has defined under this name, if it can be called without arguments; else null.
const lisp::Function *functionIn(std::u16string_view file, const lisp::Symbol &symbol)
{
    if (!symbol.value.isObject() || symbol.value.asObject()->kind != lisp::ObjectKind::Function)
        return nullptr;
    const auto *function = static_cast<const lisp::Function *>(symbol.value.asObject());
    const bool isDefinition = function->name == &symbol && function->file && *function->file == file;
    return isDefinition && function->parameterCount == 0 ? function : nullptr;
}

// Where it ends; one line may have the beginnings of many.
std::uint32_t lineOf(const lisp::Function &function)
{
    return function.lines.empty() ? 0 : *std::max_element(function.lines.begin(), function.lines.end());
}

} // namespace

std::optional<QStringList> testFiles(const QString &path, QString &failure)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        failure = QStringLiteral("%1: no such file or folder").arg(path);
        return {};
    }
    if (!info.isDir())
        return QStringList{path};
    QStringList files;
    QDirIterator entries(path, {QStringLiteral("*.lsp")}, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString file = entries.next();
        if (isTestFileName(entries.fileInfo()))
            files.append(file);
    }
    files.sort();
    return files;
}

std::vector<std::u16string> testFunctions(lisp::Machine &machine, std::u16string_view file)
{
    std::vector<const lisp::Function *> functions;
    for (const lisp::Symbol &symbol : machine.symbols().all())
        if (const lisp::Function *function = isTestName(symbol.name) ? functionIn(file, symbol) : nullptr)
            functions.push_back(function);
    std::stable_sort(functions.begin(), functions.end(), [](const lisp::Function *one, const lisp::Function *other) {
        return lineOf(*one) < lineOf(*other);
    });
    std::vector<std::u16string> names;
    for (const lisp::Function *function : functions)
        names.push_back(function->name->name);
    return names;
}

bool definesFunction(lisp::Machine &machine, std::u16string_view file, std::u16string_view name)
{
    const lisp::Symbol *symbol = machine.symbols().find(name);
    return symbol && functionIn(file, *symbol);
}

} // namespace lisptest
