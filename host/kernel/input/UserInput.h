#pragma once

#include "host/drawing/Record.h"
#include "host/drawing/snap/Modes.h"
#include "lisp/LispHost.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

// Entities that follow the cursor.
struct Dragged
{
    std::vector<drawing::RecordId> entities;
    // Where they are shown while the cursor is at this place of the user's coordinate system; a transformation of the
    // world, of any kind.
    std::function<LispMatrix(const LispPoint &cursor)> transformAt;
};

// What a program asks of the person at the command line.
struct InputRequest
{
    enum class Kind { Point, Corner, Distance, Angle, Integer, Real, String, Keyword, Entity, Selection, Drag, Event };

    Kind kind = Kind::String;
    std::u16string prompt; // shown as it stands
    // Where a distance, a direction or a rectangle begins, in the user's coordinate system.
    std::optional<LispPoint> base = {};
    std::optional<snap::Modes> snap = {}; // shown instead of OSMODE's; who asks puts the place to them
    const Dragged *dragged = nullptr;     // of a drag
    bool tellsMoves = false;              // of an event: the cursor's moves count, too
};

struct InputReply
{
    enum class Kind {
        Text,      // typed, then Enter; empty: Enter alone. Of an event: a key, as the character that it types
        Picked,    // a place that was pointed at
        Cancelled, // Esc, or nobody there to answer
        Moved,     // the cursor's place, as "X,Y"; or `place` where the text is empty
    };

    Kind kind = Kind::Cancelled;
    std::u16string text;
    LispPoint place = {}; // in the user's coordinate system
};

// Where answers come from: an answers file, a terminal, a window. What an answer means is for the caller to find out.
class UserInput
{
public:
    virtual InputReply request(const InputRequest &request) = 0;

protected:
    ~UserInput() = default;
};
