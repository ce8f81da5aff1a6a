#pragma once

#include "lisp/resbuf.h"

#include <optional>
#include <string>

// What a program asks of the person at the command line.
struct InputRequest
{
    enum class Kind { Point, Corner, Distance, Angle, Integer, Real, String, Keyword, Entity, Selection, Drag };

    Kind kind = Kind::String;
    std::u16string prompt; // shown as it stands
    // Where a distance, a direction or a rectangle begins, in the user's coordinate system.
    std::optional<LispPoint> base = {};
};

struct InputReply
{
    enum class Kind {
        Text,      // typed, then Enter; empty: Enter alone
        Picked,    // a place that was pointed at
        Cancelled, // Esc, or nobody there to answer
        Moved,     // the cursor's place during a drag, as "X,Y"
    };

    Kind kind = Kind::Cancelled;
    std::u16string text;
    LispPoint place = {}; // that was picked, in the user's coordinate system
};

// Where answers come from: an answers file, a terminal, a window. What an answer means is for the caller to find out.
class UserInput
{
public:
    virtual InputReply request(const InputRequest &request) = 0;

protected:
    ~UserInput() = default;
};
