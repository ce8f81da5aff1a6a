#pragma once

#include "host/drawing/Drawing.h"
#include "host/interpreter/Machine.h"
#include "lisp/resbuf.h"

#include <functional>
#include <optional>

// Records of a drawing as LISP lists, ((-1 . <Entity name: 1f>) (0 . "LINE") …), and back.

// Group codes that programs alone see.
inline constexpr int NameCode = -1, SecondNameCode = -2, ExtendedDataCode = -3;

// Which applications' extended data is wanted.
using ApplicationFilter = std::function<bool(std::u16string_view)>;

// The list of a record that is not erased; `name` is its entity name. With a filter, (-3 ("APP" (1000 . "text") …) …)
// stands last when there is such data.
lisp::Value entityList(lisp::Machine &machine, const drawing::Drawing &drawing, drawing::RecordId record,
                       lisp::Value name, const ApplicationFilter &filter = {});

// The list of a table record, as tblsearch and tblnext give it: no handle, no owner, no markers.
lisp::Value tableRecordList(lisp::Machine &machine, const drawing::Drawing &drawing, drawing::RecordId record);

// What a program's list says.
struct EntityRequest
{
    std::optional<LispName> name; // of its group -1
    drawing::GroupList groups;    // extended data at the end; without entity names of its own (-1, -2)
};

// Raises "bad DXF group: (62 . \"red\")" for a group that is none, or whose value is of the wrong kind.
EntityRequest entityRequest(lisp::Value list);

// One group of a list, without its meaning; nothing when it is none.
std::optional<drawing::Group> groupOf(lisp::Value pair);

// A handle, or bytes, as programs write them: "1F", "00FF". Nothing for another text.
std::optional<drawing::GroupValue> handleValue(std::u16string_view text);
std::optional<drawing::GroupValue> bytesValue(std::u16string_view text);
std::u16string handleText(drawing::Handle handle);
std::u16string bytesText(const drawing::Bytes &bytes);

// One group as a pair, (62 . 1), or a point, (10 1.0 2.0 0.0).
lisp::Value groupPair(lisp::Machine &machine, const drawing::Drawing &drawing, const drawing::Group &group);

// What group -2 is for this record: the first entity of a block, the polyline or insert of a SEQEND.
std::optional<drawing::RecordId> secondName(const drawing::Drawing &drawing, drawing::RecordId record);
