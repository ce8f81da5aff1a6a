#include "host/kernel/selection/SelectionFilter.h"

#include "host/drawing/entities/EntityListing.h"
#include "host/drawing/entities/EntityPlace.h"
#include "host/drawing/entities/EntitySchema.h"
#include "host/drawing/entities/ExtendedData.h"
#include "host/drawing/entities/ListedCodes.h"
#include "host/interpreter/Builtins.h"
#include "host/interpreter/text/WildcardPattern.h"
#include "host/kernel/drawing/EntityData.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

using drawing::Drawing;
using drawing::Group;
using drawing::GroupValue;
using drawing::NameId;
using drawing::Point;
using drawing::Record;
using drawing::RecordId;
using lisp::Value;
using lisp::WildcardPattern;

namespace groupcode = drawing::groupcode;

class SelectionFilter::Condition
{
public:
    virtual ~Condition() = default;
    virtual bool holds(const Drawing &drawing, RecordId entity) const = 0;
};

namespace {

using Condition = SelectionFilter::Condition;
using Conditions = std::vector<std::unique_ptr<Condition>>;

constexpr int OperatorCode = -4, LayoutCode = 410;
constexpr double Fuzz = 1e-8; // numbers of a file and of a program are equal when they differ by less, relatively

[[noreturn]] void badList()
{
    lisp::fail(u"bad SSGET list");
}

enum class Logic { And, Or, Xor, Not };

class Combination final : public Condition
{
public:
    Combination(Logic logic, Conditions parts) : m_logic(logic), m_parts(std::move(parts)) {}

    bool holds(const Drawing &drawing, RecordId entity) const override
    {
        const auto holds = [&](const auto &part) { return part->holds(drawing, entity); };
        switch (m_logic) {
        case Logic::And:
            return std::ranges::all_of(m_parts, holds);
        case Logic::Or:
            return std::ranges::any_of(m_parts, holds);
        case Logic::Xor:
            return holds(m_parts[0]) != holds(m_parts[1]);
        case Logic::Not:
            break;
        }
        return !holds(m_parts[0]);
    }

private:
    Logic m_logic;
    Conditions m_parts;
};

// Names that the database has numbers for are matched once each.
class NameCondition final : public Condition
{
public:
    NameCondition(std::u16string_view pattern, NameId Record::*name) : m_pattern(drawing::folded(pattern)), m_name(name)
    {
    }

    bool holds(const Drawing &drawing, RecordId entity) const override
    {
        const NameId name = drawing.database().record(entity).*m_name;
        if (name >= m_answers.size())
            m_answers.resize(name + 1, Answer::Unknown);
        if (m_answers[name] == Answer::Unknown)
            m_answers[name] = matches(drawing.database(), name) ? Answer::Yes : Answer::No;
        return m_answers[name] == Answer::Yes;
    }

private:
    enum class Answer : std::uint8_t { Unknown, No, Yes };

    bool matches(const drawing::Database &database, NameId name) const
    {
        return m_pattern.matches(drawing::folded(database.codec().decode(database.names().text(name))));
    }

