#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <stdexcept>

// A folder of its own for each test, gone afterwards.
class TemporaryFolder
{
public:
    QString path(const QString &name = QString()) const
    {
        return name.isEmpty() ? m_folder.path() : m_folder.filePath(name);
    }
    QString make(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            throw std::runtime_error("cannot write " + path(name).toStdString());
        return path(name);
    }
    QByteArray bytes(const QString &name) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error("cannot read " + path(name).toStdString());
        return file.readAll();
    }

private:
    QTemporaryDir m_folder;
};
