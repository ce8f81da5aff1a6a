#include "host/text/Layout.h"

#include "host/text/CodeReader.h"

namespace text {

namespace {

constexpr double UnderBase = -0.2, OverCapitals = 1.2, ThroughLetters = 0.5;

// A line that is switched on and off while letters are set.
struct Switch
{
    char16_t code;
    double height;
    std::optional<double> since = std::nullopt;
};

bool toggle(CodeReader &reader, Switch &line, Layout &layout)
{
    if (reader.ahead() != u'%' || reader.ahead(1) != u'%' || (reader.ahead(2) | 0x20) != line.code)
        return false;
    reader.skip(3);
    if (line.since)
        layout.rules.push_back({{*line.since, line.height}, {layout.width, line.height}});
    line.since = line.since ? std::nullopt : std::optional(layout.width);
    return true;
}

} // namespace

void Layout::append(const Layout &other, const Place &by)
{
    for (PlacedGlyph glyph : other.glyphs) {
        glyph.at = {glyph.at.x + by.x, glyph.at.y + by.y};
        glyphs.push_back(glyph);
    }
    for (const Rule &rule : other.rules)
        rules.push_back({{rule.from.x + by.x, rule.from.y + by.y}, {rule.to.x + by.x, rule.to.y + by.y}, rule.color});
}

Bounds Layout::bounds() const
{
    Bounds all;
    for (const PlacedGlyph &placed : glyphs) {
        const Bounds &own = placed.glyph->bounds;
        if (own.isEmpty())
            continue;
        for (const Place &corner : {Place{own.left, own.bottom}, Place{own.right, own.bottom},
                                    Place{own.right, own.top}, Place{own.left, own.top}})
            all.add(placed.place(corner));
    }
    return all;
}

Layout layOutLine(std::u16string_view string, const FontName &font)
{
    const Face &face = faceFor(font);
    Layout layout;
    Switch lines[] = {{u'u', UnderBase}, {u'o', OverCapitals}, {u'k', ThroughLetters}};
    for (CodeReader reader(string); !reader.isAtEnd();) {
        if (toggle(reader, lines[0], layout) || toggle(reader, lines[1], layout) || toggle(reader, lines[2], layout))
            continue;
        const auto special = reader.specialCharacter();
        const Glyph &glyph = face.glyph(special ? *special : reader.character());
        layout.glyphs.push_back({&glyph, {layout.width, 0}});
        layout.width += glyph.advance;
    }
    for (const Switch &line : lines)
        if (line.since)
            layout.rules.push_back({{*line.since, line.height}, {layout.width, line.height}});
    return layout;
}

} // namespace text