    WildcardPattern m_pattern;
    NameId Record::*m_name;
    mutable std::vector<Answer> m_answers; // by the name's number
};

class LayoutCondition final : public Condition
{
public:
    explicit LayoutCondition(std::u16string_view pattern) : m_pattern(drawing::folded(pattern)) {}
    bool holds(const Drawing &drawing, RecordId entity) const override
    {
        return m_pattern.matches(drawing::folded(drawing::layoutOf(drawing, entity)));
    }

private:
    WildcardPattern m_pattern;
};

class ApplicationCondition final : public Condition
{
public:
    explicit ApplicationCondition(std::u16string_view pattern) : m_pattern(drawing::folded(pattern)) {}
    bool holds(const Drawing &drawing, RecordId entity) const override
    {
        return !drawing::extendedData(drawing, entity, [this](std::u16string_view name) {
                    return m_pattern.matches(drawing::folded(name));
                }).empty();
    }

private:
    WildcardPattern m_pattern;
};

enum class Relation { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Any, SomeBits, AllBits };

std::optional<Relation> relationNamed(std::u16string_view name)
{
    static const std::unordered_map<std::u16string_view, Relation> relations = {
        {u"=", Relation::Equal},     {u"!=", Relation::NotEqual},
        {u"/=", Relation::NotEqual}, {u"<>", Relation::NotEqual},
        {u"<", Relation::Less},      {u"<=", Relation::LessOrEqual},
        {u">", Relation::Greater},   {u">=", Relation::GreaterOrEqual},
        {u"*", Relation::Any},       {u"&", Relation::SomeBits},
        {u"&=", Relation::AllBits}};
    const auto found = relations.find(name);
    return found != relations.end() ? std::optional(found->second) : std::nullopt;
}

bool areEqual(double left, double right)
{
    return std::abs(left - right) <= Fuzz * std::max({1.0, std::abs(left), std::abs(right)});
}

bool isTrue(Relation relation, double left, double right)
{
    const auto bits = [](double number) { return static_cast<std::int64_t>(number); };
    switch (relation) {
    case Relation::Equal:
        return areEqual(left, right);
    case Relation::NotEqual:
        return !areEqual(left, right);
    case Relation::Less:
        return left < right;
    case Relation::LessOrEqual:
        return left < right || areEqual(left, right);
    case Relation::Greater:
        return left > right;
    case Relation::GreaterOrEqual:
        return left > right || areEqual(left, right);
    case Relation::Any:
        return true;
    case Relation::SomeBits:
        return (bits(left) & bits(right)) != 0;
    case Relation::AllBits:
        break;
    }
    return (bits(left) & bits(right)) == bits(right);
}

// One for each coordinate; a single one is for all.
using Relations = std::vector<Relation>;

Relations relationsNamed(std::u16string_view names)
{
    Relations relations;
    while (true) {
        const std::size_t comma = names.find(u',');
        const std::optional<Relation> relation = relationNamed(names.substr(0, comma));
        if (!relation)
            badList();
        relations.push_back(*relation);
        if (comma == names.npos)
            return relations;
        names.remove_prefix(comma + 1);
    }
}

// What a group means that any entity may leave out, and that its listing leaves out, too.
std::optional<GroupValue> impliedValue(int code)
{
    constexpr int Linetype = 6, Thickness = 39, LinetypeScale = 48, Visibility = 60, Color = 62, Lineweight = 370,
                  Extrusion = 210;
    switch (code) {
    case Linetype:
        return u"BYLAYER";
    case Thickness:
        return 0.0;
    case LinetypeScale:
        return 1.0;
    case Visibility:
        return std::int64_t{0};
    case Color:
        return std::int64_t{256};
    case Lineweight:
        return std::int64_t{-1};
    case Extrusion:
        return Point{0, 0, 1};
    default:
        return std::nullopt;
    }
}

class GroupCondition final : public Condition
{
public:
    GroupCondition(Group group, Relations relations) : m_group(std::move(group)), m_relations(std::move(relations))
    {
        if (const auto *text = std::get_if<std::u16string>(&m_group.value))
            m_pattern = WildcardPattern(isName() ? drawing::folded(*text) : *text);
    }

    bool holds(const Drawing &drawing, RecordId entity) const override
    {
        if (m_group.code == groupcode::Space)
            return fits(std::int64_t{drawing.database().record(entity).has(Record::PaperSpace)});
        bool isThere = false;
        drawing::GroupReader reader = drawing.database().reader(entity);
        for (drawing::Item item; reader.next(item);) {
            if (item.code != m_group.code)
                continue;
            isThere = true;
            if (fits(drawing::inRadians(reader.group(item)).value))
                return true;
        }
        const drawing::SchemaRow *row = rowWithDefault(drawing, entity);
        if (isThere && !(row && row->repeatsAfterVertex))
            return false;
        if (row)
            return fitsDefault(drawing, entity);
        const std::optional<GroupValue> implied = impliedValue(m_group.code);
        return implied && fits(*implied);
    }

private:
    // Null for types whose listing has the group only where the entity has it: to list an entity takes long.
    const drawing::SchemaRow *rowWithDefault(const Drawing &drawing, RecordId entity) const
    {
        const drawing::Database &database = drawing.database();
        const auto *schema = drawing::schemaOf(database.names().text(database.record(entity).type));
        return schema ? schema->rowWithDefault(m_group.code) : nullptr;
    }

