#include "storage/RegistryText.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace {

constexpr std::u16string_view OlderHeader = u"REGEDIT4";
constexpr std::size_t DeepestKey = 512; // levels, as Windows documents it
constexpr std::size_t MostDigits = 8;   // of a number

constexpr std::array RootNames = {RegistryRoot::Classes, RegistryRoot::CurrentUser, RegistryRoot::LocalMachine,
                                  RegistryRoot::Users, RegistryRoot::CurrentConfiguration};

QStringView view(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

bool isSame(std::u16string_view left, std::u16string_view right)
{
    return view(left).compare(view(right), Qt::CaseInsensitive) == 0;
}

bool isRootName(std::u16string_view name)
{
    return std::ranges::any_of(RootNames, [name](std::u16string_view root) { return isSame(name, root); });
}

std::optional<unsigned> hexadecimalDigit(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    const char16_t letter = unit | 0x20;
    return letter >= u'a' && letter <= u'f' ? std::optional<unsigned>(letter - u'a' + 10u) : std::nullopt;
}

QByteArray bytesOf(std::u16string_view text)
{
    return {reinterpret_cast<const char *>(text.data()), static_cast<qsizetype>(text.size() * sizeof(char16_t))};
}

// What is wrong with a statement; raised and caught within this file.
struct Fault
{
    const char *reason;
};

class Parser
{
public:
    enum class Numbers { OfAnyLength, WithAllDigits };

    Parser(std::u16string_view text, RegistryTextReceiver &receiver, int line, Numbers numbers, AnsiDecoder decodeAnsi)
        : m_text(text), m_receiver(receiver), m_line(line), m_numbers(numbers), m_decodeAnsi(decodeAnsi)
    {
    }

    // A statement that cannot be understood ends with its first line: what stands below is read for itself.
    std::vector<RegistryTextError> run()
    {
        while (m_position < m_text.size()) {
            const std::size_t start = m_position;
            const int line = m_line;
            try {
                readStatement();
            } catch (const Fault &fault) {
                m_errors.push_back({line, QString::fromLatin1(fault.reason)});
                m_position = start;
                m_line = line;
            }
            skipLine();
        }
        return std::move(m_errors);
    }

private:
    enum class Key { None, Open, Removed, Unknown };

    char16_t current() const { return m_position < m_text.size() ? m_text[m_position] : u'\n'; }
    bool take(char16_t unit)
    {
        const bool isThere = m_position < m_text.size() && current() == unit;
        m_position += isThere ? 1 : 0;
        return isThere;
    }
    void skipBlanks()
    {
        while (current() == u' ' || current() == u'\t' || current() == u'\r')
            ++m_position;
    }
    std::u16string_view restOfLine() const
    {
        return m_text.substr(m_position, std::min(m_text.find(u'\n', m_position), m_text.size()) - m_position);
    }
    void skipLine()
    {
        m_position += restOfLine().size() + 1;
        ++m_line;
    }

    void readStatement()
    {
        skipBlanks();
        switch (current()) {
        case u'\n':
        case u';':
            return;
        case u'[':
            return readKey();
        case u'@':
        case u'"':
            return readValue();
        default:
            throw Fault{"neither a key, a value nor a comment"};
        }
    }

    void readKey()
    {
        const std::u16string_view line = restOfLine();
        const bool removes = line.substr(1).starts_with(u'-');
        const std::size_t start = removes ? 2 : 1;
        const std::size_t end = line.rfind(u']'); // names may hold brackets
        m_key = Key::Unknown;
        if (end == line.npos)
            throw Fault{"the bracket behind the key is missing"};
        m_position += end + 1;
        endStatement("something stands behind the key");
        const std::u16string_view path = line.substr(start, end - start);
        if (!isRegistryPath(path) || (removes && isRootName(path)))
            throw Fault{"no such key can be"};
        m_key = removes ? Key::Removed : Key::Open;
        if (removes)
            m_receiver.removeKey(path);
        else
            m_receiver.addKey(path);
    }

    void readValue()
    {
        if (m_key == Key::Unknown)
            return; // its key has been reported
        if (m_key != Key::Open)
            throw Fault{"a value without a key"};
        const std::u16string name = take(u'@') ? std::u16string() : readQuoted();
        if (!isRegistryValueName(name))
            throw Fault{"no value can have this name"};
        skipBlanks();
        if (!take(u'='))
            throw Fault{"'=' is missing"};
        skipBlanks();
        readData(name);
    }

    void readData(const std::u16string &name)
    {
        if (take(u'-')) {
            endStatement("something stands behind the value");
            m_receiver.removeValue(name);
            return;
        }
        std::uint32_t type = RegistryText;
        QByteArray data;
        if (current() == u'"') {
            const std::u16string text = readQuoted();
            data = bytesOf({text.c_str(), text.size() + 1}); // with the terminator
        } else if (takeWord(u"dword:")) {
            type = RegistryNumber;
            const std::size_t start = m_position;
            const std::uint32_t number = readNumber();
            if (m_numbers == Numbers::WithAllDigits && m_position - start != MostDigits)
                throw Fault{"a number of eight hexadecimal digits is missing"};
            data = QByteArray(reinterpret_cast<const char *>(&number), sizeof number);
        } else if (takeWord(u"hex")) {
            type = readType();
            data = readBytes();
            if (m_decodeAnsi != nullptr &&
                (type == RegistryText || type == RegistryExpandableText || type == RegistryTexts))
                data = bytesOf(m_decodeAnsi(data));
        } else {
            throw Fault{"no data of a known form"};
        }
        endStatement("something stands behind the value");
        m_receiver.setValue(name, type, data);
    }

    void endStatement(const char *complaint)
    {
        skipBlanks();
        if (current() != u'\n' && current() != u';')
            throw Fault{complaint};
    }

    bool takeWord(std::u16string_view word)
    {
        const bool isThere = isSame(m_text.substr(m_position, word.size()), word);
        m_position += isThere ? word.size() : 0;
        return isThere;
    }

    // A text may go on over several lines.
    std::u16string readQuoted()
    {
        std::u16string text;
        for (++m_position; m_position < m_text.size(); ++m_position) {
            char16_t unit = current();
            if (unit == u'"') {
                ++m_position;
                return text;
            }
            if (unit == u'\\') {
                ++m_position;
                unit = current();
                if (unit != u'\\' && unit != u'"')
                    throw Fault{"a lone backslash in a text: write two"};
            }
            m_line += unit == u'\n' ? 1 : 0;
            text += unit;
        }
        throw Fault{"the closing quotation mark is missing"};
    }

    std::uint32_t readNumber()
    {
        std::uint32_t number = 0;
        std::size_t digits = 0;
        for (; const std::optional<unsigned> digit = hexadecimalDigit(current()); ++digits, ++m_position)
            number = number << 4 | *digit;
        if (digits == 0 || digits > MostDigits)
            throw Fault{"a number of one to eight hexadecimal digits is missing"};
        return number;
    }

    std::uint32_t readType()
    {
        std::uint32_t type = RegistryBinary;
        if (take(u'(')) {
            type = readNumber();
            if (!take(u')'))
                throw Fault{"')' is missing"};
        }
        if (!take(u':'))
            throw Fault{"':' is missing"};
        return type;
    }

    // A comma may stand behind the last byte, but not a backslash too: it says that more bytes follow.
    QByteArray readBytes()
    {
        QByteArray bytes;
        bool isAfterComma = false;
        bool goesOn = skipContinuations();
        while (current() != u'\n' && current() != u';') {
            if (!bytes.isEmpty() && !isAfterComma)
                throw Fault{"a comma is missing"};
            const std::uint32_t byte = readNumber();
            if (byte > 255)
                throw Fault{"a byte has two hexadecimal digits"};
            bytes.append(static_cast<char>(byte));
            skipContinuations();
            isAfterComma = take(u',');
            goesOn = skipContinuations();
        }
        if (isAfterComma && goesOn)
            throw Fault{"a byte is missing behind the last backslash"};
        return bytes;
    }

    // Whether there are any. Comments may stand between the lines.
    bool skipContinuations()
    {
        bool goesOn = false;
        for (skipBlanks(); take(u'\\'); skipBlanks()) {
            skipBlanks();
            if (!take(u'\n'))
                throw Fault{"a backslash ends a line of bytes"};
            ++m_line;
            skipComments();
            goesOn = true;
        }
        return goesOn;
    }

    void skipComments()
    {
        for (skipBlanks(); take(u';'); skipBlanks()) {
            m_position += restOfLine().size();
            m_line += take(u'\n') ? 1 : 0;
        }
    }

    const std::u16string_view m_text;
    RegistryTextReceiver &m_receiver;
    int m_line;
    const Numbers m_numbers;
    const AnsiDecoder m_decodeAnsi;
    std::size_t m_position = 0;
    Key m_key = Key::None;
    std::vector<RegistryTextError> m_errors;
};

// Without the blanks behind it.
std::u16string_view takeLine(std::u16string_view &text)
{
    const std::u16string_view line = text.substr(0, text.find(u'\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line.substr(0, line.find_last_not_of(u" \t\r") + 1);
}

bool isWellFormed(std::u16string_view name)
{
    return view(name).isValidUtf16() && name.find(u'\0') == name.npos;
}

} // namespace

bool isRegistryKeyName(std::u16string_view name)
{
    const bool isPrintable = std::ranges::none_of(name, [](char16_t unit) { return unit < u' ' || unit == u'\\'; });
    return !name.empty() && name.size() <= RegistryKeyUnits && isPrintable && isWellFormed(name);
}

bool isRegistryValueName(std::u16string_view name)
{
    return name.size() <= RegistryValueUnits && isWellFormed(name);
}

bool isRegistryPath(std::u16string_view path)
{
    std::size_t levels = 0;
    for (std::size_t start = 0; start <= path.size(); ++levels) {
        const std::size_t end = std::min(path.find(u'\\', start), path.size());
        const std::u16string_view name = path.substr(start, end - start);
        if (levels == 0 ? !isRootName(name) : !isRegistryKeyName(name))
            return false;
        start = end + 1;
    }
    return levels <= DeepestKey;
}

std::vector<RegistryTextError> readRegistryText(std::u16string_view text, RegistryTextReceiver &receiver,
                                                AnsiDecoder decodeAnsi)
{
    int line = 1;
    std::u16string_view first = takeLine(text);
    for (; first.empty() && !text.empty(); ++line)
        first = takeLine(text);
    const bool isOlder = decodeAnsi != nullptr && first == OlderHeader;
    if (!isOlder && first != RegistryTextHeader)
        return {{line, QStringLiteral("the first line does not say that this is a registry text")}};
    return Parser(text, receiver, line + 1, Parser::Numbers::OfAnyLength, isOlder ? decodeAnsi : nullptr).run();
}

std::vector<RegistryTextError> readRegistryLines(std::u16string_view text, RegistryTextReceiver &receiver,
                                                 int firstLine)
{
    return Parser(text, receiver, firstLine, Parser::Numbers::WithAllDigits, nullptr).run();
}
