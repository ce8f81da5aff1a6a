#include "host/kernel/profile/ProfileStore.h"

#include "storage/AtomicFile.h"
#include "storage/FileLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

// The functions that give a text give what went wrong, a null text when nothing did.

namespace {

const QStringList &introduction()
{
    static const QStringList lines{
        QStringLiteral("; What LISP programs keep from run to run."),
        QStringLiteral("; \\n, \\r, \\t and \\uXXXX stand for characters, \\\\ for a backslash."),
    };
    return lines;
}

QString readFile(const QString &path, QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    return file.error() == QFile::NoError ? QString() : QStringLiteral("%1: %2").arg(path, file.errorString());
}

// In a folder that may not be entered every file seems to be missing.
QString whyNotReadable(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.exists() || (info.isDir() && info.isExecutable()))
        return {};
    return QStringLiteral("%1: it is no folder that can be read").arg(folder);
}

QString unusedName(const QString &path)
{
    QString name = path;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = QStringLiteral("%1-%2").arg(path, QString::number(number));
    return name;
}

} // namespace

ProfileStore::ProfileStore(const QString &folder, Warn warn)
    : m_folder(folder), m_path(folder + QStringLiteral("/settings.ini")), m_warn(std::move(warn))
{
}

std::optional<QString> ProfileStore::value(const QString &section, const QString &key, const QString &fallback)
{
    if (!m_loaded || FileStamp::of(m_path) != m_stamp) {
        const QString failure = load();
        if (!failure.isNull()) {
            tell(failure);
            return std::nullopt;
        }
    }
    const QString *found = m_content.text.value(section, key);
    return found ? *found : fallback;
}

bool ProfileStore::setValue(const QString &section, const QString &key, const QString &value)
{
    const QString failure = change(section, key, value);
    if (!failure.isNull()) {
        m_loaded = false;
        tell(failure);
    }
    return failure.isNull();
}

QString ProfileStore::load()
{
    m_loaded = false;
    m_stamp = FileStamp::of(m_path); // before reading: a change in between is seen the next time
    m_bytes.clear();
    const QString failure = m_stamp.exists() ? readFile(m_path, m_bytes) : whyNotReadable(m_folder);
    if (!failure.isNull())
        return failure;
    m_content = readSettings(m_bytes);
    m_loaded = true;
    tellOfDamage();
    return {};
}

QString ProfileStore::change(const QString &section, const QString &key, const QString &value)
{
    if (!QDir().mkpath(m_folder))
        return QStringLiteral("%1: the folder cannot be made").arg(m_folder);
    const FileLock lock(m_path);
    if (!lock.isHeld())
        return lock.failure();
    QString failure = load(); // whatever the stamp says: it is no proof, and another host's change may be at stake
    if (!failure.isNull())
        return failure;
    if (const QString *old = m_content.text.value(section, key); old && *old == value)
        return {};
    failure = keepDamaged();
    if (!failure.isNull())
        return failure;
    if (m_bytes.isEmpty())
        m_content.text.addSection(section, introduction());
    m_content.text.setValue(section, key, value);
    m_bytes = m_content.text.toBytes();
    if (!replaceFile(m_path, m_bytes, failure))
        return failure;
    m_stamp = FileStamp::of(m_path);
    return {};
}

QString ProfileStore::keepDamaged()
{
    if (m_content.damagedLines.empty())
        return {};
    const QString copy = unusedName(m_path + QStringLiteral(".damaged"));
    QString failure;
    if (!replaceFile(copy, m_bytes, failure))
        return failure;
    m_content.damagedLines.clear();
    tell(QStringLiteral("%1: kept as %2 before it was changed").arg(m_path, QFileInfo(copy).fileName()));
    return {};
}

void ProfileStore::tellOfDamage()
{
    if (m_content.damagedLines.empty())
        return;
    const DamagedLine &first = m_content.damagedLines.front();
    QString text = QStringLiteral("%1, line %2: %3").arg(m_path, QString::number(first.number), first.reason);
    if (m_content.damagedLines.size() > 1)
        text += QStringLiteral(" (%1 damaged lines in all)").arg(m_content.damagedLines.size());
    tell(text);
}

void ProfileStore::tell(const QString &text)
{
    if (text != m_told)
        m_warn(text);
    m_told = text;
}
