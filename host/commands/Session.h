#pragma once

#include "host/commands/Input.h"
#include "host/commands/PlotJob.h"
#include "host/drawing/Drawing.h"
#include "host/drawing/snap/Modes.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace selection {
class EntityIndex;
}

namespace commands {

using VariableValue = std::variant<int, double, std::u16string, Point>;

// What the command line needs of the document that it belongs to. Variables are named in capitals and exist.
class Session
{
public:
    virtual drawing::Drawing &drawing() = 0;
    virtual selection::EntityIndex &entityIndex() = 0; // of drawing()
    virtual void openDrawing(const QString &path) = 0; // throws drawing::ReadError; replaces what drawing() gives

    // Draws into a file. False, with a reason, when it cannot be.
    virtual bool plot(const PlotJob &job, std::u16string &failure) = 0;

    virtual std::optional<VariableValue>
    variable(std::u16string_view name) const = 0;                                  // none: there is no such variable
    virtual void assign(std::u16string_view name, const VariableValue &value) = 0; // read-only ones too
    virtual bool set(std::u16string_view name, const VariableValue &value) = 0;    // as setvar; false: refused

    virtual void readVariables() = 0; // those of the drawing, whose header has changed by undo

    virtual bool isPaperSpaceCurrent() const = 0;          // else entities go to the model
    virtual drawing::RecordId currentViewport() const = 0; // that the model is worked on through; NoRecord: none
    // While a layout is shown: the model is worked on in it (false: the layout has no viewport), or its paper.
    virtual bool workThroughViewport() = 0;
    virtual void workOnPaper() = 0;

    // Typed texts, in the current units; "@" begins at LASTPOINT.
    virtual std::optional<Point> pointOf(std::u16string_view text) const = 0;
    virtual std::optional<double> distanceOf(std::u16string_view text) const = 0;
    virtual std::optional<double>
    angleOf(std::u16string_view text) const = 0; // radians counter-clockwise, not from ANGBASE
    virtual std::u16string distanceText(double distance) const = 0;
    virtual std::u16string angleText(double angle) const = 0; // the other way of angleOf()

    // The path of a file, which is looked for as programs are. None: it is not there.
    virtual std::optional<QString> findFile(const std::u16string &name) const = 0;
    // The text of a script file, found so; the ending may be left out. None: it cannot be read.
    virtual std::optional<std::u16string> scriptText(const std::u16string &name) = 0;
    // A LISP expression that was typed: its value as an answer, none for nil. False when it failed, which is shown.
    virtual bool evaluate(const std::u16string &expression, std::optional<Input> &answer) = 0;

    virtual void print(std::u16string_view text) = 0;
    // What a person answers; none: the request was cancelled. Shows the prompt and the answer itself. The base is where
    // distances, directions and rectangles begin; the snaps are shown instead of OSMODE's, and put to use by who asks.
    virtual std::optional<Input> request(InputKind kind, const std::u16string &prompt, const std::optional<Point> &base,
                                         const std::optional<snap::Modes> &snap) = 0;

    // The entities that "Previous" means; some may be erased. The implied ones are selected before a command begins.
    virtual const Selection &previousSelection() const = 0;
    virtual void setPreviousSelection(Selection selection) = 0;
    virtual Selection takeImpliedSelection() = 0;
    virtual void setImpliedSelection(Selection selection) = 0;

    // Lets a window live on; for everything that goes through many entities, called at each of them. Neither
    // the drawing nor a selection changes meanwhile.
    virtual void pulse() = 0;
    // What the running command has been given so far, for the person to see; none at its end.
    virtual void showSelected(const Selection &entities) = 0;

    int integer(std::u16string_view name) const { return std::get<int>(*variable(name)); }
    double real(std::u16string_view name) const { return std::get<double>(*variable(name)); }
    std::u16string text(std::u16string_view name) const { return std::get<std::u16string>(*variable(name)); }
    Point point(std::u16string_view name) const { return std::get<Point>(*variable(name)); }

protected:
    ~Session() = default;
};

} // namespace commands
