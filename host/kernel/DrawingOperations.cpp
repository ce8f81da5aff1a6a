// Operations of the LISP interface on the drawing: entities, symbol tables, dictionaries.

#include "host/drawing/Dictionaries.h"
#include "host/drawing/entities/ExtendedData.h"
#include "host/drawing/geometry/Extents.h"
#include "host/kernel/Document.h"
#include "host/kernel/drawing/EntityName.h"
#include "host/kernel/drawing/EntityNodes.h"
#include "host/kernel/drawing/RecordModification.h"
#include "host/kernel/drawing/TableRecords.h"
#include "lisp/LispStatus.h"
#include "sdk/fx/CFxString.h"

#include <algorithm>

using drawing::Drawing;
using drawing::NoRecord;
using drawing::RecordId;

namespace {

// Null in a machine without a document.
Drawing *drawingOf(lisp::Machine &machine)
{
    return machine.owner() ? &Document::of(machine).drawing() : nullptr;
}

RecordId presentRecord(const Drawing *drawing, const LispName &name)
{
    const RecordId record = drawing ? recordOf(*drawing, name) : NoRecord;
    return record != NoRecord && !drawing->database().record(record).isGone() ? record : NoRecord;
}

ApplicationFilter filterOf(const resbuf *narrowNames)
{
    std::vector<std::u16string> names;
    for (const resbuf *node = narrowNames; node; node = node->rbnext)
        names.push_back(
            drawing::folded(CFxString::from_ansi_str(node->resval.narrowString).toQString().toStdU16String()));
    return [names](std::u16string_view name) {
        return std::find(names.begin(), names.end(), drawing::folded(name)) != names.end();
    };
}

} // namespace

int SubstituteLispHost::regApp(const char16_t *applicationName)
{
    Drawing *drawing = drawingOf(m_machine);
    return drawing && drawing::registerApplication(*drawing, applicationName) ? StatusNormal : StatusError;
}

// The list is the same whatever the second argument says.
resbuf *SubstituteLispHost::entGet(const LispName *entity, bool)
{
    const Drawing *drawing = drawingOf(m_machine);
    const RecordId record = presentRecord(drawing, *entity);
    if (record == NoRecord || !m_frame)
        return nullptr;
    return EntityNodes(m_pool, *m_frame, TextWidth::Wide, *drawing).record(record);
}

resbuf *SubstituteLispHost::entGetX(const LispName *entity, const resbuf *narrowApplicationNames, int)
{
    const Drawing *drawing = drawingOf(m_machine);
    const RecordId record = presentRecord(drawing, *entity);
    if (record == NoRecord || !m_frame)
        return nullptr;
    return EntityNodes(m_pool, *m_frame, TextWidth::Narrow, *drawing).record(record, filterOf(narrowApplicationNames));
}

int SubstituteLispHost::entMod(const resbuf *list)
{
    const Drawing *drawing = drawingOf(m_machine);
    const std::optional<EntityRequest> request = entityRequest(list);
    const RecordId record = request && request->name ? presentRecord(drawing, *request->name) : RecordId{NoRecord};
    const bool isModified = record != NoRecord && modifyRecord(Document::of(m_machine), record, request->groups);
    return isModified ? StatusNormal : StatusError;
}

// `next` moves on what tblnext gives next; no module reads that.
resbuf *SubstituteLispHost::tblSearch(const char16_t *table, const char16_t *name, int)
{
    const Drawing *drawing = drawingOf(m_machine);
    const std::optional<drawing::NameId> id = tableNamed(table);
    const RecordId record = drawing && id ? drawing->tables().find(*id, name) : RecordId{NoRecord};
    if (record == NoRecord || !m_frame)
        return nullptr;
    return EntityNodes(m_pool, *m_frame, TextWidth::Wide, *drawing).tableRecord(record);
}

resbuf *SubstituteLispHost::dictSearch(const LispName *dictionary, const char16_t *key, int)
{
    const Drawing *drawing = drawingOf(m_machine);
    const RecordId owner = presentRecord(drawing, *dictionary);
    const RecordId record = owner != NoRecord ? drawing::findEntry(drawing->database(), owner, key) : NoRecord;
    if (record == NoRecord || !m_frame)
        return nullptr;
    return EntityNodes(m_pool, *m_frame, TextWidth::Wide, *drawing).record(record);
}

int SubstituteLispHost::namedObjDict(LispName *dictionary)
{
    const Drawing *drawing = drawingOf(m_machine);
    const RecordId root = drawing ? drawing::namedObjects(drawing->database()) : RecordId{NoRecord};
    if (root == NoRecord)
        return StatusError;
    *dictionary = nodeName(*drawing, root);
    return StatusNormal;
}

int SubstituteLispHost::getEntityExtents(const LispName *entity, LispPoint *minimum, LispPoint *maximum)
{
    const Drawing *drawing = drawingOf(m_machine);
    const RecordId record = presentRecord(drawing, *entity);
    if (record == NoRecord)
        return StatusError;
    const auto box = Document::of(m_machine).openDrawing().measuredEntities.extentsOf(record);
    if (!box)
        return StatusError;
    *minimum = {box->minimum.x, box->minimum.y, box->minimum.z};
    *maximum = {box->maximum.x, box->maximum.y, box->maximum.z};
    return StatusNormal;
}
