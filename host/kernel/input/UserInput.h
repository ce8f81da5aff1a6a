#pragma once

#include <string>

// What a program asks of the person at the command line.
struct InputRequest
{
    enum class Kind { Point, Corner, Distance, Angle, Integer, Real, String, Keyword, Entity, Selection, Drag };

    Kind kind = Kind::String;
    std::u16string prompt; // shown as it stands
};

struct InputReply
{
    enum class Kind {
        Text,      // typed, then Enter; empty: Enter alone
        Cancelled, // Esc, or nobody there to answer
        Moved,     // the cursor's place during a drag, as "X,Y"
    };

    Kind kind = Kind::Cancelled;
    std::u16string text;
};

// Where answers come from: an answers file, a terminal, a window. What an answer means is for the caller to find out.
class UserInput
{
public:
    virtual InputReply request(const InputRequest &request) = 0;

protected:
    ~UserInput() = default;
};
