#include "host/kernel/profile/SettingsText.h"

#include "host/kernel/profile/EscapedText.h"

#include <algorithm>
#include <utility>

namespace {

QString lines(const QStringList &remarks)
{
    return remarks.isEmpty() ? QString() : remarks.join(u'\n') + u'\n';
}

} // namespace

QByteArray SettingsText::toBytes() const
{
    QString text;
    for (const Section &section : m_sections) {
        text += QStringLiteral("%1[%2]\n").arg(lines(section.remarks), escaped(section.name, EscapedPlace::Name));
        for (const Entry &entry : section.entries)
            text += QStringLiteral("%1%2=%3\n")
                        .arg(lines(entry.remarks), escaped(entry.key, EscapedPlace::Name),
                             escaped(entry.value, EscapedPlace::Value));
    }
    return (text + lines(m_lastRemarks)).toUtf8();
}

const QString *SettingsText::value(const QString &section, const QString &key) const
{
    const Section *found = find(section);
    if (!found)
        return nullptr;
    const auto place = found->places.constFind(key);
    return place == found->places.constEnd() ? nullptr : &found->entries[*place].value;
}

void SettingsText::setValue(const QString &section, const QString &key, const QString &value)
{
    addSection(section);
    if (!addKey(section, key, value)) {
        Section *found = find(section);
        found->entries[found->places.value(key)].value = value;
    }
}

bool SettingsText::addSection(const QString &section, const QStringList &remarks)
{
    if (find(section))
        return false;
    m_sections.push_back({remarks, section, {}, {}});
    return true;
}

bool SettingsText::addKey(const QString &section, const QString &key, const QString &value, const QStringList &remarks)
{
    Section *found = find(section);
    if (found->places.contains(key))
        return false;
    found->places.insert(key, found->entries.size());
    found->entries.push_back({remarks, key, value});
    return true;
}

const SettingsText::Section *SettingsText::find(const QString &section) const
{
    const auto found = std::find_if(m_sections.begin(), m_sections.end(),
                                    [&section](const Section &each) { return each.name == section; });
    return found == m_sections.end() ? nullptr : &*found;
}

SettingsText::Section *SettingsText::find(const QString &section)
{
    return const_cast<Section *>(std::as_const(*this).find(section));
}
