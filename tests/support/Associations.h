#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

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

// Desktop settings of a test's own in which a suffix has a type and the type a program. They take the place of the
// user's. The library that reads them looks once in a process: make one, and keep it.
class DesktopSettings
{
public:
    DesktopSettings(const QString &type, const QString &suffix, const QString &program)
    {
        write(u"mime/packages/test.xml"_qs,
              u"<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\"><mime-type type=\"%1\">"
              u"<glob pattern=\"*.%2\"/></mime-type></mime-info>"_qs.arg(type, suffix));
        write(u"mime/globs2"_qs, u"50:%1:*.%2\n"_qs.arg(type, suffix));
        write(u"applications/test.desktop"_qs,
              u"[Desktop Entry]\nType=Application\nName=Test\nExec=%1 %f\nMimeType=%2;\n"_qs.arg(program, type));
        write(u"applications/mimeapps.list"_qs, u"[Default Applications]\n%1=test.desktop\n"_qs.arg(type));
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
