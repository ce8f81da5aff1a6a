#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Matrix.h"
#include "host/drawing/geometry/Shapes.h"

namespace geometry {

// What a shape is a part of.
struct Origin
{
    drawing::RecordId entity = drawing::NoRecord; // whose groups describe it; of polylines the POLYLINE
    std::span<const drawing::RecordId> inserts;   // INSERTs and DIMENSIONs it stands in, the outermost first
    const Matrix *toWorld = nullptr;              // from the coordinates of what the entity stands in

    // What was asked for: a pick selects it.
    drawing::RecordId outermost() const { return inserts.empty() ? entity : inserts.front(); }
};

// Takes the shapes of an entity, in world coordinates and in drawing order. The shapes and the origin are valid during
// the call. What a sink does not care for it leaves out.
class ShapeSink
{
public:
    virtual ~ShapeSink() = default;
    virtual void path(const Path &, const Origin &) {}
    virtual void area(const Area &, const Origin &) {}
    virtual void face(const Face &, const Origin &) {}
    virtual void text(const Text &, const Origin &) {}
    virtual void paragraphs(const Paragraphs &, const Origin &) {}
    virtual void point(const Vector &, const Origin &) {}
    virtual void image(const Image &, const Origin &) {}
    virtual void ray(const Ray &, const Origin &) {}
    virtual void window(const Window &, const Origin &) {}

    // Whether each of the copies of an array is wanted, or only those in its corners, which have the same extents.
    virtual bool wantsEveryCopy() const { return true; }
};

// How much of the blocks may still be shown, of everything that is shown together. Each entity of a block counts as
// often as blocks stand around it: a few lines of a file, blocks in blocks in blocks, can show more than there is time
// for. What large drawings show of their blocks is far below.
struct BlockBudget
{
    explicit BlockBudget(const drawing::Database &database);

    std::size_t rest;
};

// Gives the shapes of an entity, which may be erased. Inserts are resolved, with their arrays and attributes; an
// insert of a block in itself, at whatever depth, is left out. Paper space is not looked at, nor visibility: invisible
// entities and layers are the caller's; but invisible attributes of an insert are left out, and the attribute
// definitions in its block.
//
// False when shapes were left out because there were too many for one entity, millions, or blocks nested hundreds deep,
// as in drawings made to hang programs, or where the budget was spent.
bool shapesOf(const drawing::Drawing &drawing, drawing::RecordId entity, ShapeSink &sink,
              BlockBudget *budget = nullptr);

} // namespace geometry
