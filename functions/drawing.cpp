#include "functions/drawing.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/CommandLine.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "sdk/fx/CFxAPI.h"
#include "sdk/oda/OdDbAttributeDefinition.h"

namespace {

constexpr int DictionaryEntryName = 3; // the group code in the data of a dictionary

// Makes the host's previous selection an empty one: a line is drawn, selected, which makes it the previous selection,
// and erased.
resbuf *buildClearingCommands()
{
    return activeLispHost()->buildListNarrow(TypeString, "_.line", TypeString, "0,0", TypeString, "0,0", TypeString,
                                             " ", TypeString, "_.select", TypeString, "_l", TypeString, " ", TypeString,
                                             "_.erase", TypeNone);
}

QStringList entryNames(const resbuf *dictionaryData)
{
    QStringList names;
    for (const resbuf *node = dictionaryData; node != nullptr; node = node->rbnext) {
        if (node->restype == DictionaryEntryName)
            names.append(textOf(node));
    }
    return names;
}

} // namespace

int acetEntGeomextents()
{
    resbuf *entityNode = checkArgument(TypeEntity, activeLispHost()->getArgs());
    if (entityNode == nullptr)
        return StatusNormal;
    LispPoint minimum{};
    LispPoint maximum{};
    if (activeLispHost()->getEntityExtents(&entityNode->resval.name, &minimum, &maximum) == StatusNormal) {
        const resbuf *corners =
            activeLispHost()->buildList(TypePoint3d, &minimum, TypePoint3d, &maximum, 0); // the interpreter reclaims it
        activeLispHost()->retList(corners);
    } else {
        failWith("\nError: Could not get the boundingBox of the entity.");
    }
    activeLispHost()->releaseRb(entityNode);
    return StatusNormal;
}

int acetSsClearPrev()
{
    // With "pickfirst" on, erase takes the line that select has left selected.
    static constexpr char16_t PickFirst[] = u"pickfirst";
    resbuf *on = activeLispHost()->newRb(TypeShort);
    on->resval.longInteger = 1;
    resbuf *saved = activeLispHost()->newRb(TypeShort);
    activeLispHost()->getVar(PickFirst, saved);
    activeLispHost()->setVar(PickFirst, on);
    resbuf *commands = buildClearingCommands();
    activeLispHost()->commandNarrow(commands);
    activeLispHost()->setVar(PickFirst, saved);
    activeLispHost()->releaseRbNarrow(commands);
    activeLispHost()->releaseRb(on);
    activeLispHost()->releaseRb(saved);
    return StatusNormal;
}

int layoutlist()
{
    LispName dictionary{};
    if (activeLispHost()->namedObjDict(&dictionary) != StatusNormal)
        return StatusNormal;
    resbuf *layouts = activeLispHost()->dictSearch(&dictionary, u"ACAD_LAYOUT", 1);
    if (layouts == nullptr)
        return StatusNormal;
    resbuf *result = listOfNames(entryNames(layouts));
    activeLispHost()->releaseRb(nullptr);
    activeLispHost()->releaseRb(layouts);
    activeLispHost()->retVal(result);
    activeLispHost()->releaseRb(result);
    return StatusNormal;
}

int vornsUtil()
{
    const resbuf *entityNode = checkArgument(TypeEntity, activeLispHost()->getArgs());
    if (entityNode == nullptr)
        return StatusNormal;
    resbuf *flagNode = entityNode->rbnext;
    const bool isFlagged = flagNode != nullptr && flagNode->restype == TypeShort; // whatever its value
    const OdDbEntityPtr entity = CFxAPI::GetObjectId(entityNode->resval.name).openObject();
    if (dynamic_cast<const OdDbAttributeDefinition *>(entity.get()) != nullptr) {
        if (!isFlagged)
            returnTruth(OdDbAttributeDefinitionPtr(entity)->isMTextAttributeDefinition());
    } else {
        activeLispHost()->retNil();
        activeLispHost()->releaseRb(flagNode); // the entity's node stays
    }
    return StatusNormal;
}
