#pragma once

#include "host/kernel/variables/VariableTable.h"
#include "lisp/resbuf.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <variant>

inline bool operator==(const LispPoint &a, const LispPoint &b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

// A point of two coordinates has z 0.
using VariableValue = std::variant<int, double, std::u16string, LispPoint>;

// The system variables of one document: what getvar reads and setvar changes.
class SystemVariables
{
public:
    SystemVariables();
    SystemVariables(const SystemVariables &) = delete;
    SystemVariables &operator=(const SystemVariables &) = delete;

    // The variable must exist (see findVariable).
    VariableValue get(const VariableRow &variable) const;
    // False when the variable is read-only, or the value is of another kind, or not allowed by its rule. An integer
    // will do for a real. What the variable is already, and what the drawing was opened with, is always allowed:
    // programs put back what they have found, and a drawing may have brought anything.
    bool set(const VariableRow &variable, const VariableValue &value);
    // What the host itself knows better: the variable is what `read` gives. Without `write` it cannot be set, nor when
    // that gives false.
    using Write = std::function<bool(const VariableValue &)>;
    void compute(std::u16string_view name, std::function<VariableValue()> read, Write write = nullptr);
    bool isComputed(const VariableRow &variable) const;
    // For the host: changes read-only variables, too. The value has to be of the variable's kind.
    void assign(std::u16string_view name, const VariableValue &value);
    // What a drawing has: range and access do not count, a value of another kind is passed over.
    void load(const VariableRow &variable, const VariableValue &value);
    // Before another drawing is loaded: its variables are as in a new one until it says otherwise.
    void forgetDrawing();
    // What spells a name as the drawing does; none: there is no such thing, or it cannot be used. Without it any name
    // will do.
    using Spelling = std::function<std::optional<std::u16string>(NameOf, std::u16string_view)>;
    void spellNames(Spelling spelling) { m_spelling = std::move(spelling); }
    // Is told each value that set() has given to a variable of the drawing.
    void keepInDrawing(std::function<void(const VariableRow &, const VariableValue &)> keep)
    {
        m_keep = std::move(keep);
    }
    // The value is kept where a part of the host uses it, and stays in step with it. The variable's kind must fit.
    void bind(std::u16string_view name, int &place);
    void bind(std::u16string_view name, double &place);
    void bind(std::u16string_view name, LispPoint &place);
    void bind(std::u16string_view name, bool &place);

private:
    struct Source
    {
        std::function<VariableValue()> read;
        Write write; // none: read-only
        bool isPlace = false;
    };
    bool hasBeenFound(const VariableRow &variable, const VariableValue &value) const;
    std::optional<VariableValue> fitting(const VariableRow &variable, const VariableValue &value) const;
    bool store(const VariableRow &variable, const VariableValue &value); // false: it cannot be written
    template <class Place> void bindPlace(std::u16string_view name, Place &place);

    std::map<const VariableRow *, Source> m_sources;       // of those that live elsewhere
    std::map<const VariableRow *, VariableValue> m_values; // of those that live here
    std::map<const VariableRow *, VariableValue> m_opened; // what the drawing was opened with
    Spelling m_spelling;
    std::function<void(const VariableRow &, const VariableValue &)> m_keep;
};
