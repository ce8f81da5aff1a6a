#include "host/commands/Colors.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/palette/Palette.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace commands {

namespace {

constexpr int IndexCode = 62, TrueColorCode = 420, ColorNameCode = 430;
constexpr int LastIndex = 255;
constexpr std::array<QStringView, 7> names = {u"red", u"yellow", u"green", u"cyan", u"blue", u"magenta", u"white"};
const QString rgbPrefix = QStringLiteral("RGB:");

std::optional<Color> trueColorFromText(const QString &text)
{
    const QStringList parts = text.split(u',');
    if (parts.size() != 3)
        return std::nullopt;
    std::int64_t rgb = 0;
    for (const QString &part : parts) {
        bool isNumber = false;
        const int value = part.trimmed().toInt(&isNumber);
        if (!isNumber || value < 0 || value > LastIndex)
            return std::nullopt;
        rgb = rgb * (LastIndex + 1) + value;
    }
    return Color{Color::ByLayer, rgb};
}

palette::Color partsOf(std::int64_t rgb)
{
    constexpr int RedShift = 16, GreenShift = 8, Byte = 0xFF;
    const auto part = [rgb](int shift) { return static_cast<int>(rgb >> shift & Byte); };
    return {part(RedShift), part(GreenShift), part(0)};
}

} // namespace

std::optional<Color> colorFromText(std::u16string_view text)
{
    QString name = QStringView(text.data(), static_cast<qsizetype>(text.size())).trimmed().toString();
    if (name.startsWith(u'_')) // the way to type a word in every language
        name.remove(0, 1);
    const auto isName = [&name](QStringView one) { return one.compare(name, Qt::CaseInsensitive) == 0; };
    if (isName(u"bylayer"))
        return Color{Color::ByLayer};
    if (isName(u"byblock"))
        return Color{Color::ByBlock};
    if (const auto found = std::find_if(names.begin(), names.end(), isName); found != names.end())
        return Color{static_cast<int>(found - names.begin()) + 1};
    if (name.startsWith(rgbPrefix, Qt::CaseInsensitive))
        return trueColorFromText(name.mid(rgbPrefix.size()));
    bool isNumber = false;
    const int index = name.toInt(&isNumber);
    if (!isNumber)
        return trueColorFromText(name);
    return index >= 0 && index <= Color::ByLayer ? std::optional(Color{index}) : std::nullopt;
}

std::u16string colorText(const Color &color)
{
    if (color.rgb) {
        const auto [red, green, blue] = partsOf(*color.rgb);
        return QStringLiteral("RGB:%1,%2,%3").arg(red).arg(green).arg(blue).toStdU16String();
    }
    if (color.index == Color::ByLayer)
        return u"BYLAYER";
    return color.index == Color::ByBlock ? u"BYBLOCK" : QString::number(color.index).toStdU16String();
}

int indexOf(const Color &color)
{
    return color.rgb ? palette::nearest(partsOf(*color.rgb)) : color.index;
}

std::optional<drawing::Group> trueColorGroup(const drawing::Database &database, const Color &color)
{
    const bool isKnown = database.version() >= "AC1018"; // R2004
    return color.rgb && isKnown ? std::optional(drawing::integerGroup(TrueColorCode, *color.rgb)) : std::nullopt;
}

void removeTrueColor(drawing::GroupList &groups)
{
    drawing::removeGroups(groups, TrueColorCode);
    drawing::removeGroups(groups, ColorNameCode);
}

void setColor(const drawing::Database &database, drawing::GroupList &groups, const Color &color)
{
    drawing::removeGroups(groups, IndexCode);
    removeTrueColor(groups);
    if (const std::optional<drawing::Group> trueColor = trueColorGroup(database, color))
        drawing::setGroupBehindLayer(groups, *trueColor);
    if (const int index = indexOf(color); index != Color::ByLayer)
        drawing::setGroupBehindLayer(groups, drawing::integerGroup(IndexCode, index));
}

} // namespace commands
