#include "platform/DesktopAssociations.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QUrl>

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
    void (*unref)(void *object) = nullptr;
    void (*release)(void *memory) = nullptr;
    bool isComplete = resolve(guessContentType, "g_content_type_guess") &&
                      resolve(defaultForType, "g_app_info_get_default_for_type") &&
                      resolve(defaultForScheme, "g_app_info_get_default_for_uri_scheme") &&
                      resolve(commandLine, "g_app_info_get_commandline") && resolve(unref, "g_object_unref") &&
                      resolve(release, "g_free");

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

// By its name, and by how it begins where the name does not tell.
QByteArray contentType(const Gio &gio, const QString &path)
{
    constexpr qint64 Sample = 4096;
    if (QFileInfo(path).isDir())
        return "inode/directory";
    QFile file(path);
    const QByteArray beginning = file.open(QIODevice::ReadOnly) ? file.read(Sample) : QByteArray();
    const std::unique_ptr<char, void (*)(void *)> type(
        gio.guessContentType(QFile::encodeName(path).constData(),
                             reinterpret_cast<const unsigned char *>(beginning.constData()),
                             static_cast<std::size_t>(beginning.size()), nullptr),
        gio.release);
    return type ? QByteArray(type.get()) : QByteArray();
}

} // namespace

std::optional<QString> desktopCommand(const QString &fileOrUrl)
{
    const Gio &gio = Gio::instance();
    if (!gio.isComplete)
        return std::nullopt;
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
        return std::nullopt;
    const char *command = gio.commandLine(application.get());
    return command ? std::optional(QString::fromUtf8(command)) : std::nullopt;
}
