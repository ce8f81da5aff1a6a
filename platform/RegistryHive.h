#pragma once

#include "platform/RegistryFile.h"
#include "platform/RegistryNotice.h"
#include "platform/RegistryTree.h"
#include "storage/FileLock.h"
#include "storage/RegistryTextWriter.h"

#include <functional>
#include <memory>

// One root of the registry with all below: a tree in memory that follows its file.
//
// Of a file that cannot be understood counts what can be read, and a line on standard error says so. Only a change
// writes such a file anew, and keeps it as it was under another name.
class RegistryHive
{
public:
    // `complete` adds the keys that every hive has, whatever its file says; they are written only with others.
    RegistryHive(const std::u16string &rootName, const QString &folder, RegistryNotice &notice,
                 std::function<void(RegistryKey &root)> complete);

    // The root, up to date with what other processes have changed. Keys found before are gone when the revision is
    // another.
    RegistryKey &root()
    {
        // While this process changes the hive, nobody else does.
        if (m_depth == 0 && (m_notice.hasNews(m_seen) || m_root == nullptr))
            lookAtFile();
        return *m_root;
    }
    std::uint64_t revision() const { return m_revision; }

    // A change: begin, any of the four, end. It gives null, or the reason why nothing was changed, then the hive is
    // what the file says. Changes nest: all are written when the outermost ends.
    QString beginChange();
    RegistryKey &addKey(RegistryKey &parent, std::u16string_view path);
    void removeKey(RegistryKey &key);
    void setValue(RegistryKey &key, std::u16string_view name, std::uint32_t type, const QByteArray &data);
    void removeValue(RegistryKey &key, std::u16string_view name);
    QString endChange();
    void dropChanges(); // whatever is begun
    // Before endChange() for a change that is to be written with those of other roots or not at all: puts all of the
    // hive beside its file. Null, or the reason why that cannot be; nothing is written then.
    QString prepareChange();

private:
    void lookAtFile();
    void take(const RegistryFile::News &news);
    void apply(const QByteArray &lines, int firstLine);
    void startAnew();
    void report(RegistryFile::News &news);
    void repair(const RegistryFile::News &news);
    void leaveDamaged();
    bool isDamaged(const RegistryFile::News &news) const;
    QString damage(const RegistryFile::News &news) const;
    QByteArray snapshot() const;
    QString write();
    void describe(RegistryKey &key);
    void warn(const QString &words);

    const std::u16string m_rootName;
    RegistryNotice &m_notice;
    const std::function<void(RegistryKey &)> m_complete;
    RegistryFile m_file;
    std::unique_ptr<RegistryKey> m_root; // null: nothing has been read
    bool m_isComplete = false;
    std::uint64_t m_revision = 0;
    RegistryNotice::Moment m_seen;
    std::vector<RegistryTextError> m_errors;
    QString m_failure; // the file's, as long as it cannot be used
    QString m_warned;
    bool m_isDamaged = false; // the file, which was read and not repaired

    int m_depth = 0; // of changes
    std::unique_ptr<FileLock> m_lock;
    RegistryTextWriter m_change;
    const RegistryKey *m_described = nullptr; // the key that m_change speaks of
};
