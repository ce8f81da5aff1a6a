#include "host/drawing/edit/MultileaderTransform.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/RoleTransform.h"

#include <numbers>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

using enum GroupRole;

// What the entity shows stands in nests: in the context its content and its leaders, in each leader its lines.
struct Nest
{
    int begin, end;
    const char16_t *mark;
    std::span<const RoleRow> rows;
};

// The scale of the whole (45) multiplies the sizes of arrows (42) and of the block (10), which therefore stay what they
// are; the length of the landing (41) is as it is drawn.
constexpr RoleRow wholeRows[] = {{41, Length}, {45, Length}};
constexpr RoleRow contextRows[] = {
    {10, Place},     {40, Length},     {41, Length},     {140, Length},                // all
    {145, Length},                                                                     // landing gap
    {11, Direction}, {12, Place},      {13, Direction},                                // text
    {43, Length},    {44, Length},     {142, Length},    {143, Length}, {144, Length}, // its columns
    {14, Direction}, {15, Place},      {16, Length},                                   // block
    {110, Place},    {111, Direction}, {112, Direction},                               // plane
};
constexpr RoleRow leaderRows[] = {{10, Place}, {11, Direction}, {12, Place}, {13, Place}, {40, Length}};
constexpr RoleRow lineRows[] = {{10, Place}, {11, Place}, {12, Place}, {40, Length}};

constexpr Nest nests[] = {{300, 301, u"CONTEXT_DATA{", contextRows},
                          {302, 303, u"LEADER{", leaderRows},
                          {304, 305, u"LEADER_LINE{", lineRows}};

// Four rows of four numbers; the last column is the place.
Matrix matrixOf(std::span<double *const> numbers)
{
    const auto column = [numbers](std::size_t at) { return Vector{*numbers[at], *numbers[at + 4], *numbers[at + 8]}; };
    return {column(0), column(1), column(2), column(3)};
}

void setMatrix(std::span<double *const> numbers, const Matrix &matrix)
{
    const Vector columns[] = {matrix.x, matrix.y, matrix.z, matrix.origin};
    for (std::size_t at = 0; at < std::size(columns); ++at) {
        *numbers[at] = columns[at].x;
        *numbers[at + 4] = columns[at].y;
        *numbers[at + 8] = columns[at].z;
    }
}

// Angles are in radians.
double turned(const ObjectSimilarity &object, double angle)
{
    return geometry::radians(object.angle(angle * (180 / std::numbers::pi)));
}

class MultileaderWalk
{
public:
    MultileaderWalk(const GroupList &groups, const Similarity &similarity)
        : m_groups(groups), m_roles(similarity, {0, 0, 1}), m_text(similarity, {0, 0, 1}),
          m_block(similarity, {0, 0, 1})
    {
    }

    GroupList result()
    {
        for (Group &group : m_groups)
            if (group.code >= groupcode::ExtendedString)
                m_roles.applyExtended(group);
            else if (!changesNest(group))
                transform(group);
        if (m_blockMatrix.size() == MatrixSize)
            setMatrix(m_blockMatrix, m_roles.similarity().matrix * matrixOf(m_blockMatrix));
        if (m_hasText && m_text.mirrors())
            keepReadable();
        return std::move(m_groups);
    }

private:
    static constexpr std::size_t MatrixSize = 16;
    static constexpr std::size_t Whole = 0, Context = 1; // depths

    // Each nest is known only where it may stand: texts that look like the mark of one do not begin it.
    bool changesNest(const Group &group)
    {
        if (m_depth < std::size(nests) && group == textGroup(nests[m_depth].begin, nests[m_depth].mark)) {
            ++m_depth;
            return true;
        }
        const bool ends = m_depth > 0 && group.code == nests[m_depth - 1].end;
        m_depth -= ends ? 1 : 0;
        return ends;
    }

    void transform(Group &group)
    {
        if (m_depth == Context)
            readNormals(group);
        m_roles.apply(group, m_depth == Whole ? std::span<const RoleRow>(wholeRows) : nests[m_depth - 1].rows);
        if (m_depth <= Context)
            std::visit([&](auto &value) { transformContent(group.code, value); }, group.value);
    }

    void readNormals(const Group &group)
    {
        constexpr int TextNormal = 11, BlockNormal = 14;
        const auto *normal = std::get_if<Point>(&group.value);
        if (normal && (group.code == TextNormal || group.code == BlockNormal))
            (group.code == TextNormal ? m_text : m_block) =
                ObjectSimilarity(m_roles.similarity(), geometry::vectorOf(*normal));
    }

