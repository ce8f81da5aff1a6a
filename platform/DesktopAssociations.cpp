#include "platform/DesktopAssociations.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QUrl>

#include <algorithm>
#include <iterator>
#include <memory>

namespace {

// The few functions of GIO that are needed. Its library is loaded at the first use: programs that open no files do not
// pay for it. https://docs.gtk.org/gio
struct Gio
{
    using Info = void;

    QLibrary file{QStringLiteral("gio-2.0"), 0};
    char *(*guessContentType)(const char *name, const unsigned char *data, std::size_t size, int *uncertain) = nullptr;
    Info *(*defaultForType)(const char *contentType, int mustSupportUrls) = nullptr;
    Info *(*defaultForScheme)(const char *scheme) = nullptr;
    const char *(*commandLine)(Info *info) = nullptr;
    int (*splitCommandLine)(const char *text, int *count, char ***words, void *error) = nullptr;
    void (*releaseWords)(char **words) = nullptr;
    void (*unref)(void *object) = nullptr;
    void (*release)(void *memory) = nullptr;
    bool isComplete = resolve(guessContentType, "g_content_type_guess") &&
                      resolve(defaultForType, "g_app_info_get_default_for_type") &&
                      resolve(defaultForScheme, "g_app_info_get_default_for_uri_scheme") &&
                      resolve(commandLine, "g_app_info_get_commandline") &&
                      resolve(splitCommandLine, "g_shell_parse_argv") && resolve(releaseWords, "g_strfreev") &&
                      resolve(unref, "g_object_unref") && resolve(release, "g_free");

    static const Gio &instance()
    {
        static const Gio gio;
        return gio;
    }

private:
    template <class Function> bool resolve(Function &function, const char *name)
    {
        function = reinterpret_cast<Function>(file.resolve(name));
        return function != nullptr;
    }
};

// Of files alone: to open a pipe may take for ever, and what is read of a device is gone.
QByteArray beginningOf(const QFileInfo &info)
{
    constexpr qint64 Sample = 4096;
    QFile file(info.filePath());
    return info.isFile() && file.open(QIODevice::ReadOnly) ? file.read(Sample) : QByteArray();
}

// By its name, and by how it begins where the name does not tell.
QByteArray contentType(const Gio &gio, const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return "inode/directory";
    const QByteArray beginning = beginningOf(info);
    const std::unique_ptr<char, void (*)(void *)> type(
        gio.guessContentType(QFile::encodeName(path).constData(),
                             reinterpret_cast<const unsigned char *>(beginning.constData()),
                             static_cast<std::size_t>(beginning.size()), nullptr),
        gio.release);
    return type ? QByteArray(type.get()) : QByteArray();
}

// As shells take a command line apart: entries rely on more of that than their format grants them. The escapes
// of the entry's own text are replaced already.
QStringList wordsOf(const Gio &gio, const char *commandLine)
{
    int count = 0;
    char **words = nullptr;
    if (!gio.splitCommandLine(commandLine, &count, &words, nullptr))
        return {};
    QStringList result;
    std::transform(words, words + count, std::back_inserter(result),
                   [](const char *word) { return QString::fromUtf8(word); });
    gio.releaseWords(words);
    return result;
}

} // namespace

QStringList desktopCommand(const QString &fileOrUrl)
{
    const Gio &gio = Gio::instance();
    if (!gio.isComplete)
        return {};
    const QString scheme = QUrl(fileOrUrl).scheme();
    const bool isUrl = scheme.size() > 1 && scheme != u"file" && !QFileInfo::exists(fileOrUrl);
    const std::unique_ptr<void, void (*)(void *)> application(
        isUrl ? gio.defaultForScheme(scheme.toUtf8().constData())
              : gio.defaultForType(contentType(gio, fileOrUrl).constData(), 0),
        [](void *info) {
            if (info)
                Gio::instance().unref(info);
        });
    if (!application)
        return {};
    const char *command = gio.commandLine(application.get());
    return command ? wordsOf(gio, command) : QStringList();
}
