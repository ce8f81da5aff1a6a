#include "host/kernel/RegistryExchange.h"

#include "host/interpreter/files/TextEncoding.h"
#include "host/kernel/OpenRegistryKey.h"
#include "platform/RegistrySetup.h"
#include "storage/RegistryTextWriter.h"

namespace {

std::u16string decodeAnsi(QByteArrayView bytes)
{
    std::u16string text;
    lisp::TextDecoder(lisp::TextEncoding::Windows1252).append(text, bytes);
    return text;
}

bool writeKey(const QString &path, RegistryTextWriter &writer, QString &failure)
{
    const std::u16string text = path.toStdU16String();
    const OpenRegistryKey key(text, KEY_READ);
    if (!key.isOpen() || !isRegistryPath(text)) {
        failure = path + (key.isOpen() ? QStringLiteral(": its name cannot be written as text")
                                       : QStringLiteral(": no such key"));
        return false;
    }
    writer.addKey(text);
    for (const QString &name : key.valueNames())
        if (const std::optional<RegistryData> data = key.value(name.toStdU16String()))
            writer.setValue(name.toStdU16String(), data->type, data->bytes);
    for (const QString &name : key.keyNames())
        if (!writeKey(path + u'\\' + name, writer, failure))
            return false;
    return true;
}

class Checker final : public RegistryTextReceiver
{
public:
    void addKey(std::u16string_view) override {}
    void removeKey(std::u16string_view) override {}
    void setValue(std::u16string_view, std::uint32_t, const QByteArray &) override {}
    void removeValue(std::u16string_view) override {}
};

// Does what a text says. What is to be removed may be gone already.
class Importer final : public RegistryTextReceiver
{
public:
    QStringList failures;

    void addKey(std::u16string_view path) override
    {
        m_path = QStringView(path).toString();
        m_key.emplace(path, KEY_WRITE, OpenRegistryKey::IfMissing::Add);
        expect(m_key->isOpen());
    }
    void removeKey(std::u16string_view path) override
    {
        m_path = QStringView(path).toString();
        m_key.reset();
        const RegistryPath place(path);
        const LSTATUS status = RegDeleteTreeW(place.root, windowsText(place.below.c_str()));
        expect(status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND);
    }
    void setValue(std::u16string_view name, std::uint32_t type, const QByteArray &data) override
    {
        expect(m_key->setValue(std::u16string(name), {type, data}));
    }
    void removeValue(std::u16string_view name) override { m_key->removeValue(std::u16string(name)); }

private:
    void expect(bool succeeded)
    {
        const QString words = m_path + QStringLiteral(": cannot be changed");
        if (!succeeded && !failures.contains(words))
            failures << words;
    }

    QString m_path;
    std::optional<OpenRegistryKey> m_key;
};

} // namespace

std::optional<std::u16string> exportRegistry(const QStringList &keys, QString &failure)
{
    RegistryTextWriter writer(u"\r\n");
    for (const QString &key : keys)
        if (!writeKey(key, writer, failure))
            return std::nullopt;
    return std::u16string(RegistryTextHeader) + u"\r\n" + writer.text() + u"\r\n";
}

QStringList importRegistry(std::u16string_view text)
{
    QStringList failures;
    Checker checker;
    for (const RegistryTextError &error : readRegistryText(text, checker, decodeAnsi))
        failures << QStringLiteral("line %1: %2").arg(error.line).arg(error.reason);
    if (!failures.isEmpty())
        return failures;
    RegistryBatch batch;
    Importer importer;
    readRegistryText(text, importer, decodeAnsi);
    if (importer.failures.isEmpty() && !batch.commit())
        importer.failures << QStringLiteral("the registry cannot be written");
    return importer.failures;
}
