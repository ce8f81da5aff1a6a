#pragma once

#include "host/drawing/Record.h"
#include "host/drawing/geometry/Matrix.h"

#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

// What entities look like, exactly, in world coordinates.
namespace geometry {

struct Line
{
    Vector start, end;
    bool operator==(const Line &) const = default;
};

// Circles, ellipses and arcs of them: at parameter t, centre + scale(t) * (cos t * cosineAxis + sin t * sineAxis). In
// the ellipse's own frame the axes stand upright on each other; after a transformation with different scales they are
// any two conjugate half diameters, which changes nothing of the formula. The parameter grows from start to end by at
// most a full turn.
// The scale goes evenly from startScale to endScale. It is 1 but for the edges of a bent polyline segment whose width
// changes, which are spirals.
struct EllipticArc
{
    Vector centre, cosineAxis, sineAxis;
    double start = 0, end = FullTurn; // in radians
    double startScale = 1, endScale = 1;

    Vector at(double parameter) const;
    bool isFull() const { return end - start >= FullTurn && startScale == endScale; }
    bool operator==(const EllipticArc &) const = default;
};

// A rational B-spline; there are as many weights as points, all positive, and degree + 1 more knots, which never
// decrease. It goes from knot number `degree` to knot number `points.size()`.
struct Nurbs
{
    int degree = 3;
    std::vector<double> knots;
    std::vector<Vector> points;
    std::vector<double> weights;
    bool operator==(const Nurbs &) const = default;
};

using Curve = std::variant<Line, EllipticArc, Nurbs>;

Vector startOf(const Curve &curve);
Vector endOf(const Curve &curve);
Curve reversed(const Curve &curve);
Curve transformed(const Curve &curve, const Matrix &matrix);

// Curves that follow each other, as of a polyline. A closed one ends where it begins. Valid during the call it is
// given in.
struct Path
{
    std::span<const Curve> curves;
    bool isClosed = false;
};

// One family of parallel lines of a hatch, in world coordinates. Line number n goes through base + n * offset.
struct PatternLine
{
    Vector base, direction, offset;
    std::vector<double> dashes; // in lengths of `direction`, which is a unit vector before transformations; negative:
                                // gap; empty: unbroken
};

// A filled or hatched area. A place is inside when a line from it leaves through the loops an odd number of times.
struct Area
{
    using Loop = std::vector<Curve>; // closed; its ends may be apart by a rounding
    std::vector<Loop> loops;
    bool isFilled = true;             // else only its pattern
    bool hasOutline = false;          // its edges are seen too, as those of wide polylines; not those of hatches
    Loop spine;                       // of a wide polyline's segment: the segment itself, which is what is snapped to
    std::vector<PatternLine> pattern; // none where it is filled
};

// A face of three or four corners (then the last two are the same), not filled. Edge n goes from corner n to the next.
struct Face
{
    Vector corners[4];
    bool isEdgeVisible[4] = {true, true, true, true};
};

enum class HorizontalAlignment { Left, Centre, Right, Aligned, Middle, Fit };
enum class VerticalAlignment { Baseline, Bottom, Middle, Top };

// One line of text, with codes such as %%d, not measured: where its glyphs stand follows from the font (see
// TextLayouts.h). A glyph's place (u, v), in text heights from the insertion point, is at
// insertion + u * right + v * up.
struct Text
{
    std::u16string string;
    drawing::RecordId style = drawing::NoRecord; // the record of the text style, which names the font; or none
    Vector insertion, right, up;                 // right has the width factor, up the oblique angle
    HorizontalAlignment horizontal = HorizontalAlignment::Left;
    VerticalAlignment vertical = VerticalAlignment::Baseline;
    double span = 0; // Aligned and Fit: from point to point, in lengths of `right`
};

// Several lines of text with formatting codes, as in MTEXT.
struct Paragraphs
{
    std::u16string string; // with its codes
    drawing::RecordId style = drawing::NoRecord;
    Vector insertion, right, up; // one unit of each is a drawing unit, before transformations
    double height = 1;           // of a capital letter
    double width = 0;            // where lines are broken; 0: nowhere
    int attachment = 1;          // 1 to 9: top left, top centre, … bottom right
    double lineSpacing = 1;      // times 5/3 of the height
    bool isExactSpacing = false; // else a line grows with its tallest letter
};

// A raster image, or an area that hides what is below it. A pixel (u, v), from the lower left corner, is at
// insertion + u * right + v * up.
struct Image
{
    Vector insertion, right, up;
    double width = 0, height = 0;                     // in pixels
    std::vector<Vector> outline;                      // what is seen of it, in world coordinates
    drawing::RecordId definition = drawing::NoRecord; // the IMAGEDEF, which names the file
    bool isWipeout = false;
    bool isShown = true;
};

// A line without one end or without both. It has no extents.
struct Ray
{
    Vector origin, direction;
    bool isEndless = false; // also in the other direction
};

// A window of paper space that shows the model.
struct Window
{
    Vector corners[4];
    drawing::RecordId viewport = drawing::NoRecord;
};

} // namespace geometry
