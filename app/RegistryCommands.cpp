#include "app/RegistryCommands.h"

#include "app/CommandLine.h"
#include "host/interpreter/files/SourceFile.h"
#include "host/kernel/ProductKeys.h"
#include "host/kernel/RegistryExchange.h"
#include "storage/RegistryText.h"

#include <QSaveFile>

#include <cstdio>

namespace {

int fail(const QString &words, int status)
{
    std::fprintf(stderr, "lisphost: %s\n", qPrintable(words));
    return status;
}

// As Windows' own tools write it: UTF-16, little-endian, with a mark.
QByteArray encoded(const std::u16string &text)
{
    QByteArray bytes("\xff\xfe");
    for (const char16_t unit : text)
        bytes.append(static_cast<char>(unit & 0xff)).append(static_cast<char>(unit >> 8));
    return bytes;
}

} // namespace

int exportRegistryKeys(const QString &file, const QStringList &keys)
{
    openProductRegistry();
    // That of classes is part of the local machine's.
    QStringList roots;
    for (const std::u16string_view root : {RegistryRoot::CurrentUser, RegistryRoot::LocalMachine, RegistryRoot::Users,
                                           RegistryRoot::CurrentConfiguration})
        roots.append(QStringView(root).toString());
    QString failure;
    const std::optional<std::u16string> text = exportRegistry(keys.isEmpty() ? roots : keys, failure);
    if (!text)
        return fail(failure, ExitFailed);
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(encoded(*text)) < 0 || !target.commit())
        return fail(QStringLiteral("%1: %2").arg(file, target.errorString()), ExitFile);
    return ExitFine;
}

int importRegistryKeys(const QString &file)
{
    QString failure;
    const std::optional<std::u16string> text = lisp::readSourceFile(file, failure);
    if (!text)
        return fail(failure, ExitFile);
    openProductRegistry();
    int status = ExitFine;
    for (const QString &words : importRegistry(*text))
        status = fail(QStringLiteral("%1: %2").arg(file, words), ExitFailed);
    return status;
}
