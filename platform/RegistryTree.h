#pragma once

#include "platform/RegistryNames.h"
#include "storage/RegistryText.h"

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// Things by name, owned, in the order in which they came as long as none is removed. A Thing has a name.
template <class Thing> class RegistryNameTable
{
public:
    std::size_t size() const { return m_things.size(); }
    Thing &at(std::size_t index) const { return *m_things[index]; }
    auto begin() const { return m_things.begin(); }
    auto end() const { return m_things.end(); }

    Thing *find(std::u16string_view name) const
    {
        if (m_lastFound < m_things.size() && isSameText(m_things[m_lastFound]->name, name))
            return m_things[m_lastFound].get();
        const auto place = m_places.find(name);
        if (place == m_places.end())
            return nullptr;
        m_lastFound = place->second;
        return m_things[m_lastFound].get();
    }
    // There must be none of the name.
    Thing &add(std::unique_ptr<Thing> thing)
    {
        m_places.emplace(thing->name, m_things.size());
        return *m_things.emplace_back(std::move(thing));
    }
    // The last thing takes the place of the one that goes.
    bool remove(std::u16string_view name)
    {
        const auto place = m_places.find(name);
        if (place == m_places.end())
            return false;
        const std::size_t index = place->second;
        m_places.erase(place);
        if (index + 1 < m_things.size()) {
            m_things[index].swap(m_things.back());
            m_places[m_things[index]->name] = index;
        }
        m_things.pop_back();
        return true;
    }

private:
    std::vector<std::unique_ptr<Thing>> m_things;
    std::unordered_map<std::u16string_view, std::size_t, RegistryNameHash, RegistryNameEqual> m_places;
    mutable std::size_t m_lastFound = 0; // programs that poll ask for one name again and again
};

struct RegistryValue
{
    std::u16string name; // empty: the key's unnamed value
    std::uint32_t type;
    QByteArray data;
};

struct RegistryKey
{
    std::u16string name;
    RegistryKey *parent; // null: the root of a hive
    RegistryNameTable<RegistryValue> values = {};
    RegistryNameTable<RegistryKey> keys = {};
};

// A path leads through names with backslashes between them; a backslash at its end, and one too many between names, is
// passed over. An empty path leads to the key itself.
RegistryKey *findKey(RegistryKey &from, std::u16string_view path); // null: there is none
RegistryKey &findOrAddKey(RegistryKey &from, std::u16string_view path);
std::u16string pathOf(const RegistryKey &key); // with the name of the root
int levelOf(const RegistryKey &key);           // 1: a root
void setValue(RegistryKey &key, std::u16string_view name, std::uint32_t type, const QByteArray &data);

// Tells what a key holds with all below it, the key first.
void describeKey(const RegistryKey &key, RegistryTextReceiver &receiver);
