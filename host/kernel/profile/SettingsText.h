#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

// The content of a settings file: sections of keys with values, each any UTF-16 text, told apart by case. It is written
// in UTF-8 and for people to read:
//
//     ; a remark
//     [section]
//     key=value
//
// Remarks and empty lines stand above a section or a key, or below everything. EscapedText.h says how texts are written
// that do not stand plainly on a line.
class SettingsText
{
public:
    QByteArray toBytes() const;

    const QString *value(const QString &section, const QString &key) const; // null when there is none
    void setValue(const QString &section, const QString &key, const QString &value);

    // False, and nothing added, for a section or a key that is there already. A key's section must be.
    bool addSection(const QString &section, const QStringList &remarks = {});
    bool addKey(const QString &section, const QString &key, const QString &value, const QStringList &remarks = {});
    void setLastRemarks(const QStringList &remarks) { m_lastRemarks = remarks; }

private:
    struct Entry
    {
        QStringList remarks; // the lines above it
        QString key;
        QString value;
    };
    struct Section
    {
        QStringList remarks;
        QString name;
        std::vector<Entry> entries;
        QHash<QString, std::size_t> places; // of the keys among the entries
    };

    const Section *find(const QString &section) const;
    Section *find(const QString &section);

    std::vector<Section> m_sections;
    QStringList m_lastRemarks;
};
