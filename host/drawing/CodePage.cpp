#include "host/drawing/CodePage.h"

#include "host/drawing/SystemCodePage.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>

namespace drawing {

namespace {

constexpr unsigned Western = 1252;
constexpr unsigned Japanese = 932, Chinese = 936, Korean = 949, TraditionalChinese = 950, Johab = 1361;
constexpr unsigned FirstIso = 28591, Macintosh = 10000;

bool hasPairs(unsigned number)
{
    return number == Japanese || number == Chinese || number == Korean || number == TraditionalChinese ||
           number == Johab;
}

unsigned numberAfter(std::string_view name, std::string_view prefix)
{
    unsigned number = 0;
    if (name.starts_with(prefix))
        std::from_chars(name.data() + prefix.size(), name.data() + name.size(), number);
    return number;
}

unsigned numberOf(std::string name)
{
    constexpr std::pair<std::string_view, unsigned> byName[] = {
        {"big5", TraditionalChinese}, {"gb2312", Chinese}, {"ksc5601", Korean}, {"johab", Johab},
        {"mac-roman", Macintosh},
    };
    std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
    });
    for (const auto &[known, number] : byName)
        if (name == known)
            return number;
    if (const unsigned iso = numberAfter(name, "8859_"); iso >= 1 && iso <= 9)
        return FirstIso + iso - 1;
    for (const std::string_view prefix : {"ansi_", "ansi", "dos"})
        if (const unsigned number = numberAfter(name, prefix); number != 0)
            return number;
    return Western;
}

} // namespace

CodePage::CodePage(unsigned number)
{
    const SystemCodePage system(number);
    for (unsigned byte = 0; byte < m_single.size(); ++byte) {
        const char bytes[] = {static_cast<char>(byte)};
        m_single[byte] = system.character({bytes, 1});
        if (m_single[byte] != 0)
            m_bytes.try_emplace(m_single[byte], bytes, 1);
    }
    if (hasPairs(number)) {
        m_pairs.resize(0x10000);
        for (unsigned pair = 0x8100; pair < m_pairs.size(); ++pair) {
            const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
            if (m_single[pair >> 8] == 0 && (m_pairs[pair] = system.character({bytes, 2})) != 0)
                m_bytes.try_emplace(m_pairs[pair], bytes, 2);
        }
        return;
    }
    for (unsigned byte = 0x80; byte < m_single.size(); ++byte) {
        if (m_single[byte] != 0)
            continue;
        m_single[byte] = static_cast<char16_t>(byte);
        m_bytes.try_emplace(m_single[byte], 1, static_cast<char>(byte));
    }
}

const CodePage &CodePage::named(std::string_view name)
{
    static std::map<unsigned, std::unique_ptr<CodePage>> codePages; // used by the main thread alone
    const auto load = [](unsigned number) -> std::unique_ptr<CodePage> & {
        std::unique_ptr<CodePage> &codePage = codePages[number];
        if (!codePage)
            codePage.reset(new CodePage(number));
        return codePage;
    };
    const CodePage &codePage = *load(numberOf(std::string(name)));
    return codePage.m_single['A'] == u'A' ? codePage : *load(Western); // the system does not know that number
}

char16_t CodePage::takeCharacter(std::string_view &bytes) const
{
    const auto byte = static_cast<unsigned char>(bytes.front());
    char16_t character = m_single[byte];
    std::size_t length = 1;
    if (character == 0 && bytes.size() > 1 && !m_pairs.empty()) {
        character = m_pairs[static_cast<std::size_t>(byte) << 8 | static_cast<unsigned char>(bytes[1])];
        length = character != 0 ? 2 : 1;
    }
    bytes.remove_prefix(length);
    return character != 0 ? character : static_cast<char16_t>(byte);
}

std::optional<std::string_view> CodePage::bytesOf(char16_t character) const
{
    const auto found = m_bytes.find(character);
    return found == m_bytes.end() ? std::nullopt : std::optional<std::string_view>(found->second);
}

} // namespace drawing