    bool isIn(std::size_t depth, int code, int wanted) const { return m_depth == depth && code == wanted; }

    void transformContent(int code, Point &point)
    {
        constexpr int BasePlace = 10, TextPlace = 12, TextDirection = 13, BlockScale = 16, WholeBlockScale = 10;
        if (isIn(Context, code, BasePlace))
            m_base = &point;
        else if (isIn(Context, code, TextPlace))
            m_textPlace = &point;
        else if (isIn(Context, code, TextDirection))
            m_textDirection = &point;
        else if (isIn(Context, code, BlockScale) || (m_hasBlock && isIn(Whole, code, WholeBlockScale)))
            mirrorScale(point);
    }

    void transformContent(int code, double &number)
    {
        constexpr int TextAngle = 42, BlockAngle = 46, BlockMatrix = 47, WholeBlockAngle = 43;
        if (isIn(Context, code, TextAngle))
            *(m_textAngle = &number) = turned(m_text, number);
        else if (isIn(Context, code, BlockAngle) || (m_hasBlock && isIn(Whole, code, WholeBlockAngle)))
            number = turned(m_block, number);
        else if (isIn(Context, code, BlockMatrix))
            m_blockMatrix.push_back(&number);
    }

    void transformContent(int code, std::int64_t &number)
    {
        enum Code : int {
            Attachment = 171,
            Alignment = 176,
            HasText = 290,
            HasBlock = 296,
            IsPlaneReversed = 297,
            WholeAlignment = 175,
            WholeAttachment = 179
        };
        if (isIn(Context, code, Attachment) || isIn(Whole, code, WholeAttachment))
            m_sides.push_back({&number, LeftAttachment});
        else if (isIn(Context, code, Alignment) || isIn(Whole, code, WholeAlignment))
            m_sides.push_back({&number, LeftAlignment});
        else if (isIn(Context, code, HasText))
            m_hasText = number != 0;
        else if (isIn(Context, code, HasBlock))
            m_hasBlock = number != 0;
        else if (isIn(Context, code, IsPlaneReversed) && m_roles.object().mirrors())
            number = number == 0 ? 1 : 0;
    }

    template <class Other> void transformContent(int, Other &) {}

    void mirrorScale(Point &scale) const
    {
        if (m_block.mirrors())
            scale.y = -scale.y;
    }

    // A mirrored text is not written backwards: where it would stand on its head it hangs on its base as before, else
    // its left and right change places.
    void keepReadable()
    {
        if (!m_textPlace || !m_textDirection)
            return;
        const Vector direction = geometry::vectorOf(*m_textDirection);
        if (isUpright(direction, m_text.extrusion()))
            return hangOnBase(cross(m_text.extrusion(), direction));
        setPlace(*m_textDirection, Vector{} - direction); // 0 stays 0, not -0
        if (m_textAngle)
            *m_textAngle = std::fmod(*m_textAngle + geometry::FullTurn / 2, geometry::FullTurn);
        for (const Side &side : m_sides)
            if (const std::int64_t right = side.left + 2; *side.value == side.left || *side.value == right)
                *side.value = side.left + right - *side.value;
    }

    void hangOnBase(const Vector &up) const
    {
        if (!m_base)
            return;
        const Vector place = geometry::vectorOf(*m_textPlace);
        setPlace(*m_textPlace, place - up * (2 * dot(place - geometry::vectorOf(*m_base), up)));
    }

    // A number that is this at the left, 1 more in the middle and 2 more at the right.
    struct Side
    {
        std::int64_t *value;
        std::int64_t left;
    };
    static constexpr std::int64_t LeftAlignment = 0, LeftAttachment = 1;

    GroupList m_groups;
    RoleTransform m_roles;
    ObjectSimilarity m_text, m_block;
    std::size_t m_depth = Whole;
    bool m_hasText = false, m_hasBlock = false;
    Point *m_base = nullptr, *m_textPlace = nullptr, *m_textDirection = nullptr;
    double *m_textAngle = nullptr;
    std::vector<double *> m_blockMatrix;
    std::vector<Side> m_sides;
};

} // namespace

GroupList transformedMultileader(const GroupList &groups, const Similarity &similarity)
{
    return MultileaderWalk(groups, similarity).result();
}

} // namespace drawing
