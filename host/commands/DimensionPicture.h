#pragma once

#include "host/commands/Context.h"
#include "host/commands/WorkPlane.h"

#include <optional>

namespace commands {

// What a dimension looks like: a block of lines, arrows and a text, drawn by the DIM… variables. Places are in the
// user's coordinates, in the plane of their x and y.
class DimensionPicture
{
public:
    explicit DimensionPicture(Context &context); // begins a new block with a name of its own

    const std::u16string &blockName() const { return m_name; }

    // A line from a measured place up to the dimension line and over it; nothing when it is suppressed.
    void extensionLine(const Vector &measured, const Vector &foot, std::u16string_view suppressor);
    // The line with its arrows between two places, and the text at its middle, along the line or at an angle of its
    // own (radians). Gives where the text stands.
    Vector dimensionLine(const Vector &first, const Vector &second, const std::u16string &text,
                         std::optional<double> textAngle);
    // An arrow at the place, from a text that stands away from it, level or at an angle.
    Vector leaderLine(const Vector &tip, const Vector &textSide, const std::u16string &text,
                      std::optional<double> textAngle);
    void definitionPoint(const Vector &place);
    void centreMark(const Vector &centre);

private:
    double size(std::u16string_view variable) const; // times DIMSCALE
    void line(const Vector &start, const Vector &end, std::u16string_view colour);
    void arrow(const Vector &tip, const Vector &towards);
    void text(const Vector &place, double angle, const std::u16string &string);
    double widthOf(const std::u16string &string) const;
    drawing::GroupList part(std::u16string type, std::u16string_view colour) const;
    void add(const drawing::GroupList &groups);

    Context &m_context;
    WorkPlane m_plane;
    std::u16string m_name;
    RecordId m_block;
};

} // namespace commands
