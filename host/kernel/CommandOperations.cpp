// Operations of the LISP interface on the command line.

#include "host/kernel/Document.h"

#include "host/kernel/drawing/EntityName.h"
#include "lisp/LispStatus.h"
#include "lisp/TypeCode.h"
#include "sdk/fx/CFxString.h"

using commands::CommandLine;
using commands::Input;

namespace {

std::optional<Input> inputOf(Document &document, const resbuf &token)
{
    switch (token.restype) {
    case TypeString:
        return CFxString::from_ansi_str(token.resval.narrowString).toQString().toStdU16String();
    case TypeShort:
    case TypeLong:
        return std::int64_t{token.resval.longInteger};
    case TypeReal:
        return token.resval.real;
    case TypePoint2d:
        return commands::Point{token.resval.point.x, token.resval.point.y, 0, 2};
    case TypePoint3d:
        return commands::Point{token.resval.point.x, token.resval.point.y, token.resval.point.z};
    case TypeEntity:
        return commands::PickedEntity{recordOf(document.drawing(), token.resval.name), std::nullopt};
    case TypeSelectionSet:
        if (const SelectionSet *set = document.selectionSets().find(token.resval.name))
            return set->entities();
        break;
    default:
        break;
    }
    return std::nullopt;
}

} // namespace

// No tokens are Esc. Nothing is run when a token is none that a command could take.
int SubstituteLispHost::commandNarrow(const resbuf *tokens)
{
    if (!m_machine.owner())
        return StatusError;
    Document &document = Document::of(m_machine);
    std::vector<Input> inputs;
    for (const resbuf *token = tokens; token; token = token->rbnext) {
        const std::optional<Input> input = inputOf(document, *token);
        if (!input)
            return StatusError;
        inputs.push_back(*input);
    }
    if (inputs.empty())
        document.commandLine().cancel();
    switch (document.commandLine().give(inputs)) {
    case CommandLine::Result::Taken:
        return StatusNormal;
    case CommandLine::Result::Cancelled:
        return StatusCancelled;
    case CommandLine::Result::Unknown:
        break;
    }
    return StatusError;
}
