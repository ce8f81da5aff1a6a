// DIMCONTINUE and DIMBASELINE, and the same within DIM and DIM1: dimensions that go on from another one.

#include "host/commands/Commands.h"
#include "host/commands/DimensionKinds.h"
#include "host/commands/DimensionVariables.h"
#include "host/commands/LinearDimension.h"

namespace commands {

namespace {

// The next one begins where the last one ends, on the same dimension line; or it begins where the last one does, on a
// line further away from what is measured.
LinearDimension following(Context &context, Chain chain, const LinearDimension &last, const Vector &place)
{
    LinearDimension next = last;
    next.label = {};
    next.second = place;
    if (chain == Chain::Continued) {
        next.first = last.second;
        return next;
    }
    const Vector across = last.across();
    const double side = dot(last.at - last.first, across) < 0 ? -1 : 1;
    next.at += across * (side * currentStyle(context).lineStep);
    return next;
}

// None for Enter.
Task<std::optional<LinearDimension>> askBase(Context &context, Chain chain)
{
    const std::u16string_view prompt =
        chain == Chain::Continued ? u"Select continued dimension: " : u"Select base dimension: ";
    for (;;) {
        const auto picked = co_await context.ask().entity({prompt});
        if (picked.isNothing())
            co_return std::nullopt;
        std::optional<LinearDimension> base = linearDimension(context, picked.value.entity);
        if (base)
            co_return base;
        context.session().print(u"\nObject selected is not a linear dimension.\n");
    }
}

struct Link
{
    LinearDimension dimension;
    RecordId entity = drawing::NoRecord; // that was made; none: it was there
};

} // namespace

Command chainDimensions(Context &context, Chain chain, TextQuestion question)
{
    std::optional<LinearDimension> base = linearDimension(context, context.memory().dimension);
    if (!base)
        base = co_await askBase(context, chain);
    if (!base)
        co_return;
    std::vector<Link> links{{*base}};
    for (;;) {
        const auto place = co_await context.ask().point(
            {u"Specify second extension line origin or [Select/Undo] <Select>: ", u"Select Undo"});
        if (place.is(u"Undo")) {
            if (links.back().entity == drawing::NoRecord)
                continue;
            context.database().erase(links.back().entity);
            links.pop_back();
            context.memory().dimension = links.back().entity;
            continue;
        }
        if (!place.hasValue()) {
            base = co_await askBase(context, chain);
            if (!base)
                co_return;
            links.push_back({*base});
            continue;
        }
        LinearDimension next = following(context, chain, links.back().dimension, geometry::vectorOf(place.value));
        if (question == TextQuestion::AtEnd)
            next.label.text = co_await askDimensionText(context, shownLength(context, next));
        links.push_back({next, addLinear(context, next)});
        if (question == TextQuestion::AtEnd)
            co_return;
    }
}

Command dimensionContinue(Context &context)
{
    return chainDimensions(context, Chain::Continued, TextQuestion::AsOption);
}

Command dimensionBaseline(Context &context)
{
    return chainDimensions(context, Chain::FromBase, TextQuestion::AsOption);
}

} // namespace commands