    // Programs choose by what entget shows them.
    bool fitsDefault(const Drawing &drawing, RecordId entity) const
    {
        const drawing::EntityListing listing(drawing, entity);
        for (const drawing::ListedItem listed : listing)
            if (listed.origin == drawing::ListedItem::Derived && listed.item.code == m_group.code &&
                fits(listing.group(listed).value))
                return true;
        return false;
    }

    bool isName() const { return m_group.code >= groupcode::Name && m_group.code < groupcode::VariableName; }

    bool fits(const GroupValue &value) const
    {
        const Relation relation = m_relations.front();
        if (const auto *text = std::get_if<std::u16string>(&value))
            return m_pattern && textFits(*text, relation);
        if (const auto *point = std::get_if<Point>(&value))
            return pointFits(*point);
        const std::optional<double> left = numberOf(value), right = numberOf(m_group.value);
        if (left && right)
            return isTrue(relation, *left, *right);
        return value == m_group.value;
    }

    bool textFits(const std::u16string &text, Relation relation) const
    {
        const bool matches = m_pattern->matches(isName() ? drawing::folded(text) : text);
        return relation == Relation::Any || matches == (relation != Relation::NotEqual);
    }

    bool pointFits(const Point &point) const
    {
        const auto *wanted = std::get_if<Point>(&m_group.value);
        if (!wanted)
            return false;
        const double left[] = {point.x, point.y, point.z}, right[] = {wanted->x, wanted->y, wanted->z};
        if (m_relations.size() == 1 && m_relations.front() == Relation::NotEqual)
            return !areEqual(left[0], right[0]) || !areEqual(left[1], right[1]) || !areEqual(left[2], right[2]);
        const int count = std::min(point.dimensions, wanted->dimensions);
        for (int i = 0; i < count; ++i) {
            const std::size_t index = std::min<std::size_t>(static_cast<std::size_t>(i), m_relations.size() - 1);
            const bool isNamed = m_relations.size() == 1 || static_cast<std::size_t>(i) < m_relations.size();
            if (isNamed && !isTrue(m_relations[index], left[i], right[i]))
                return false;
        }
        return true;
    }

    static std::optional<double> numberOf(const GroupValue &value)
    {
        if (const auto *integer = std::get_if<std::int64_t>(&value))
            return static_cast<double>(*integer);
        const auto *real = std::get_if<double>(&value);
        return real ? std::optional(*real) : std::nullopt;
    }

    Group m_group;
    Relations m_relations;
    std::optional<WildcardPattern> m_pattern;
};

// Operators that begin and end a combination. All others are relations, which may have the same signs: "<,<,*".
struct Bracket
{
    std::u16string_view begin, end;
    Logic logic;
    std::size_t least, most; // conditions inside
};
constexpr Bracket brackets[] = {{u"<AND", u"AND>", Logic::And, 1, SIZE_MAX},
                                {u"<OR", u"OR>", Logic::Or, 1, SIZE_MAX},
                                {u"<XOR", u"XOR>", Logic::Xor, 2, 2},
                                {u"<NOT", u"NOT>", Logic::Not, 1, 1}};

// Reads the list from left to right.
class Parser
{
public:
    explicit Parser(Value list) : m_items(lisp::itemsOf(list)) {}

