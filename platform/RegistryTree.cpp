#include "platform/RegistryTree.h"

#include <algorithm>

namespace {

// Takes the first name from a path; empty at its end.
std::u16string_view takeName(std::u16string_view &path)
{
    path.remove_prefix(std::min(path.find_first_not_of(u'\\'), path.size()));
    const std::u16string_view name = path.substr(0, path.find(u'\\'));
    path.remove_prefix(name.size());
    return name;
}

} // namespace

RegistryKey *findKey(RegistryKey &from, std::u16string_view path)
{
    RegistryKey *key = &from;
    for (auto name = takeName(path); !name.empty() && key != nullptr; name = takeName(path))
        key = key->keys.find(name);
    return key;
}

RegistryKey &findOrAddKey(RegistryKey &from, std::u16string_view path)
{
    RegistryKey *key = &from;
    for (auto name = takeName(path); !name.empty(); name = takeName(path)) {
        RegistryKey *next = key->keys.find(name);
        if (next == nullptr)
            next = &key->keys.add(std::make_unique<RegistryKey>(RegistryKey{std::u16string(name), key}));
        key = next;
    }
    return *key;
}

std::u16string pathOf(const RegistryKey &key)
{
    return key.parent == nullptr ? key.name : pathOf(*key.parent) + u'\\' + key.name;
}

int levelOf(const RegistryKey &key)
{
    return key.parent == nullptr ? 1 : levelOf(*key.parent) + 1;
}

void setValue(RegistryKey &key, std::u16string_view name, std::uint32_t type, const QByteArray &data)
{
    RegistryValue *value = key.values.find(name);
    if (value == nullptr)
        value = &key.values.add(std::make_unique<RegistryValue>(RegistryValue{std::u16string(name), type, {}}));
    value->type = type;
    value->data = data;
}

void describeKey(const RegistryKey &key, RegistryTextReceiver &receiver)
{
    receiver.addKey(pathOf(key));
    for (const auto &value : key.values)
        receiver.setValue(value->name, value->type, value->data);
    for (const auto &below : key.keys)
        describeKey(*below, receiver);
}
