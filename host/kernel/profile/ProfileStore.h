#pragma once

#include "host/kernel/profile/SettingsReader.h"
#include "storage/FileStamp.h"

#include <functional>
#include <optional>

// What programs keep from run to run by section and key: the file settings.ini of a folder. Hosts may share the folder.
// A change is on the disk when its call comes back, and none is lost to another host or a killed one; a read sees every
// change made before it, and reads the file again only when that was changed. Nothing is made before the first change.
//
// Lines that cannot be read are passed over and told of. Before the next change drops them the file is kept as it was,
// as settings.ini.damaged.
class ProfileStore
{
public:
    using Warn = std::function<void(const QString &)>; // takes one line for the user

    ProfileStore(const QString &folder, Warn warn);

    // A value, or the fallback where there is none. Nothing when the store cannot be read.
    std::optional<QString> value(const QString &section, const QString &key, const QString &fallback);
    // False when the store cannot be written; it is as before then.
    bool setValue(const QString &section, const QString &key, const QString &value);

private:
    QString load();
    QString change(const QString &section, const QString &key, const QString &value);
    QString keepDamaged();
    void tellOfDamage();
    void tell(const QString &text);

    const QString m_folder;
    const QString m_path;
    const Warn m_warn;
    QString m_told; // the last warning: a program that tries again and again is told once

    bool m_loaded = false; // the members below are what stands in the file
    FileStamp m_stamp;
    QByteArray m_bytes;
    ReadSettings m_content;
};