    std::unique_ptr<Condition> parse()
    {
        Conditions all = conditions(u"");
        return all.empty() ? nullptr : std::make_unique<Combination>(Logic::And, std::move(all));
    }

private:
    // Up to this closing operator, or to the end for an empty one.
    Conditions conditions(std::u16string_view end)
    {
        Conditions parts;
        while (m_next < m_items.size()) {
            const Value item = m_items[m_next++];
            const std::optional<std::u16string> name = operatorOf(item);
            if (!name) {
                parts.push_back(condition(item, {Relation::Equal}));
            } else if (const Bracket *bracket = bracketNamed(*name, &Bracket::begin)) {
                parts.push_back(combination(*bracket));
            } else if (bracketNamed(*name, &Bracket::end)) {
                if (*name != end)
                    badList();
                return parts;
            } else {
                if (m_next == m_items.size() || operatorOf(m_items[m_next]))
                    badList();
                parts.push_back(condition(m_items[m_next++], relationsNamed(*name)));
            }
        }
        if (!end.empty())
            badList();
        return parts;
    }

    static const Bracket *bracketNamed(std::u16string_view name, std::u16string_view Bracket::*part)
    {
        const auto *const found = std::ranges::find(brackets, name, part);
        return found != std::end(brackets) ? found : nullptr;
    }

    std::unique_ptr<Condition> combination(const Bracket &bracket)
    {
        if (++m_depth > MostNested)
            badList();
        Conditions parts = conditions(bracket.end);
        --m_depth;
        if (parts.size() < bracket.least || parts.size() > bracket.most)
            badList();
        return std::make_unique<Combination>(bracket.logic, std::move(parts));
    }

    static std::optional<std::u16string> operatorOf(Value item)
    {
        if (!item.isCons() || !item.asCons()->car.isInteger() || item.asCons()->car.asInteger() != OperatorCode)
            return std::nullopt;
        if (!item.asCons()->cdr.isString())
            badList();
        std::u16string name(item.asCons()->cdr.asString()->view());
        std::ranges::transform(name, name.begin(), [](char16_t unit) {
            return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
        });
        return name;
    }

    static std::unique_ptr<Condition> condition(Value item, const Relations &relations)
    {
        if (!item.isCons() || !item.asCons()->car.isInteger())
            badList();
        const int code = item.asCons()->car.asInteger();
        if (code == ExtendedDataCode)
            return applications(item.asCons()->cdr);
        const std::optional<Group> group = groupOf(item);
        if (!group)
            badList();
        const auto *text = std::get_if<std::u16string>(&group->value);
        const bool isPlain = text && relations.size() == 1 && relations.front() == Relation::Equal;
        if (isPlain && code == groupcode::Type)
            return std::make_unique<NameCondition>(*text, &Record::type);
        if (isPlain && code == groupcode::Layer)
            return std::make_unique<NameCondition>(*text, &Record::name);
        if (text && code == LayoutCode)
            return layoutCondition(*text, relations.front());
        return std::make_unique<GroupCondition>(*group, relations);
    }

    static std::unique_ptr<Condition> layoutCondition(std::u16string_view pattern, Relation relation)
    {
        auto isThere = std::make_unique<LayoutCondition>(pattern);
        if (relation != Relation::NotEqual)
            return isThere;
        Conditions parts;
        parts.push_back(std::move(isThere));
        return std::make_unique<Combination>(Logic::Not, std::move(parts));
    }

    static std::unique_ptr<Condition> applications(Value list)
    {
        Conditions parts;
        for (const Value application : lisp::ListItems(list)) {
            if (!application.isCons() || !application.asCons()->car.isString())
                badList();
            parts.push_back(std::make_unique<ApplicationCondition>(application.asCons()->car.asString()->view()));
        }
        if (parts.empty())
            badList();
        return std::make_unique<Combination>(Logic::And, std::move(parts));
    }

    static constexpr int MostNested = 200;
    std::vector<Value> m_items;
    std::size_t m_next = 0;
    int m_depth = 0;
};

} // namespace

SelectionFilter::SelectionFilter(Value list) : m_condition(Parser(list).parse()) {}

SelectionFilter::~SelectionFilter() = default;

SelectionFilter::SelectionFilter(SelectionFilter &&) noexcept = default;

bool SelectionFilter::accepts(const Drawing &drawing, RecordId entity) const
{
    return !m_condition || m_condition->holds(drawing, entity);
}
