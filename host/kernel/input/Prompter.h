#pragma once

#include "host/drawing/snap/Modes.h"
#include "host/interpreter/text/Keywords.h"
#include "host/kernel/input/PointText.h"
#include "host/kernel/input/UserInput.h"

#include <functional>
#include <utility>

struct HostServices;

// What initget asks for; it holds for one request.
struct InputOptions
{
    enum Bit : int {
        NoEmptyInput = 1,
        NoZero = 2,
        NoNegative = 4,
        ArbitraryInput = 128, // text that is neither value nor keyword is given as it stands
    };

    int bits = 0;
    lisp::Keywords keywords;
};

// Asks the person at the command line for a value of one kind, as the get… functions do: keywords and limits of initget
// hold for one request, what does not fit is complained about and asked again.
//
// Each request gives a status of LispStatus.h: StatusNormal with a value, StatusNoInput for Enter alone, StatusKeyword
// with lastInput(), StatusCancelled. The value is left alone unless the status is StatusNormal.
class Prompter
{
public:
    Prompter(HostServices &services, lisp::Machine &machine) : m_services(services), m_machine(machine) {}

    void initGet(int bits, std::u16string_view keywords) { m_options = {bits, lisp::Keywords(keywords)}; }

    // The next request takes text that is neither value nor keyword as it stands, instead of asking again.
    void letOtherInputThrough() { m_options.bits |= InputOptions::ArbitraryInput; }

    int integer(std::u16string_view prompt, std::int32_t &value); // -32768 to 32767
    int real(std::u16string_view prompt, double &value);
    // Text is never a keyword, and Enter alone is the empty text. Without blanks the text ends at the first one.
    int string(bool allowBlanks, std::u16string_view prompt, std::u16string &value);
    int keyword(std::u16string_view prompt); // the keyword is lastInput(), the status StatusNormal

    // Asks where what is dragged is shown for each place of the cursor until a point is picked there, which is one
    // more. Any other text ends the drag with StatusText: lastInput() is the keyword that it means, or the text as it
    // stands.
    int drag(std::u16string_view prompt, const Dragged &dragged, LispPoint &picked);

    // What the person does next, without a prompt. A typed point is a pick. Of other typed text each character is a key
    // of its own; Enter follows, unless it is a single character.
    struct Event
    {
        enum class Kind { Key, Pick, Move };
        Kind kind;
        char16_t key = 0;
        LispPoint place = {};
    };
    enum class Moves { Ignored, Told };
    int event(Moves moves, Event &event);

    // `base` may be null. It is where a rubber band begins.
    int point(std::u16string_view prompt, const LispPoint *base, LispPoint &value);
    int corner(std::u16string_view prompt, const LispPoint &base, LispPoint &value);
    int entity(std::u16string_view prompt, LispPoint &picked); // where the person has picked
    // A typed length, or that between the base, or a first point, and a point.
    int distance(std::u16string_view prompt, const LispPoint *base, double &value);
    // Radians from the angle base, as typed or by two points.
    int angle(std::u16string_view prompt, const LispPoint *base, double &value);
    // Radians counter-clockwise from the X axis, whatever the angle base is.
    int orientation(std::u16string_view prompt, const LispPoint *base, double &value);

    // The keyword, or the text that was let through as it stands, of the last request that gave StatusKeyword.
    const std::u16string &lastInput() const { return m_lastInput; }

    // How typed coordinates and angles are read at this moment.
    CoordinateContext context() const;

    LispPoint lastPoint{0, 0, 0}; // where "@" begins
    double angleBase = 0;         // radians
    // Puts a point to the place near it that was asked for by "_end" and the like, in front of the point; nothing:
    // there is no such place.
    using Snapper =
        std::function<std::optional<LispPoint>(const LispPoint &near, snap::Modes modes, const LispPoint &from)>;
    Snapper snapper;
    bool clockwise = false;

private:
    using Complaint = std::optional<std::u16string_view>;
    // Keeps the value that the answer says, or complains.
    using Reader = std::function<Complaint(const InputReply &reply)>;

    std::optional<LispPoint> pointOf(const InputReply &reply);
    std::optional<snap::Modes> snapOf(InputRequest::Kind kind, std::u16string_view text) const;

    int ask(const InputRequest &request, const InputOptions &options, const Reader &read);
    int askPoint(const InputRequest &request, LispPoint &value);
    int askSecondPoint(LispPoint first, LispPoint &second);
    int askDirection(std::u16string_view prompt, const LispPoint *base, double &direction);
    InputOptions takeOptions() { return std::exchange(m_options, {}); }

    HostServices &m_services;
    lisp::Machine &m_machine;
    InputOptions m_options;
    std::u16string m_lastInput;
    std::u16string m_keys;           // typed, but not told as events yet
    snap::Modes m_snap = snap::None; // for the next point
};
