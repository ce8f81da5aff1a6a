#pragma once

#include "host/drawing/Record.h"
#include "host/drawing/geometry/Vector.h"

#include <string>
#include <vector>

// What programs and commands show over the picture of the drawing, which stays as it is. This one shows nothing.
class DrawingOverlay
{
public:
    // The objects that a command has been given so far; none at its end.
    virtual void showSelected(const std::vector<drawing::RecordId> &) {}

    enum class Highlight { Off, On };
    virtual void setHighlight(drawing::RecordId, Highlight) {}

    // A line of a program, in the world; of a colour's number, a negative one contrasts with what lies below.
    struct Line
    {
        geometry::Vector from, to;
        int color;
        Highlight highlight;
    };
    virtual void add(const std::vector<Line> &) {}
    virtual void clear() {} // of lines and highlights

    virtual void showText(const std::u16string &) {} // of a program, for the status bar; empty: none any more

protected:
    ~DrawingOverlay() = default;
};

class NoDrawingOverlay final : public DrawingOverlay
{
};
