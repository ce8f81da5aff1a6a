#include "host/commands/Colors.h"

#include "host/drawing/edit/GroupEditing.h"

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
    constexpr int RedShift = 16, GreenShift = 8, Byte = 0xFF;
    if (color.rgb)
        return QStringLiteral("RGB:%1,%2,%3")
            .arg(*color.rgb >> RedShift & Byte)
            .arg(*color.rgb >> GreenShift & Byte)
            .arg(*color.rgb & Byte)
            .toStdU16String();
    if (color.index == Color::ByLayer)
        return u"BYLAYER";
    return color.index == Color::ByBlock ? u"BYBLOCK" : QString::number(color.index).toStdU16String();
}

void setColor(drawing::GroupList &groups, const Color &color)
{
    drawing::removeGroups(groups, IndexCode);
    drawing::removeGroups(groups, TrueColorCode);
    drawing::removeGroups(groups, ColorNameCode);
    if (color.rgb)
        drawing::setGroupBehindLayer(groups, drawing::integerGroup(TrueColorCode, *color.rgb));
    else if (color.index != Color::ByLayer)
        drawing::setGroupBehindLayer(groups, drawing::integerGroup(IndexCode, color.index));
}

} // namespace commands
