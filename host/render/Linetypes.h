#pragma once

#include "host/drawing/Drawing.h"

#include <map>
#include <vector>

namespace render {

// One element of a linetype: a dash, a gap or a dot, and the text that stands at its end.
struct LinetypeElement
{
    double length = 0; // in drawing units; negative: a gap; 0: a dot
    std::u16string text;
    drawing::RecordId style = drawing::NoRecord; // of the text
    double scale = 1, rotation = 0;              // height of the text; radians, from the line or from the x axis
    double x = 0, y = 0;                         // where the text begins, along the line and across it
    bool isUpright = false;                      // the rotation is from the x axis
};

struct Linetype
{
    std::vector<LinetypeElement> elements; // empty: continuous
    double length = 0;                     // of all elements, gaps too
    bool isContinuous() const { return elements.empty(); }
};

// The linetypes of a drawing by name. One that the drawing does not have is continuous, and so is one whose elements
// have no length.
class Linetypes
{
public:
    explicit Linetypes(const drawing::Drawing &drawing) : m_drawing(drawing) {}

    const Linetype &of(const std::u16string &name) const; // stays valid

private:
    Linetype read(drawing::RecordId id) const;

    const drawing::Drawing &m_drawing;
    mutable std::map<std::u16string, Linetype> m_linetypes;
};

} // namespace render
