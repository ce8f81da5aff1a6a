#pragma once

#include "host/drawing/geometry/Vector.h"

#include <cstdint>
#include <optional>

class Document;
class SystemVariables;

// The box around what the current space of a document holds, without what is on frozen layers. It is made when it is
// asked for, and anew only after a change.
class DrawingExtents
{
public:
    explicit DrawingExtents(Document &document) : m_document(document) {}

    const geometry::Box &box();

private:
    struct State
    {
        std::uint32_t drawing;
        std::uint64_t changeCount;
        bool isPaperSpace;

        bool operator==(const State &) const = default;
    };
    State currentState() const;

    Document &m_document;
    std::optional<State> m_state; // that the box is of
    geometry::Box m_box;
};

// EXTMIN and EXTMAX are its corners, or what they are at first where the space holds nothing.
void computeExtents(SystemVariables &variables, Document &document);
