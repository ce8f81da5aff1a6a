#include "host/commands/NewParagraphs.h"

#include <cmath>

namespace commands {

using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;

namespace {

// A file has long texts in pieces.
void addContent(GroupList &groups, const std::u16string &text)
{
    constexpr std::size_t Longest = 250;
    constexpr int PieceCode = 3, LastCode = 1;
    std::size_t place = 0;
    for (; text.size() - place > Longest; place += Longest)
        groups.push_back(textGroup(PieceCode, text.substr(place, Longest)));
    groups.push_back(textGroup(LastCode, text.substr(place)));
}

} // namespace

RecordId addParagraphs(Context &context, const Paragraphs &paragraphs)
{
    const WorkPlane plane(context.session());
    const Vector along =
        plane.world({std::cos(paragraphs.rotation), std::sin(paragraphs.rotation), 0}) - plane.world({});
    GroupList groups = newEntity(context, u"MTEXT");
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbMText"));
    groups.push_back(pointGroup(10, plane.world(paragraphs.place)));
    groups.push_back(realGroup(40, paragraphs.height));
    groups.push_back(realGroup(41, paragraphs.width));
    groups.push_back(integerGroup(71, paragraphs.attachment));
    groups.push_back(integerGroup(72, 5)); // the flow of the text as the style has it
    addContent(groups, paragraphs.text);
    groups.push_back(textGroup(7, paragraphs.style));
    if (plane.normal() != Vector{0, 0, 1})
        groups.push_back(pointGroup(210, plane.normal()));
    groups.push_back(pointGroup(11, along));
    groups.push_back(integerGroup(73, paragraphs.spacingStyle));
    groups.push_back(realGroup(44, paragraphs.spacing));
    return addEntity(context, groups);
}

Task<std::u16string> askParagraphs(Context &context, const std::u16string_view prompt)
{
    std::u16string text;
    for (;;) {
        const auto line = co_await context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
        if (line.isNothing())
            co_return text;
        text += (text.empty() ? u"" : u"\\P") + line.value;
    }
}

} // namespace commands
