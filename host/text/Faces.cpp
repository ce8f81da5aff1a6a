#include "host/text/Faces.h"

#include <array>
#include <string>

namespace text {

namespace {

// Compared with the name in lower case without folder and ending; the first row that it begins with decides.
struct Substitution
{
    std::u16string_view beginning;
    FontFile file;
};
constexpr Substitution substitutions[] = {
    {u"arialn", FontFile::SansNarrow},  {u"times", FontFile::Serif},         {u"georgia", FontFile::Serif},
    {u"garamond", FontFile::Serif},     {u"cambria", FontFile::Serif},       {u"book", FontFile::Serif},
    {u"palatino", FontFile::Serif},     {u"century", FontFile::Serif},       {u"romanc", FontFile::Serif},
    {u"romant", FontFile::Serif},       {u"romand", FontFile::Serif},        {u"complex", FontFile::Serif},
    {u"italic", FontFile::SerifItalic}, {u"monotxt", FontFile::Mono},        {u"cour", FontFile::Mono},
    {u"consola", FontFile::Mono},       {u"lucida console", FontFile::Mono}, {u"txt", FontFile::Technical},
    {u"simplex", FontFile::Technical},  {u"romans", FontFile::Technical},    {u"iso", FontFile::Technical},
    {u"gost", FontFile::Technical},     {u"osifont", FontFile::Technical},
};
constexpr std::u16string_view narrowWords[] = {u"narrow", u"condensed"};

// The letters of font names are ASCII.
std::u16string lower(std::u16string_view name)
{
    std::u16string result(name);
    for (char16_t &letter : result)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char16_t>(letter + ('a' - 'A'));
    return result;
}

std::u16string_view baseOf(std::u16string_view name)
{
    const std::size_t folder = name.find_last_of(u"/\\");
    name = folder == std::u16string_view::npos ? name : name.substr(folder + 1);
    return name.substr(0, name.find_last_of(u'.'));
}

FontFile plainFileFor(std::u16string_view fontName)
{
    const std::u16string name = lower(fontName);
    for (const std::u16string_view word : narrowWords)
        if (name.find(word) != std::u16string::npos)
            return FontFile::SansNarrow;
    for (const Substitution &row : substitutions)
        if (baseOf(name).starts_with(row.beginning))
            return row.file;
    return name.ends_with(u".shx") ? FontFile::Technical : FontFile::Sans;
}

// Names of files tell it by words, or as "arialbd", "ariali" and "timesbi".
bool isNamed(std::u16string_view name, std::u16string_view word, std::u16string_view letters)
{
    const std::u16string lowerName = lower(name);
    const std::u16string_view base = baseOf(lowerName);
    const bool isShort = base.starts_with(u"arial") || base.starts_with(u"times");
    return base.find(word) != base.npos ||
           (isShort && base.size() > 5 && base.find_first_of(letters, 5) != base.npos && base.size() <= 7);
}

FontFile withEmphasis(FontFile file, FontName font)
{
    font.isBold = font.isBold || isNamed(font.name, u"bold", u"b");
    font.isItalic = font.isItalic || isNamed(font.name, u"italic", u"i");
    if (file == FontFile::Sans && font.isBold)
        return font.isItalic ? FontFile::SansBoldItalic : FontFile::SansBold;
    if (file == FontFile::Sans && font.isItalic)
        return FontFile::SansItalic;
    if (file == FontFile::Serif && font.isBold)
        return FontFile::SerifBold;
    return file == FontFile::Serif && font.isItalic ? FontFile::SerifItalic : file;
}

} // namespace

const Face &faceFor(const FontName &font)
{
    static const Face fallback(FontFile::Fallback, nullptr);
    static std::array<std::unique_ptr<Face>, static_cast<std::size_t>(FontFile::Count)> faces;
    const FontFile file = withEmphasis(plainFileFor(font.name), font);
    std::unique_ptr<Face> &face = faces[static_cast<std::size_t>(file)];
    if (!face)
        face = std::make_unique<Face>(file, &fallback);
    return *face;
}

} // namespace text
