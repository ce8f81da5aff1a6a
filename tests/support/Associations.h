#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

// A suffix that has a program in the registry, as long as the object lives. Not in the user's part of the classes,
// which Wine's shell does not look at.
class RegisteredProgram
{
public:
    RegisteredProgram(const QString &suffix, const QString &program)
    {
        QSettings classes(u"HKEY_CLASSES_ROOT"_qs, QSettings::NativeFormat);
        const QString kind = suffix + u"-file"_qs;
        m_keys = {u'.' + suffix, kind};
        classes.setValue(u'.' + suffix + u"/."_qs, kind);
        classes.setValue(kind + u"/shell/open/command/."_qs, u"\"%1\" \"%2\""_qs.arg(program, u"%1"_qs));
    }
    ~RegisteredProgram()
    {
        QSettings classes(u"HKEY_CLASSES_ROOT"_qs, QSettings::NativeFormat);
        for (const QString &key : m_keys)
            classes.remove(key);
    }
    RegisteredProgram(const RegisteredProgram &) = delete;
    RegisteredProgram &operator=(const RegisteredProgram &) = delete;

private:
    QStringList m_keys;
};

// A kind of file, and what it is opened with.
struct DesktopKind
{
    QString type, suffix;
    QString command; // as it stands in the desktop entry (Exec)
};

// Desktop settings of a test's own in which a suffix has a type and the type a program. They take the place of the
// user's. The library that reads them looks once in a process: make one, and keep it.
class DesktopSettings
{
public:
    DesktopSettings(const QString &type, const QString &suffix, const QString &program)
        : DesktopSettings({{type, suffix, program + u" %f"_qs}})
    {
    }
    explicit DesktopSettings(const std::vector<DesktopKind> &kinds)
    {
        QString types, suffixes, defaults;
        for (const auto &[type, suffix, command] : kinds) {
            types += u"<mime-type type=\"%1\"><glob pattern=\"*.%2\"/></mime-type>"_qs.arg(type, suffix);
            suffixes += u"50:%1:*.%2\n"_qs.arg(type, suffix);
            defaults += u"%1=%2.desktop\n"_qs.arg(type, suffix);
            write(u"applications/%1.desktop"_qs.arg(suffix), u"[Desktop Entry]\nType=Application\nName=Test\nExec="_qs +
                                                                 command + u"\nMimeType="_qs + type + u";\n"_qs);
        }
        write(u"mime/packages/test.xml"_qs,
              u"<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">"_qs + types +
                  u"</mime-info>"_qs);
        write(u"mime/globs2"_qs, suffixes);
        write(u"applications/mimeapps.list"_qs, u"[Default Applications]\n"_qs + defaults);
        for (const char *variable : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
            qputenv(variable, QFile::encodeName(m_folder.path()));
    }

private:
    void write(const QString &name, const QString &text)
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    QTemporaryDir m_folder;
};
