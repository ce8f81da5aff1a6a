// The registry: vl-registry-read and its relatives, and where the product keeps its settings there.

#include "platform/Registry.h"
#include "host/kernel/OpenRegistryKey.h"
#include "host/kernel/ProductKeys.h"
#include "host/kernel/builtins/HostBuiltins.h"

#include <QByteArray>

#include <algorithm>
#include <cstring>

using lisp::Args;
using lisp::ListBuilder;
using lisp::Machine;
using lisp::Value;

namespace {

// Empty: the unnamed value.
std::u16string nameArgument(Args arguments)
{
    return std::u16string(arguments[1].isNil() ? u"" : arguments.text(1));
}

std::u16string textOf(const QByteArray &bytes)
{
    std::u16string text(static_cast<std::size_t>(bytes.size()) / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.constData(), text.size() * sizeof(char16_t));
    return text;
}

QByteArray bytesOf(std::u16string_view text)
{
    const std::u16string terminated(text);
    return {reinterpret_cast<const char *>(terminated.c_str()),
            static_cast<qsizetype>((terminated.size() + 1) * sizeof(char16_t))};
}

// The registry would take what is in front of it for the whole.
bool holdsNul(Value value)
{
    if (value.isString())
        return value.asString()->view().find(u'\0') != std::u16string_view::npos;
    return value.isCons() && std::ranges::any_of(lisp::itemsOf(value), holdsNul);
}

// A list that begins with the number of the type: (7 "first" "second"), (3 0 16 35).
Value listOf(Machine &machine, const RegistryData &data)
{
    ListBuilder list(machine.heap());
    list.add(Value::integer(static_cast<std::int32_t>(data.type)));
    if (data.type == REG_MULTI_SZ) {
        const std::u16string texts = textOf(data.bytes);
        for (std::size_t start = 0; start < texts.size() && texts[start] != u'\0';) {
            const std::u16string text = texts.c_str() + start;
            list.add(machine.string(text));
            start += text.size() + 1;
        }
    } else {
        for (const char byte : data.bytes)
            list.add(Value::integer(static_cast<unsigned char>(byte)));
    }
    return list.list();
}

Value toLisp(Machine &machine, const RegistryData &data)
{
    if (data.type == REG_SZ || data.type == REG_EXPAND_SZ)
        return machine.string(textOf(data.bytes).c_str());
    if (data.type == REG_DWORD && data.bytes.size() == 4) {
        std::int32_t number = 0;
        std::memcpy(&number, data.bytes.constData(), sizeof number);
        return Value::integer(number);
    }
    return listOf(machine, data);
}

RegistryData fromList(Value list)
{
    const std::vector<Value> items = lisp::itemsOf(list);
    if (items.empty() || !items[0].isInteger())
        lisp::badArgument(u"registry data:", list);
    RegistryData data{static_cast<DWORD>(items[0].asInteger()), {}};
    for (std::size_t index = 1; index < items.size(); ++index) {
        const Value item = items[index];
        if (data.type == REG_MULTI_SZ && item.isString())
            data.bytes += bytesOf(item.asString()->view());
        else if (data.type != REG_MULTI_SZ && item.isInteger() && item.asInteger() >= 0 && item.asInteger() <= 255)
            data.bytes += static_cast<char>(item.asInteger());
        else
            lisp::badArgument(u"registry data:", list);
    }
    if (data.type == REG_MULTI_SZ)
        data.bytes += QByteArray(2, '\0');
    return data;
}

RegistryData fromLisp(Args arguments, std::uint32_t index)
{
    const Value value = arguments[index];
    if (value.isInteger()) {
        const std::int32_t number = value.asInteger();
        return {REG_DWORD, QByteArray(reinterpret_cast<const char *>(&number), sizeof number)};
    }
    if (value.isCons())
        return fromList(value);
    return {REG_SZ, bytesOf(arguments.has(index) && !value.isNil() ? arguments.text(index) : u"")};
}

Value readValue(Machine &machine, Args arguments)
{
    const OpenRegistryKey key(arguments.text(0), KEY_READ);
    const std::optional<RegistryData> data = key.value(nameArgument(arguments));
    return data ? toLisp(machine, *data) : Value::nil();
}

Value writeValue(Machine &machine, Args arguments)
{
    const RegistryData data = fromLisp(arguments, 2);
    if (holdsNul(arguments[0]) || holdsNul(arguments[1]) || holdsNul(arguments[2]))
        return Value::nil();
    const std::u16string name = nameArgument(arguments);
    OpenRegistryKey key(arguments.text(0), KEY_WRITE, OpenRegistryKey::IfMissing::Add);
    if (!key.setValue(name, data))
        return Value::nil();
    return arguments[2].isNil() ? machine.string(u"") : arguments[2];
}

Value removeKeyOrValue(Machine &machine, Args arguments)
{
    if (arguments[1].isTrue()) {
        OpenRegistryKey key(arguments.text(0), KEY_WRITE);
        return machine.boolean(key.removeValue(nameArgument(arguments)));
    }
    const RegistryPath path(arguments.text(0));
    return machine.boolean(path.root != nullptr && !path.below.empty() &&
                           RegDeleteKeyW(path.root, windowsText(path.below.c_str())) == ERROR_SUCCESS);
}

Value listBelow(Machine &machine, Args arguments)
{
    const OpenRegistryKey key(arguments.text(0), KEY_READ);
    if (!key.isOpen())
        return Value::nil();
    ListBuilder names(machine.heap());
    for (const QString &name : arguments[1].isTrue() ? key.valueNames() : key.keyNames())
        names.add(machine.string(name.toStdU16String()));
    return names.list();
}

Value userKey(Machine &machine, Args)
{
    return machine.string(userProductKey().toStdU16String());
}

Value machineKey(Machine &machine, Args)
{
    return machine.string(machineProductKey().toStdU16String());
}

constexpr lisp::BuiltinRow rows[] = {
    {"vl-registry-read", "(vl-registry-read KEY [NAME])",
     "Gives the data of a registry value: a string, an integer, or a list that begins with its type; else nil.",
     readValue},
    {"vl-registry-write", "(vl-registry-write KEY [NAME] [DATA])",
     "Writes a registry value and adds the keys that it needs; gives the data, nil if that fails.", writeValue},
    {"vl-registry-delete", "(vl-registry-delete KEY [NAME])",
     "Removes a registry value or, without a name, a key that has no keys below; T when it was there.",
     removeKeyOrValue},
    {"vl-registry-descendents", "(vl-registry-descendents KEY [VALUES])",
     "Lists the keys below a registry key or, if VALUES is not nil, the names of its values.", listBelow},
    {"vlax-product-key", "(vlax-product-key)", "Gives the registry key of the product for the machine, without root.",
     machineKey},
    {"vlax-machine-product-key", "(vlax-machine-product-key)",
     "Gives the registry key of the product for the machine, without root.", machineKey},
    {"vlax-user-product-key", "(vlax-user-product-key)",
     "Gives the registry key of the product for the user, without root.", userKey},
};

} // namespace

std::span<const lisp::BuiltinRow> registryBuiltins()
{
    return rows;
}
